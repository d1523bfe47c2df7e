#!/usr/bin/env bash
# The release exe against the oldest Windows it must start on, Windows 98 SE and Windows 2000:
# its PE header asks for Windows 4.0, and every function it imports is on the committed list
# with Windows old enough to export it, or with the reason the program still works without it.
# Usage: check-imports.sh <objdump> <exe> <list>
set -euo pipefail
if [ $# -ne 3 ]; then
  echo "usage: $0 <objdump> <exe> <list>" >&2
  exit 2
fi
objdump=$1 exe=$2 list=$3
header=$("$objdump" -p "$exe")

# Windows 9x and NT 4.0 refuse an exe that asks for a newer system or subsystem than 4.0.
status=0
for field in MajorOSystemVersion MinorOSystemVersion MajorSubsystemVersion MinorSubsystemVersion; do
  want=0
  [ "${field#Major}" != "$field" ] && want=4
  got=$(awk -v f="$field" '$1 == f { print $2 }' <<<"$header")
  if [ "$got" != "$want" ]; then
    echo "$field is ${got:-missing}, not $want" >&2
    status=1
  fi
done

# The import table, one "dll function" a line; an import by ordinal alone becomes "#<ordinal>".
imports=$(awk '/^[ \t]*DLL Name:/ { dll = tolower($3); next }
  /^[ \t]*$/ { dll = ""; next }
  dll != "" && /^\t[0-9a-f]+\t/ { print dll, (NF >= 3 && $3 != "<none>" ? $3 : "#" $2) }' <<<"$header")
if [ -z "$imports" ]; then
  echo "no imports read from $exe" >&2
  exit 1
fi

awk -v status="$status" '
  # Releases old enough for the oldest targets; anything else needs a reason.
  BEGIN {
    split("95 98 98SE", a); for (i in a) old9x[a[i]] = 1
    split("ME stub none", a); for (i in a) new9x[a[i]] = 1
    split("NT3.51 NT4 2000", a); for (i in a) oldnt[a[i]] = 1
    split("XP Vista 7 8 10 none", a); for (i in a) newnt[a[i]] = 1
  }
  FILENAME == ARGV[1] {
    if ($0 ~ /^[ \t]*(#|$)/) next
    key = tolower($1) " " $2
    if (NF < 4 || !(($3 in old9x) || ($3 in new9x)) || !(($4 in oldnt) || ($4 in newnt))) {
      printf "list line %d: want \"dll function 9x nt [reason]\" with known releases: %s\n", FNR, $0
      status = 1; next
    }
    listed[key] = 1
    if (!(($3 in old9x) && ($4 in oldnt)) && NF == 4) {
      printf "%s (9x %s, nt %s): not in both Windows 98 SE and 2000, and no reason is given\n", key, $3, $4
      status = 1
    }
    if (NF > 4) reasons[key] = 1
    next
  }
  {
    count[$1]++; total++; imported[$1 " " $2] = 1
    if (!($1 " " $2 in listed)) { printf "%s %s is imported but not on the list\n", $1, $2; status = 1 }
  }
  END {
    for (key in listed) if (!(key in imported)) printf "note: %s is on the list but no longer imported\n", key
    for (dll in count) printf "%s: %d\n", dll, count[dll] | "sort"
    close("sort")
    for (key in reasons) if (key in imported) printf "with a reason: %s\n", key | "sort"
    close("sort")
    printf "%d imports from %d DLLs: %s\n", total, length(count), status ? "FAILED" : "ok"
    exit status
  }' "$list" - <<<"$imports"
