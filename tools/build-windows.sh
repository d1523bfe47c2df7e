#!/usr/bin/env bash
# Builds the Windows program for both targets, or for the presets named, and leaves the program
# folders out/mingw-i686/ and out/mingw-x86_64/.
set -euo pipefail
cd "$(dirname "$0")/.."

presets=("$@")
[[ ${#presets[@]} -gt 0 ]] || presets=(mingw-i686 mingw-x86_64)
for preset in "${presets[@]}"; do
  cmake --preset "$preset"
  cmake --build --preset "$preset"
done
