#!/usr/bin/env bash
# The program's figures, each against a baseline taken in the same run:
#
#   1. the cost per game start: a 35-start High Quality suite, from the click to the report in
#      the shell's hands, against a bare loop of the same 35 starts (under Wine)
#   2. start-up to the shown main window, against a minimal window program, and against the
#      same main window made by hand in plain Win32 (under Wine)
#   3. reading a log and writing its report, natively with Google Benchmark: MB/s of log and
#      the time per record at 35, 10^3 and 10^5 records, against reading the file alone
#   4. the size of the release exe and the DLLs it needs
#   5. the program's peak memory during the suite, against the minimal window program
#   6. the compare page's draw time for 50 reports, against one (benchmarks/compare_page.mjs)
#
#   tools/benchmark.sh [--runs N] [--startups N] [--doc]
#
# With --doc it writes its tables, in Markdown with the commit and the machine, into the two
# marked blocks of docs/performance.md, which take them whole: the doc then holds the figures
# of one run and nothing else of them.
#
# It installs what is missing, builds the release package and the native benchmark preset, and
# runs the 32-bit exe unpacked from the zip under 32-bit Wine, in a prefix of its own in a
# temporary folder, on a virtual display of its own. It prints a table of the figures with
# their goals (benchmarks/goal_table.cpp, which holds the goals) and exits non-zero when a goal
# is missed. Figures vary with the load of the machine: read them from a quiet one.
set -euo pipefail
cd "$(dirname "$0")/.."

suite_runs=7     # pairs of a suite and a bare loop, after a warm-up pair
startup_runs=11  # rounds of a start of the program, the minimal window and the same window by hand
doc=0
while [[ $# -gt 0 ]]; do
  case $1 in
    --runs) suite_runs=$2; shift 2 ;;
    --startups) startup_runs=$2; shift 2 ;;
    --doc) doc=1; shift ;;
    *) echo "usage: tools/benchmark.sh [--runs N] [--startups N] [--doc]" >&2; exit 2 ;;
  esac
done
commit=$(git rev-parse --short HEAD 2>/dev/null || echo unknown)
[[ -z $(git status --porcelain --untracked-files=no 2>/dev/null) ]] || commit+=" with uncommitted changes"

tools/install-deps.sh test
# shellcheck source=tools/wine-lib.sh
source tools/wine-lib.sh

work=$(mktemp -d "${TMPDIR:-/tmp}/kelvarnite-benchmark.XXXXXX")
cleanup() {
  [[ -d $work/prefix ]] && { WINEPREFIX=$work/prefix wineserver -k 2>/dev/null || true; }
  stop_xvfb
  rm -rf "$work"
}
trap cleanup EXIT

echo "== Building (the release package, benchmark)"
if ! { cmake --preset mingw-i686 && cmake --build --preset mingw-i686 &&
       ctest --preset e2e -R '^package\.unpack$' &&
       cmake --preset benchmark && cmake --build --preset benchmark; } >"$work/build.log" 2>&1; then
  cat "$work/build.log" >&2
  exit 1
fi

# Builds done, the measuring starts: ahead of other work on the machine where that is allowed,
# since another job's load moves a start under Wine by half its time and more. A real-time
# priority (root) takes the figures out of the load's reach, a raised one less so; the kernel
# still keeps a share of each second for the rest. Every program measured and every baseline
# inherits the same priority.
load=$(cut -d' ' -f1 /proc/loadavg)
if chrt -r -p 1 $$ >/dev/null 2>&1; then
  priority="real-time (round robin 1)"
elif renice -n -10 -p $$ >/dev/null 2>&1; then
  priority="nice -10"
else
  priority="normal: figures follow the load of the machine"
fi
echo "== Measuring at priority $priority; load average $load on $(nproc) processors"

# --- 3. Reading a log and writing its report -----------------------------------------------
echo "== Reading a log and writing its report (Google Benchmark)"
build/benchmark/benchmarks/report_benchmark --benchmark_repetitions=5 \
  --benchmark_report_aggregates_only=true --benchmark_min_time=0.2 \
  --benchmark_out="$work/report.csv" --benchmark_out_format=csv >/dev/null 2>"$work/report.err" \
  || { cat "$work/report.err" >&2; exit 1; }

# --- 4. The release exe: its size and the DLLs it imports ---------------------------------
program=$(echo "$PWD"/build/mingw-i686/release/*/)
release=${program}KelvarniteUT2k3Benchmark.exe
minimal_release=build/mingw-i686/benchmarks/minimal_window.exe
i686-w64-mingw32-objdump -p "$release" >"$work/imports.txt"

# --- 1, 2, 5. Under Wine ------------------------------------------------------------------
echo "== Laying out a Wine prefix in $work"
start_xvfb
make_prefix "$work/prefix" "$program" build/mingw-i686/game --driver build/mingw-i686/tests/e2e --desktop
cp build/mingw-i686/benchmarks/{measure,minimal_window,same_window}.exe \
  "$(drive_c "$DRIVER_FOLDER")"
# The stand-in ends at once: what is left of a start is the system's and the program's cost.
export UT2003_STANDIN_SPEED=0
# A measurement spoilt by a start that Wine failed is taken again; the notes say so.
measure() {
  wine "$DRIVER_FOLDER\\measure.exe" "$@" 2>"$work/measure.err" | tr -d '\r' >>"$work/wine.txt" \
    || { cat "$work/measure.err" >&2; exit 1; }
  grep '^measure:' "$work/measure.err" || true
}
echo "== Start-up: $startup_runs rounds of the program, the minimal window and the same window"
measure startup "$startup_runs"
echo "== Suite: $suite_runs alternating pairs of 35 starts"
measure suite "$suite_runs"
wineserver -w

# --- 6. The compare page, in headless Chromium --------------------------------------------
echo "== The compare page with 50 reports"
status=0
node benchmarks/compare_page.mjs "${program}compare.html" >"$work/compare.txt" || status=1

# --- The tables -----------------------------------------------------------------------------
memory=$(awk '/^MemTotal/ { printf "%.0f GB", $2 / 1048576 }' /proc/meminfo)
{
  echo "Measured at commit $commit by \`tools/benchmark.sh --runs $suite_runs --startups $startup_runs\`:" \
    "$(nproc) x $(awk -F': ' '/^model name/ { print $2; exit }' /proc/cpuinfo), $memory," \
    "Debian $(cat /etc/debian_version), $(wine --version); $(i686-w64-mingw32-g++ --version | head -1)," \
    "$(g++ --version | head -1), $(cmake --version | head -1). Priority: $priority; load average" \
    "before measuring: $load."
  echo
} >"$work/program.md"
# The figures against their goals; a missed goal is the script's exit status.
build/benchmark/benchmarks/goal_table "$work/wine.txt" "$work/report.csv" "$work/imports.txt" \
  "$release" "$minimal_release" >"$work/goals.txt" || status=$?
{ grep '^|' "$work/goals.txt"; echo; } >>"$work/program.md" || true
{
  grep '^Machine' "$work/compare.txt"; echo
  grep '^|' "$work/compare.txt"; echo
  grep -v -e '^|' -e '^Machine' "$work/compare.txt"; echo
} >"$work/compare.md" || true
echo
cat "$work/program.md"
grep -v '^|' "$work/goals.txt"
echo
cat "$work/compare.md"

# write_block <name> <file>: the lines between the block's two markers in docs/performance.md
# become the file's.
write_block() {
  local begin="<!-- $1: written by tools/benchmark.sh --doc -->" end="<!-- end of $1 -->"
  if ! grep -qxF "$begin" docs/performance.md || ! grep -qxF "$end" docs/performance.md; then
    echo "docs/performance.md lacks the markers of $1" >&2
    return 1
  fi
  grep -q '^|' "$2" || { echo "no table of $1 to write" >&2; return 1; }
  awk -v begin="$begin" -v end="$end" -v file="$2" '
    $0 == end { skip = 0 }
    !skip { print }
    $0 == begin { while ((getline line < file) > 0) print line; skip = 1 }
  ' docs/performance.md >"$work/performance.md"
  cp "$work/performance.md" docs/performance.md
}
if [[ $doc -eq 1 ]]; then
  write_block "the program's figures" "$work/program.md"
  write_block "the compare page's figures" "$work/compare.md"
  echo "docs/performance.md: both blocks written"
fi
[[ $status -eq 0 ]]
