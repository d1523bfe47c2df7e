#!/usr/bin/env bash
# The end-to-end tests: the real x86_64 program and the stand-in game under Wine and Xvfb,
# driven through standard window messages by tests/e2e/driver.exe.
#
#   tests/e2e/run-e2e.sh [--update] [scenario...]
#
# One Xvfb and one booted prefix serve the whole run, and each scenario runs in a copy of the
# prefix. With --update the files that the scenarios find are written to tests/e2e/golden/
# instead of compared, and the pictures of the windows they take go to docs/screenshots/: look
# at the difference before you commit it.
set -euo pipefail
cd "$(dirname "$0")/../.."
source tools/wine-lib.sh

out=out/mingw-x86_64
driver=build/mingw-x86_64/tests/e2e
for needed in "$out/KelvarniteUT2k3Benchmark.exe" "$out-game/System/ut2003.exe" \
              "$driver/driver.exe" "$driver/opener.exe"; do
  [[ -f $needed ]] || { echo "missing $needed: build the mingw-x86_64 preset first" >&2; exit 2; }
done
if [[ ${1:-} == --update ]]; then
  export KELVARNITE_E2E_UPDATE=1
  shift
fi

work=$(mktemp -d "${TMPDIR:-/tmp}/kelvarnite-e2e.XXXXXX")
cleanup() {
  for prefix in "$work"/*/; do WINEPREFIX=$prefix wineserver -k 2>/dev/null || true; done
  stop_xvfb
  rm -rf "$work"
}
trap cleanup EXIT

start_xvfb
make_prefix "$work/base" "$out" --driver "$driver" --desktop
# Fast enough that a 35-start suite takes seconds; the runs stay the same, only shorter.
export UT2003_STANDIN_SPEED=100000
export KELVARNITE_E2E_GOLDEN KELVARNITE_E2E_SHOTS
KELVARNITE_E2E_GOLDEN=$(winepath -w "$PWD/tests/e2e/golden" 2>/dev/null)
mkdir -p tests/e2e/golden "$work/shots"
KELVARNITE_E2E_SHOTS=$(winepath -w "$work/shots" 2>/dev/null)

scenarios=("$@")
if [[ ${#scenarios[@]} -eq 0 ]]; then
  readarray -t scenarios < <(wine "$(drive_c "$DRIVER_FOLDER")/driver.exe" list | tr -d '\r')
fi
wineserver -w

failed=0
started=$SECONDS
for name in "${scenarios[@]}"; do
  cp -a "$work/base" "$work/scenario"
  WINEPREFIX=$work/scenario wine "$DRIVER_FOLDER\\driver.exe" run "$name" 2>/dev/null \
    | tr -d '\r' || failed=$((failed + 1))
  WINEPREFIX=$work/scenario wineserver -k 2>/dev/null || true
  rm -rf "$work/scenario"
done
echo "${#scenarios[@]} scenarios, $failed failed, $((SECONDS - started)) s"
if [[ ${KELVARNITE_E2E_UPDATE:-} == 1 ]]; then
  mkdir -p docs/screenshots
  for shot in "$work"/shots/*.bmp; do
    [[ -f $shot ]] && convert "$shot" -strip "docs/screenshots/$(basename "${shot%.bmp}").png"
  done
fi
[[ $failed -eq 0 ]]
