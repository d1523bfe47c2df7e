#!/usr/bin/env bash
# The release is the same, byte for byte, for anyone who builds the same commit: builds it a
# second time from a copy of the tree in another folder, in another build folder, time zone and
# umask, and compares the exe, the zip and its checksum with the first build's. Where they
# differ it names the first byte, and for the zip the first entry, that differs.
#
#   check-reproducible.sh <source folder> <first build folder> <package name>
set -euo pipefail
source=$1 first=$2 name=$3 work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/elsewhere/kelvarnite"
tar -C "$source" --exclude=./build --exclude=./out --exclude=node_modules -cf - . | tar -C "$work/elsewhere/kelvarnite" -xf -
if ! (cd "$work/elsewhere/kelvarnite" && umask 077 && unset SOURCE_DATE_EPOCH && export TZ=Pacific/Kiritimati &&
  cmake --preset mingw-i686 -B "$work/second" -DKELVARNITE_TESTS=OFF && cmake --build "$work/second" --target package) >"$work/log" 2>&1; then
  cat "$work/log"; echo "the second build failed" >&2; exit 1
fi
# A line per zip entry: its name, time, permissions, the CRC of its contents and its extra fields.
entries() {
  python3 -c 'import sys, zipfile
for i in zipfile.ZipFile(sys.argv[1]).infolist(): print(i.filename, i.date_time, oct(i.external_attr >> 16), "%08x" % i.CRC, i.extra.hex())' "$1"
}
status=0
for file in KelvarniteUT2k3Benchmark.exe "$name.zip" "$name.zip.sha256"; do
  cmp "$first/$file" "$work/second/$file" && continue
  status=1
  echo "$file differs between the two builds" >&2
  [[ $file != *.zip ]] || diff <(entries "$first/$file") <(entries "$work/second/$file") | head -n 4 >&2 || true
done
[[ $status != 0 ]] || echo "the second build gave the same bytes: $(cut -d' ' -f1 "$first/$name.zip.sha256")"
exit "$status"
