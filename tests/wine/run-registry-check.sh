#!/usr/bin/env bash
# Runs the check of the registry layer under Wine, in a copy of the booted prefix that is
# thrown away afterwards. The check writes its values itself, through the view of its own
# bitness, and exits non-zero when any case fails.
#
#   run-registry-check.sh <booted prefix> <registry_check.exe>
set -euo pipefail
export WINEDEBUG=-all WINEPREFIX
WINEPREFIX=$(mktemp -d "${TMPDIR:-/tmp}/kelvarnite-registry.XXXXXX")
trap 'wineserver -k >/dev/null 2>&1 || true; rm -rf "$WINEPREFIX"' EXIT
cp -a "$1"/. "$WINEPREFIX"
wine "$2" | tr -d '\r'
