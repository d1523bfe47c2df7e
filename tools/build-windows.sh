#!/usr/bin/env bash
# Builds the Windows program for both targets and leaves the program folders
# out/mingw-i686/ and out/mingw-x86_64/.
set -euo pipefail
cd "$(dirname "$0")/.."

for preset in mingw-i686 mingw-x86_64; do
  cmake --preset "$preset"
  cmake --build --preset "$preset"
done
