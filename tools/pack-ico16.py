#!/usr/bin/env python3
"""Writes a 16-colour icon of one 32 by 32 image, for tools/make-pictures.sh.

    pack-ico16.py RGB-FILE ALPHA-FILE OUT.ico COLOUR0 ... COLOUR15

RGB-FILE holds 32 x 32 pixels of 3 bytes (red, green, blue), ALPHA-FILE 32 x 32 bytes of
opacity, both top row first. Every opaque pixel (opacity 128 or more) must be one of the 16
colours, given as six hex digits; a transparent pixel is written as colour 0 with its mask
bit set.

The file: the ICO header and directory (22 bytes), the BITMAPINFOHEADER (40), the palette of
16 entries (64), the colour pixels at 4 bits each (512) and the transparency mask at 1 bit each
(128), 766 bytes in all. Both bitmaps run from the bottom row up.
"""
import struct
import sys
from pathlib import Path

SIZE = 32
COLOURS = 16
TOTAL = 766


def pack(rgb, alpha, palette):
    if len(rgb) != SIZE * SIZE * 3 or len(alpha) != SIZE * SIZE:
        raise SystemExit(f"pack-ico16: expected {SIZE}x{SIZE} pixels")
    index_of = {colour: i for i, colour in reversed(list(enumerate(palette)))}
    rows = []
    masks = []
    for y in range(SIZE):
        row = []
        bits = 0
        for x in range(SIZE):
            p = y * SIZE + x
            transparent = alpha[p] < 128
            bits = (bits << 1) | (1 if transparent else 0)
            if transparent:
                row.append(0)
                continue
            colour = tuple(rgb[3 * p:3 * p + 3])
            if colour not in index_of:
                raise SystemExit(f"pack-ico16: pixel {x},{y} has colour {bytes(colour).hex()}, "
                                 "which is not in the palette")
            row.append(index_of[colour])
        rows.append(row)
        masks.append(bits.to_bytes(SIZE // 8, "big"))

    xor = bytearray()
    mask = bytearray()
    for y in reversed(range(SIZE)):
        row = rows[y]
        xor.extend((row[x] << 4) | row[x + 1] for x in range(0, SIZE, 2))
        mask.extend(masks[y])  # 4 bytes a row, already a multiple of 4

    image_size = 40 + COLOURS * 4 + len(xor) + len(mask)
    header = struct.pack("<HHH", 0, 1, 1)
    entry = struct.pack("<BBBBHHII", SIZE, SIZE, COLOURS, 0, 1, 4, image_size, 6 + 16)
    info = struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE * 2, 1, 4, 0, len(xor) + len(mask),
                       0, 0, 0, 0)
    table = b"".join(struct.pack("<BBBB", b, g, r, 0) for (r, g, b) in palette)
    data = header + entry + info + table + bytes(xor) + bytes(mask)
    assert len(data) == TOTAL, len(data)
    return data


def main():
    if len(sys.argv) != 4 + COLOURS:
        raise SystemExit(__doc__)
    rgb = Path(sys.argv[1]).read_bytes()
    alpha = Path(sys.argv[2]).read_bytes()
    palette = [tuple(bytes.fromhex(c)) for c in sys.argv[4:]]
    if any(len(c) != 3 for c in palette):
        raise SystemExit("pack-ico16: colours are six hex digits each")
    Path(sys.argv[3]).write_bytes(pack(rgb, alpha, palette))


if __name__ == "__main__":
    main()
