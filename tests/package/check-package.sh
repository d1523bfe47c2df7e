#!/usr/bin/env bash
# The release package: made from the i686 build, unpacked, and its files compared with the
# list a Windows user gets, the program being the one the build made.
set -euo pipefail
cd "$(dirname "$0")/../.."

name=KelvarniteUT2k3Benchmark-2.0.0-win32
cmake --build --preset mingw-i686 --target package >/dev/null
unpacked=$(mktemp -d)
trap 'rm -rf "$unpacked"' EXIT
unzip -q "out/$name.zip" -d "$unpacked"

expected="$name/INI/D3D/CPU_LowDetail.ini
$name/INI/D3D/Custom_MaxDetail.ini
$name/INI/D3D/Custom_MinDetail.ini
$name/INI/OGL/CPU_LowDetail.ini
$name/INI/OGL/Custom_MaxDetail.ini
$name/INI/OGL/Custom_MinDetail.ini
$name/KelvarniteUT2k3Benchmark.exe
$name/README.txt
$name/help.html"
if ! diff <(echo "$expected") <(cd "$unpacked" && find . -type f | sed 's|^\./||' | LC_ALL=C sort); then
  echo "the package's files differ from the list" >&2
  exit 1
fi
cmp "$unpacked/$name/KelvarniteUT2k3Benchmark.exe" out/mingw-i686/KelvarniteUT2k3Benchmark.exe
# Notepad of Windows XP shows a file without CR LF as one long line.
if grep -q $'[^\r]$' "$unpacked/$name/README.txt"; then
  echo "README.txt has a line that does not end in CR LF" >&2
  exit 1
fi
echo "package: $name.zip holds the program folder"
