#!/usr/bin/env bash
# Runs the check of the registry layer under Wine, in a prefix of its own that is thrown away
# afterwards. Usage: run-registry-check.sh <path of the x86_64 registry_check.exe>
set -euo pipefail

if [[ $# -ne 1 || ! -f $1 ]]; then
  echo "usage: $0 <registry_check.exe>" >&2
  exit 2
fi
check_exe=$(realpath "$1")

export WINEDEBUG=-all
export WINEPREFIX
WINEPREFIX=$(mktemp -d "${TMPDIR:-/tmp}/kelvarnite-registry.XXXXXX")
cleanup() {
  wineserver -k >/dev/null 2>&1 || true
  rm -rf "$WINEPREFIX"
}
trap cleanup EXIT

# The first command builds the prefix; its start-up chatter is of no interest here.
wine wineboot --init >/dev/null 2>&1 || true
# The check writes its values itself and exits non-zero when any case fails.
wine "$check_exe" | tr -d '\r'
