#!/usr/bin/env bash
# A whole benchmark without the game: builds the release package, unpacks it, lays out a full
# game and a demo on the stand-in game in a Wine prefix of its own (out/demo/prefix, never
# ~/.wine), puts the program from the zip in "C:\Program Files\Kelvarnite UT2k3 Benchmark\"
# and starts it.
#
#   tools/demo.sh              with a display: you drive the program, and the report opens in
#                              the prefix's own browser (Wine's built-in one, winebrowser)
#   tools/demo.sh --headless   also the choice where there is no display: on a virtual display
#                              it runs a CPU benchmark at 640x480 and 1024x768 by itself, then
#                              prints the report's tables and saves a picture of the main window
#
# Everything it makes is under out/ and build/ of this folder; the packages it installs are
# listed by tools/install-deps.sh. The exit code says whether the run worked.
set -euo pipefail
cd "$(dirname "$0")/.."

headless=0
if [[ ${1:-} == --headless || -z ${DISPLAY:-} ]]; then headless=1; fi

echo "== 1/4 Installing what is missing (Debian packages; root or sudo)"
tools/install-deps.sh demo
echo "== 2/4 Building the release (build/mingw-i686; a few minutes the first time)"
demo=$PWD/out/demo
mkdir -p "$demo"
cmake --preset mingw-i686 >"$demo/build.log" 2>&1 || { cat "$demo/build.log" >&2; exit 1; }
# Ninja's progress, a line for each file built; the whole output goes to build.log.
if ! cmake --build --preset mingw-i686 2>&1 | tee -a "$demo/build.log" |
    sed -u -n -E 's/^(\[[0-9]+\/[0-9]+\]) (Building|Linking) [A-Z]+ [a-z]+ .*\/([^/]+)$/   \1 \2 \3/p'; then
  echo "the build failed; its output is in $demo/build.log" >&2
  exit 1
fi
# The tests' own step makes the zip and unpacks it into build/mingw-i686/release/.
ctest --preset e2e -R '^package\.unpack$' >/dev/null
program=$(echo "$PWD"/build/mingw-i686/release/*/)
echo "   the release zip, unpacked in $program"

# shellcheck source=tools/wine-lib.sh
source tools/wine-lib.sh
echo "== 3/4 Laying out the game, the demo and the program in $demo/prefix (about 30 s)"
if [[ $headless -eq 0 ]]; then
  make_prefix "$demo/prefix" "$program" build/mingw-i686/game
  echo "== 4/4 Starting the program; the stand-in's runs take about a second each"
  wine "$PROGRAM_FOLDER\\KelvarniteUT2k3Benchmark.exe"
  exit 0
fi

trap 'WINEPREFIX=$demo/prefix wineserver -k 2>/dev/null || true; stop_xvfb' EXIT
start_xvfb
make_prefix "$demo/prefix" "$program" build/mingw-i686/game --driver build/mingw-i686/tests/e2e --desktop
rm -f "$demo/main-window.png"
echo "== 4/4 Running a CPU benchmark at 640x480 and 1024x768"
KELVARNITE_E2E_SHOTS=$demo \
  wine "$DRIVER_FOLDER\\driver.exe" run demo | tr -d '\r'

report=$(drive_c "$PROGRAM_FOLDER")/results.html
[[ -f $report ]] || { echo "no report was written" >&2; exit 1; }
# The three tables as text: a caption, then a row per table row, one cell a column.
tr -d '\r' <"$report" | awk '
  /^<CAPTION/ { gsub(/<[^>]*>/, ""); printf "\n%s\n", $0 }
  /^<TR>$/ { row = "" }
  /^<TD>/ { cell = substr($0, 5); sub(/ +$/, "", cell); row = row sprintf("%-16s", cell) }
  /^<\/TR>$/ { print row }
'
echo
echo "The report: $report"
echo "A picture of the main window: $demo/main-window.png"
echo "To remove it all: rm -rf out/ build/ (the packages stay; see tools/install-deps.sh)"
