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
echo "the package holds the program folder"
