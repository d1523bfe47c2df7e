#!/usr/bin/env python3
"""Writes a folder into a zip whose bytes depend only on the names and contents of its files.

    write-zip.py <folder> <zip> <seconds since 1970>

The entries keep the folder's own name as their first component and come in byte order of
their paths. Every entry carries the one given time (the zip format cannot go before 1980),
the permissions of a program (.exe) or of a plain file, and no owner, so that a build by
another user, in another time zone or with another umask gives the same zip.
"""
import os
import sys
import time
import zipfile

ZIP_EPOCH = 315532800  # 1980-01-01 00:00:00 UTC, the earliest time a zip entry can hold


def entries(folder):
    top = os.path.basename(os.path.normpath(folder))
    found = [(top + "/", None)]
    for root, dirs, files in os.walk(folder):
        rel = os.path.relpath(root, folder).replace(os.sep, "/")
        prefix = top + "/" if rel == "." else top + "/" + rel + "/"
        found += [(prefix + d + "/", None) for d in dirs]
        found += [(prefix + f, os.path.join(root, f)) for f in files]
    return sorted(found, key=lambda entry: entry[0].encode())


def main(folder, zip_path, epoch):
    when = time.gmtime(max(int(epoch), ZIP_EPOCH))[:6]
    with zipfile.ZipFile(zip_path, "w") as archive:
        for name, path in entries(folder):
            info = zipfile.ZipInfo(name, when)
            info.create_system = 3  # Unix, so that the permissions below are read
            if path is None:
                info.external_attr = (0o40755 << 16) | 0x10  # a folder, also for MS-DOS
                archive.writestr(info, b"")
                continue
            mode = 0o100755 if name.lower().endswith(".exe") else 0o100644
            info.external_attr = mode << 16
            info.compress_type = zipfile.ZIP_DEFLATED
            with open(path, "rb") as f:
                archive.writestr(info, f.read(), compresslevel=9)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
