#!/usr/bin/env python3
"""Draws the program's icon and writes it as data/app.ico; also draws the same dial for
tools/make-pictures.sh.

    tools/make-icon.py [icon]                   the icon, by default data/app.ico
    tools/make-icon.py --mvg PART N [--ticks]   one part of the dial on a canvas N pixels wide,
                                                as ImageMagick's draw primitives (MVG)

The icon is one image of 32 by 32 pixels in 256 colours: the ICO header and directory (22
bytes), the BITMAPINFOHEADER (40), the palette (1024), the colour pixels (1024) and the
transparency mask (128), 2238 bytes in all. The picture is a speed dial: a dark disc in a blue
rim, with a scale that runs from green to red and a needle near the top of the scale.

The parts for make-pictures.sh are "rim" and "disc", the circles it fills with their gradients,
and "face", the scale, the needle and the hub drawn over them. With --ticks the face is that of
the larger dials of the logo and the banner: short marks inside the scale, a tapering needle
and a cap on the hub; without, it is the icon's, for the small icon of the About window.
"""
import argparse
import math
import struct
from pathlib import Path

SIZE = 32
OUTPUT = Path(__file__).resolve().parent.parent / "data" / "app.ico"

# The dial, in units of a dial 32 wide, from its centre. Every picture of it is drawn from
# these: the icon pixel by pixel, the others by ImageMagick from the primitives below.
RIM = 15.6                         # the outer edge of the blue rim
DISC = 13.8                        # the edge of the dark disc inside it
SCALE = (9.5, 12.5)                # the coloured scale, inner and outer radius
START = math.radians(225)          # the scale sweeps clockwise from the lower left ...
SWEEP = math.radians(270)          # ... through three quarters of the turn
NEEDLE = START - SWEEP * 0.8       # the needle, at 80 % of the scale ...
NEEDLE_SPAN = (-1.5, 11.5)         # ... from behind the hub to the inner edge of the scale
NEEDLE_HALF_WIDTH = 1.0
HUB = 2.4
# Only on the larger dials, where there is room for them:
TICKS = 11                         # marks from the start of the scale to its end ...
TICK_SPAN = (7.2, 8.7)             # ... between the scale and the centre
TICK_HALF_WIDTH = 0.28
RED_TICKS = 3                      # the last marks, in the red of the scale, reddish
TAPER = (1.1, 0.45)                # the needle's half width at its foot and at its tip
CAP = 0.9                          # a darker cap on the hub
WEDGES = 180                       # the scale's steps of colour


def scale_colour(t):
    """The colour of the scale at t, 0 at its start to 1 at its end: green, yellow, red."""
    if t < 0.5:
        return 510 * t, 200, 40
    return 255, 200 - 400 * (t - 0.5), 40


def palette():
    """256 colours: 0 unused (transparent), a grey ramp, then a green-yellow-red ramp."""
    colours = [(0, 0, 0)]
    for i in range(64):  # 1..64: greys from near black to white
        v = round(20 + i * (235 / 63))
        colours.append((v, v, v))
    for i in range(64):  # 65..128: the scale, green through yellow to red
        colours.append(tuple(round(v) for v in scale_colour(i / 63)))
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
    for y in range(SIZE):
        for x in range(SIZE):
            dx, dy = x - cx, cy - y
            r = math.hypot(dx, dy)
            if r > RIM:
                transparent.add((x, y))
                continue
            if r > DISC:
                pixels[y][x] = blue(0.35 + 0.65 * (dy + 16) / 32)
                continue
            pixels[y][x] = grey(0.08 + 0.06 * (dy + 16) / 32)
            angle = math.atan2(dy, dx)
            along = (START - angle) % (2 * math.pi)
            if SCALE[0] <= r <= SCALE[1] and along <= SWEEP:
                pixels[y][x] = scale(along / SWEEP)
            # the needle: close to the line from the centre at its angle
            nx, ny = math.cos(NEEDLE), math.sin(NEEDLE)
            proj = dx * nx + dy * ny
            dist = abs(dx * ny - dy * nx)
            if NEEDLE_SPAN[0] <= proj <= NEEDLE_SPAN[1] and dist <= NEEDLE_HALF_WIDTH:
                pixels[y][x] = grey(0.97)
            if r <= HUB:
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


def mvg(part, n, ticks):
    """The lines of one part of the dial on a canvas n pixels wide, y downward."""
    k = n / SIZE
    c = (n - 1) / 2

    def circle(radius):
        return f"circle {c:.2f},{c:.2f} {c + radius * k:.2f},{c:.2f}"

    def polygon(colour, points):
        return f"fill {colour} polygon " + " ".join(f"{x:.2f},{y:.2f}" for x, y in points)

    def bar(colour, angle, span, half_widths):
        """A band along the radius at angle, its ends at span, its half widths at each end."""
        ca, sa = math.cos(angle), math.sin(angle)
        (r1, r2), (w1, w2) = (r * k for r in span), (w * k for w in half_widths)
        ends = [(r1, w1), (r2, w2), (r2, -w2), (r1, -w1)]
        return polygon(colour, [(c + r * ca - w * sa, c - r * sa - w * ca) for r, w in ends])

    if part == "rim":
        return [circle(RIM)]
    if part == "disc":
        return [circle(DISC)]
    lines = []
    # the scale: narrow wedges, each in the colour of its place, a hair wider than their step
    # so that no seam shows between them
    inner, outer = (r * k for r in SCALE)
    for i in range(WEDGES):
        r, g, b = (int(v + 0.5) for v in scale_colour((i + 0.5) / WEDGES))
        a0 = START if i == 0 else START - SWEEP * i / WEDGES + 0.004
        a1 = START - SWEEP if i == WEDGES - 1 else START - SWEEP * (i + 1) / WEDGES - 0.004
        corners = ((outer, a0), (outer, a1), (inner, a1), (inner, a0))
        points = [(c + radius * math.cos(a), c - radius * math.sin(a)) for radius, a in corners]
        lines.append(polygon(f"rgb({r},{g},{b})", points))
    if ticks:
        for i in range(TICKS):
            colour = "rgb(235,120,100)" if i >= TICKS - RED_TICKS else "rgb(150,156,166)"
            angle = START - SWEEP * i / (TICKS - 1)
            lines.append(bar(colour, angle, TICK_SPAN, (TICK_HALF_WIDTH, TICK_HALF_WIDTH)))
    half_widths = TAPER if ticks else (NEEDLE_HALF_WIDTH, NEEDLE_HALF_WIDTH)
    lines.append(bar("rgb(247,247,247)", NEEDLE, NEEDLE_SPAN, half_widths))
    lines.append("fill rgb(196,196,196) " + circle(HUB))
    if ticks:
        lines.append("fill rgb(120,124,130) " + circle(CAP))
    return lines


def main():
    parser = argparse.ArgumentParser(description="Draws the program's icon, or its dial as MVG.")
    parser.add_argument("icon", nargs="?", type=Path, default=OUTPUT)
    parser.add_argument("--mvg", nargs=2, metavar=("PART", "N"),
                        help="print PART (rim, disc or face) of a dial N pixels wide as MVG")
    parser.add_argument("--ticks", action="store_true", help="the face of the larger dials")
    args = parser.parse_args()
    if args.mvg:
        part, n = args.mvg
        if part not in ("rim", "disc", "face") or not n.isdigit():
            parser.error("--mvg takes rim, disc or face and a width in pixels")
        print("\n".join(mvg(part, int(n), args.ticks)))
        return
    out = args.icon
    out.parent.mkdir(parents=True, exist_ok=True)
    out.write_bytes(icon_bytes())
    print(f"{out}: {out.stat().st_size} bytes")


if __name__ == "__main__":
    main()
