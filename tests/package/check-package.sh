#!/usr/bin/env bash
# The release package as a Windows user unpacks it: its files against the list, the program
# being the one the build made, and a README that Notepad of old Windows shows line by line.
#
#   check-package.sh <unpacked folder> <built exe>
set -euo pipefail
folder=$1 built=$2
expected="INI/D3D/CPU_LowDetail.ini
INI/D3D/Custom_MaxDetail.ini
INI/D3D/Custom_MinDetail.ini
INI/OGL/CPU_LowDetail.ini
INI/OGL/Custom_MaxDetail.ini
INI/OGL/Custom_MinDetail.ini
KelvarniteUT2k3Benchmark.exe
README.txt
compare.html
help.html"
diff <(echo "$expected") <(cd "$folder" && find . -type f | sed 's|^\./||' | LC_ALL=C sort)
cmp "$folder/KelvarniteUT2k3Benchmark.exe" "$built"
! grep -q $'[^\r]$' "$folder/README.txt" || { echo "README.txt has a line that does not end in CR LF" >&2; exit 1; }
echo "the package holds the program folder"
