#!/usr/bin/env bash
# One end-to-end scenario: the released program and the stand-in game under Wine, driven
# through the program's windows by driver.exe, in a copy of the booted prefix and on a display
# of its own, so that scenarios share nothing and may run side by side.
#
#   run-scenario.sh <booted prefix> <folder of the expected files> <scenario>
#
# With KELVARNITE_E2E_UPDATE=1 the files the scenario finds are written to the expected files'
# folder instead of compared, and its pictures of the windows go to docs/screenshots/.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
# shellcheck source=tools/wine-lib.sh
source "$here/../../tools/wine-lib.sh"
base=$1 golden=$2 name=$3

work=$(mktemp -d "${TMPDIR:-/tmp}/kelvarnite-e2e.XXXXXX")
cleanup() {
  WINEPREFIX=$work/prefix wineserver -k 2>/dev/null || true
  chattr -R -i "$work" 2>/dev/null || true
  stop_xvfb
  rm -rf "$work"
}
trap cleanup EXIT
cp -a "$base" "$work/prefix"
mkdir "$work/shots"
export WINEPREFIX=$work/prefix WINEDEBUG=-all
driver="$DRIVER_FOLDER\\driver.exe"
# The prefix's first program starts its desktop, which needs the display.
start_xvfb

# What the scenario needs done on the host, where Wine cannot reach: files that nobody may
# change, even root; another program folder; a drive letter.
host=$(wine "$driver" host | tr -d '\r' | awk -F'\t' -v name="$name" '$1 == name' | cut -f2-)
if grep -q '^immutable' <<<"$host" && [[ $(id -u) -ne 0 ]]; then
  echo "SKIP  $name: only root can make a file that no one may change"; exit 77
fi

# Fast enough that a 35-start suite takes seconds; the runs stay the same, only shorter.
export UT2003_STANDIN_SPEED=100000
export KELVARNITE_E2E_GOLDEN KELVARNITE_E2E_SHOTS=$work/shots
KELVARNITE_E2E_GOLDEN=$(winepath -w "$golden" 2>/dev/null)

prepared=
if [[ -n $host ]]; then
  # The host's steps come between the scenario's own preparation and its run.
  wine "$driver" prepare "$name" 2>/dev/null
  prepared=prepared
  while IFS=$'\t' read -r verb first second; do
    case $verb in
      immutable) chattr +i "$(drive_c "$first")" ;;
      copy) mkdir -p "$(drive_c "$second")" && cp -r "$(drive_c "$first")"/. "$(drive_c "$second")" ;;
      drive) ln -sfn "$(drive_c "$second")" "$WINEPREFIX/dosdevices/$first" ;;
      *) echo "unknown host step: $verb" >&2; exit 1 ;;
    esac
  done <<<"$host"
fi
status=0
wine "$driver" run "$name" $prepared 2>/dev/null | tr -d '\r' || status=$?

# Each picture, whatever the run's outcome, taken as the committed one with
# KELVARNITE_E2E_UPDATE=1, or else compared with it, with room for Wine's font smoothing: no
# more than a few pixels that differ by more than a tenth.
for shot in "$work"/shots/*.png; do
  [[ -f $shot ]] || continue
  picture=$(basename "${shot%.png}") diff=$PWD/$name-$picture-diff.png
  committed=$here/../../docs/screenshots/$picture.png
  if [[ ${KELVARNITE_E2E_UPDATE:-} == 1 ]]; then
    convert "$shot" -strip "$committed"
  elif differ=$(compare -metric AE -fuzz 10% "$shot" "$committed" "$diff" 2>&1) || [[ $differ =~ ^[0-9]+$ && $differ -le 40 ]]; then
    rm -f "$diff"
  else
    echo "FAIL  $name: the picture differs from docs/screenshots/$picture.png in $differ pixels; they are red in $diff"
    status=1
  fi
done
[[ $status -eq 0 ]]
