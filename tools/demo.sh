#!/usr/bin/env bash
# A whole benchmark without the game: builds the program and the stand-in game, lays out a
# full game and a demo on the stand-in in a Wine prefix of its own (out/demo/prefix, never
# ~/.wine), puts the program in "C:\Program Files\Kelvarnite UT2k3 Benchmark\" and starts it.
#
#   tools/demo.sh              with a display: you drive the program, and the report opens in
#                              the browser of the prefix
#   tools/demo.sh --headless   also the choice where there is no display: on a virtual display
#                              it runs a CPU benchmark at 640x480 and 1024x768 by itself, then
#                              prints the report's tables and saves a picture of the main window
#
# The exit code says whether the run worked.
set -euo pipefail
cd "$(dirname "$0")/.."

headless=0
if [[ ${1:-} == --headless || -z ${DISPLAY:-} ]]; then headless=1; fi

tools/install-deps.sh
echo "== Building"
tools/build-windows.sh mingw-x86_64 >/dev/null

source tools/wine-lib.sh
out=out/mingw-x86_64
demo=$PWD/out/demo
mkdir -p "$demo"
echo "== Laying out the game, the demo and the program in $demo/prefix"

if [[ $headless -eq 0 ]]; then
  make_prefix "$demo/prefix" "$out"
  echo "== Starting the program; the stand-in's runs take about a second each"
  wine "$PROGRAM_FOLDER\\KelvarniteUT2k3Benchmark.exe"
  exit 0
fi

trap 'WINEPREFIX=$demo/prefix wineserver -k 2>/dev/null || true; stop_xvfb' EXIT
start_xvfb
make_prefix "$demo/prefix" "$out" --driver build/mingw-x86_64/tests/e2e --desktop
rm -f "$demo/main-window.bmp" "$demo/main-window.png"
echo "== Running a CPU benchmark at 640x480 and 1024x768"
KELVARNITE_E2E_SHOTS=$(winepath -w "$demo" 2>/dev/null) \
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
convert "$demo/main-window.bmp" "$demo/main-window.png"
rm -f "$demo/main-window.bmp"
echo "A picture of the main window: $demo/main-window.png"
