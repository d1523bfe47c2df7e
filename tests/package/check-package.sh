#!/usr/bin/env bash
# The release package as a Windows user unpacks it: its files against contents.txt beside this
# script, the program being the one the build made, and a README that Notepad of old Windows
# shows line by line.
#
#   check-package.sh <unpacked folder> <built exe>
set -euo pipefail
folder=$1 built=$2 exe=$1/KelvarniteUT2k3Benchmark.exe
fail() { echo "$*" >&2; exit 1; }
diff "$(dirname "$0")/contents.txt" <(cd "$folder" && find . -type f | sed 's|^\./||' | LC_ALL=C sort)
cmp "$exe" "$built"
! grep -q $'[^\r]$' "$folder/README.txt" || fail "README.txt has a line that does not end in CR LF"
# The exe asks for no execution level, so Windows keeps the file virtualisation under Program
# Files that both guides warn of when they say where to unpack the program.
grep -q 'assemblyIdentity type="win32" name="Kelvarnite.UT2k3Benchmark"' "$exe" || fail "the exe has no manifest"
! grep -q requestedExecutionLevel "$exe" || fail "the exe's manifest asks for an execution level"
for guide in README.txt help.html; do
  grep -q VirtualStore "$folder/$guide" || fail "$guide no longer says to unpack the program away from the VirtualStore"
done
echo "the package holds the program folder"
