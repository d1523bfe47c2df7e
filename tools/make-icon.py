#!/usr/bin/env python3
"""Draws the program's icon and writes it as data/app.ico.

One image of 32 by 32 pixels in 256 colours: the ICO header and directory (22 bytes), the
BITMAPINFOHEADER (40), the palette (1024), the colour pixels (1024) and the transparency
mask (128), 2238 bytes in all. The picture is a speed dial: a dark disc with a scale that
runs from green to red and a needle near the top of the scale.
"""
import math
import struct
import sys
from pathlib import Path

SIZE = 32
OUTPUT = Path(__file__).resolve().parent.parent / "data" / "app.ico"


def palette():
    """256 colours: 0 unused (transparent), a grey ramp, then a green-yellow-red ramp."""
    colours = [(0, 0, 0)]
    for i in range(64):  # 1..64: greys from near black to white
        v = round(20 + i * (235 / 63))
        colours.append((v, v, v))
    for i in range(64):  # 65..128: the scale, green through yellow to red
        t = i / 63
        if t < 0.5:
            colours.append((round(510 * t), 200, 40))
        else:
            colours.append((255, round(200 - 400 * (t - 0.5)), 40))
    for i in range(64):  # 129..192: a blue ramp for the disc's rim
        t = i / 63
        colours.append((round(20 + 40 * t), round(40 + 80 * t), round(90 + 140 * t)))
    while len(colours) < 256:
        colours.append((0, 0, 0))
    return colours


def grey(v):
    return 1 + max(0, min(63, round(v * 63)))


def scale(t):
    return 65 + max(0, min(63, round(t * 63)))


def blue(t):
    return 129 + max(0, min(63, round(t * 63)))


def draw():
    """Rows of palette indices, top row first, and the set of transparent pixels."""
    pixels = [[0] * SIZE for _ in range(SIZE)]
    transparent = set()
    cx = cy = (SIZE - 1) / 2
    start, sweep = math.radians(225), math.radians(270)  # the scale, clockwise from lower left
    needle = start - sweep * 0.8
    for y in range(SIZE):
        for x in range(SIZE):
            dx, dy = x - cx, cy - y
            r = math.hypot(dx, dy)
            if r > 15.6:
                transparent.add((x, y))
                continue
            if r > 13.8:
                pixels[y][x] = blue(0.35 + 0.65 * (dy + 16) / 32)
                continue
            pixels[y][x] = grey(0.08 + 0.06 * (dy + 16) / 32)
            angle = math.atan2(dy, dx)
            along = (start - angle) % (2 * math.pi)
            if 9.5 <= r <= 12.5 and along <= sweep:
                pixels[y][x] = scale(along / sweep)
            # the needle: close to the line from the centre at its angle
            nx, ny = math.cos(needle), math.sin(needle)
            proj = dx * nx + dy * ny
            dist = abs(dx * ny - dy * nx)
            if -1.5 <= proj <= 11.5 and dist <= 1.0:
                pixels[y][x] = grey(0.97)
            if r <= 2.4:
                pixels[y][x] = grey(0.75)
    return pixels, transparent


def icon_bytes():
    colours = palette()
    pixels, transparent = draw()
    header = struct.pack("<HHH", 0, 1, 1)
    xor_size = SIZE * SIZE
    and_stride = 4  # 32 bits, already a multiple of 4 bytes
    image_size = 40 + 256 * 4 + xor_size + and_stride * SIZE
    entry = struct.pack("<BBBBHHII", SIZE, SIZE, 0, 0, 1, 8, image_size, 6 + 16)
    info = struct.pack("<IiiHHIIiiII", 40, SIZE, SIZE * 2, 1, 8, 0, xor_size + and_stride * SIZE,
                       0, 0, 256, 0)
    table = b"".join(struct.pack("<BBBB", b, g, r, 0) for (r, g, b) in colours)
    xor = bytearray()
    mask = bytearray()
    for y in reversed(range(SIZE)):  # bitmaps run from the bottom row up
        xor.extend(pixels[y])
        bits = 0
        for x in range(SIZE):
            bits = (bits << 1) | (1 if (x, y) in transparent else 0)
        mask.extend(bits.to_bytes(4, "big"))
    data = header + entry + info + table + bytes(xor) + bytes(mask)
    assert len(data) == 2238, len(data)
    return data


def main():
    out = Path(sys.argv[1]) if len(sys.argv) > 1 else OUTPUT
    out.parent.mkdir(parents=True, exist_ok=True)
    out.write_bytes(icon_bytes())
    print(f"{out}: {out.stat().st_size} bytes")


if __name__ == "__main__":
    main()
