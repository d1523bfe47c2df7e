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

# The values to write, one a line, the arguments of "reg add" separated by tabs. Empty
# arguments (an empty string's data) must survive, so the line is split on every tab.
setup=$(wine "$check_exe" setup | tr -d '\r')
while IFS= read -r line; do
  [[ -z $line ]] && continue
  readarray -d $'\t' -t args < <(printf '%s' "$line")
  if ! wine reg add "${args[@]}" >/dev/null; then
    echo "reg add failed: ${args[*]}" >&2
    exit 1
  fi
done <<<"$setup"

status=0
wine "$check_exe" check | tr -d '\r' || status=$?
exit "$status"
