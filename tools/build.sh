#!/usr/bin/env bash
# Builds the program for Windows: out/mingw-i686/ (the release) and out/mingw-x86_64/.
set -euo pipefail
cd "$(dirname "$0")/.."
tools/install-deps.sh
tools/build-windows.sh
