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
#
#   tools/benchmark.sh [--runs N] [--startups N]
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
while [[ $# -gt 0 ]]; do
  case $1 in
    --runs) suite_runs=$2; shift 2 ;;
    --startups) startup_runs=$2; shift 2 ;;
    *) echo "usage: tools/benchmark.sh [--runs N] [--startups N]" >&2; exit 2 ;;
  esac
done

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

# --- The table ------------------------------------------------------------------------------
echo
echo "Machine: $(nproc) x $(awk -F': ' '/^model name/ { print $2; exit }' /proc/cpuinfo)," \
  "Debian $(cat /etc/debian_version), $(wine --version)"
echo "Compilers: $(i686-w64-mingw32-g++ --version | head -1); $(g++ --version | head -1)"
echo "Priority: $priority; load average before measuring: $load"
echo
# The figures against their goals; a missed goal is the script's exit status.
build/benchmark/benchmarks/goal_table "$work/wine.txt" "$work/report.csv" "$work/imports.txt" \
  "$release" "$minimal_release"
