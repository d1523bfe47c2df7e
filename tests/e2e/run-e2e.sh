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
  chattr -R -i "$work" 2>/dev/null || true
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
# What each scenario needs done on the host, where Wine cannot reach: files that nobody may
# change, even root; another program folder; a drive letter.
declare -A host
while IFS=$'\t' read -r name line; do
  host[$name]+="$line"$'\n'
done < <(wine "$(drive_c "$DRIVER_FOLDER")/driver.exe" host | tr -d '\r')
wineserver -w

prepare_host() {
  local verb first second
  while IFS=$'\t' read -r verb first second; do
    case $verb in
      immutable) chattr +i "$(drive_c "$first")" ;;
      copy) mkdir -p "$(drive_c "$second")" && cp -r "$(drive_c "$first")"/. "$(drive_c "$second")" ;;
      drive) ln -sfn "$(drive_c "$second")" "$WINEPREFIX/dosdevices/$first" ;;
      '') ;;
      *) echo "unknown host step: $verb" >&2; return 1 ;;
    esac
  done <<<"${host[$1]:-}"
}

failed=0
started=$SECONDS
for name in "${scenarios[@]}"; do
  cp -a "$work/base" "$work/scenario"
  driver=("$DRIVER_FOLDER\\driver.exe")
  run=(run "$name")
  # Host steps come between the scenario's own preparation and its run.
  if [[ -n ${host[$name]:-} ]]; then
    WINEPREFIX=$work/scenario wine "${driver[@]}" prepare "$name" 2>/dev/null
    run+=(prepared)
  fi
  if WINEPREFIX=$work/scenario prepare_host "$name"; then
    WINEPREFIX=$work/scenario wine "${driver[@]}" "${run[@]}" 2>/dev/null \
      | tr -d '\r' || failed=$((failed + 1))
  else
    echo "FAIL  $name: its host steps failed"
    failed=$((failed + 1))
  fi
  WINEPREFIX=$work/scenario wineserver -k 2>/dev/null || true
  chattr -R -i "$work/scenario" 2>/dev/null || true
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
