#!/usr/bin/env bash
# Every test: the unit tests on the headless platform (with AddressSanitizer and
# UndefinedBehaviorSanitizer), a minute of fuzzing of the log reader and the report writer and
# 20 seconds of the picture decoder, both Windows builds, the registry check under Wine, and
# the end-to-end scenarios of the real program and the stand-in game under Wine and Xvfb.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/install-deps.sh

echo "== Unit tests"
cmake --preset native >/dev/null
cmake --build --preset native
ctest --preset native

echo "== Fuzzing the log reader and the report writer, and the picture decoder"
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
# A fuzzer adds to its corpus, so it gets a copy of its seeds; a finding and the output land in
# build/fuzz/. A small quarantine keeps the RSS a measure of the program's own memory.
corpus=$(mktemp -d)
trap 'rm -rf "$corpus"' EXIT
fuzz() {
  local target=$1
  shift
  if ! ASAN_OPTIONS=quarantine_size_mb=16 "build/fuzz/tests/fuzz/$target" "$corpus/$target" "$@" \
      -timeout=10 -artifact_prefix=build/fuzz/ -print_final_stats=1 >"build/fuzz/$target.log" 2>&1; then
    tail -n 60 "build/fuzz/$target.log"
    exit 1
  fi
  grep -E '^#[0-9]+[[:space:]]+DONE|^stat::' "build/fuzz/$target.log"
}
mkdir -p "$corpus/log_report_fuzzer" "$corpus/jpeg_fuzzer"
cp tests/fuzz/corpus/* "$corpus/log_report_fuzzer"
cp data/logo.jpg tests/golden/*.jpg "$corpus/jpeg_fuzzer"
# A log is at most 64 KiB, so the reader's largest allocation is its array of at most 16385
# records, 4 MiB.
fuzz log_report_fuzzer -max_total_time=60 -max_len=65536 -malloc_limit_mb=8 -rss_limit_mb=256
# A picture is at most 4096 pixels a side: three planes and the picture, under 256 MiB.
fuzz jpeg_fuzzer -max_total_time=20 -max_len=16384 -malloc_limit_mb=256 -rss_limit_mb=1024

echo "== Windows builds"
tools/build-windows.sh

echo "== Release package"
tests/package/check-package.sh

echo "== Registry layer under Wine"
tests/wine/run-registry-check.sh build/mingw-x86_64/tests/wine/registry_check.exe

echo "== End to end under Wine"
tests/e2e/run-e2e.sh
