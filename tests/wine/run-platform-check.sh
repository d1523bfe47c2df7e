#!/usr/bin/env bash
# Runs the check of the Win32 layer under Wine, in a copy of the booted prefix that is thrown
# away afterwards. The check writes its registry values and files itself, through the view of
# its own bitness, reads the pictures of the release exe, and exits non-zero when any case fails.
#
#   run-platform-check.sh <booted prefix> <platform_check.exe> <release exe>
set -euo pipefail
export WINEDEBUG=-all WINEPREFIX
WINEPREFIX=$(mktemp -d "${TMPDIR:-/tmp}/kelvarnite-platform.XXXXXX")
trap 'wineserver -k >/dev/null 2>&1 || true; rm -rf "$WINEPREFIX"' EXIT
cp -a "$1"/. "$WINEPREFIX"
wine "$2" "$(winepath -w "$3" 2>/dev/null)" | tr -d '\r'
