#!/usr/bin/env bash
# The release exe against the oldest Windows it must start on, Windows 98 SE and Windows 2000:
# its PE header asks for Windows 4.0, and every function it imports is on the committed list
# with Windows old enough to export it, or with the reason the program still works without it.
#
#   check-imports.sh <objdump> <exe> <list>
set -euo pipefail
objdump=$1 exe=$2 list=$3
header=$("$objdump" -p "$exe")

# Windows 9x and NT 4.0 refuse an exe that asks for a newer system or subsystem than 4.0.
status=0
for field in OSystemVersion SubsystemVersion; do
  version=$(awk -v f="$field" '$1 == "Major" f { major = $2 } $1 == "Minor" f { minor = $2 }
    END { print major "." minor }' <<<"$header")
  [[ $version == 4.0 ]] || { echo "$field is $version, not 4.0"; status=1; }
done

# The import table, one "dll function" a line; an import by ordinal alone becomes "#<ordinal>".
imports=$(awk '/^[ \t]*DLL Name:/ { dll = tolower($3); next }
  /^[ \t]*$/ { dll = ""; next }
  dll != "" && /^\t[0-9a-f]+\t/ { print dll, (NF >= 3 && $3 != "<none>" ? $3 : "#" $2) }' <<<"$header")
[[ -n $imports ]] || { echo "no imports read from $exe"; exit 1; }

awk -v status="$status" '
  FILENAME == ARGV[1] {
    if (/^[ \t]*(#|$)/) next
    listed[tolower($1) " " $2] = 1
    # A line without a reason must name releases no newer than 98 SE and 2000.
    if (NF < 5 && !($3 ~ /^(95|98|98SE)$/ && $4 ~ /^(NT3\.51|NT4|2000)$/)) {
      printf "%s %s (9x %s, nt %s): not in both Windows 98 SE and 2000, and no reason is given\n",
        $1, $2, $3, $4
      status = 1
    }
    next
  }
  { total++ }
  !($0 in listed) { print $0 " is imported but not on the list"; status = 1 }
  END { printf "%d imports: %s\n", total, status ? "FAILED" : "ok"; exit status }
' "$list" - <<<"$imports"
