#!/usr/bin/env bash
# The booted prefix that every end-to-end scenario copies: the released program, the stand-in
# laid out as the full game and as the demo with their keys, and the driver with its opener.
#
#   make-prefix.sh <prefix> <unpacked release folder> <stand-in game folder> <driver folder>
set -euo pipefail
# shellcheck source=tools/wine-lib.sh
source "$(dirname "$0")/../../tools/wine-lib.sh"
trap stop_xvfb EXIT
start_xvfb
make_prefix "$1" "$2" "$3" --driver "$4" --desktop
