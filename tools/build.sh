#!/usr/bin/env bash
# Builds the release: build/mingw-i686/ with the program, the stand-in game folder game/, and
# the package KelvarniteUT2k3Benchmark-<version>-win32.zip, the one thing users get.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/install-deps.sh demo
cmake --preset mingw-i686
cmake --build --preset mingw-i686 --target package
