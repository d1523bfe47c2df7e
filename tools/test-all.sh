#!/usr/bin/env bash
# Every test: the unit tests on the headless platform (with AddressSanitizer and
# UndefinedBehaviorSanitizer), both Windows builds, the registry check under Wine, and the
# end-to-end scenarios of the real program and the stand-in game under Wine and Xvfb.
set -euo pipefail
cd "$(dirname "$0")/.."

tools/install-deps.sh

echo "== Unit tests"
cmake --preset native >/dev/null
cmake --build --preset native
ctest --preset native

echo "== Windows builds"
tools/build-windows.sh

echo "== Release package"
tests/package/check-package.sh

echo "== Registry layer under Wine"
tests/wine/run-registry-check.sh build/mingw-x86_64/tests/wine/registry_check.exe

echo "== End to end under Wine"
tests/e2e/run-e2e.sh
