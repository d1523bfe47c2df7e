#!/usr/bin/env bash
# The release package as a Windows user unpacks it: its files against contents.txt beside this
# script, the program being the one the build made, and a README that Notepad of old Windows
# shows line by line.
#
#   check-package.sh <unpacked folder> <built exe>
set -euo pipefail
folder=$1 built=$2
diff "$(dirname "$0")/contents.txt" <(cd "$folder" && find . -type f | sed 's|^\./||' | LC_ALL=C sort)
cmp "$folder/KelvarniteUT2k3Benchmark.exe" "$built"
! grep -q $'[^\r]$' "$folder/README.txt" || { echo "README.txt has a line that does not end in CR LF" >&2; exit 1; }
# The exe asks for no execution level, so Windows keeps the file virtualisation under Program
# Files that both guides warn of when they say where to unpack the program.
exe=$folder/KelvarniteUT2k3Benchmark.exe
if ! grep -q 'assemblyIdentity type="win32" name="Kelvarnite.UT2k3Benchmark"' "$exe" ||
  grep -q requestedExecutionLevel "$exe"; then
  echo "the exe's manifest is missing or asks for an execution level" >&2
  exit 1
fi
if ! grep -q VirtualStore "$folder/README.txt" || ! grep -q VirtualStore "$folder/help.html"; then
  echo "a guide no longer says where to unpack the program, away from the VirtualStore" >&2
  exit 1
fi
echo "the package holds the program folder"
