#!/usr/bin/env python3
"""Writes the two hand-coded baseline JPEG files of the decoder's test into this folder.

odd-width-scans.jpg: 17x16, 4:2:0, each component in a scan of its own. Y is 128 everywhere,
Cr 128, and Cb 128 in its first block and 190 in its second, which alone covers column 16.
dc-overflow.jpg: 136x8 grey, each block's DC difference +2047, so that the running DC value
leaves the range of any 8-bit picture at the seventeenth block.
wide.jpg: 4097x8 grey and flat, a pixel wider than the decoder takes.
"""
import os
import struct


def segment(marker, body):
    return bytes([0xFF, marker]) + struct.pack('>H', len(body) + 2) + body


def entropy(bits):
    bits += '1' * (-len(bits) % 8)
    data = bytearray()
    for i in range(0, len(bits), 8):
        data.append(int(bits[i:i + 8], 2))
        if data[-1] == 0xFF:
            data.append(0)
    return bytes(data)


def picture(quant, width, height, components, dc_sizes, scans):
    counts = [1] * len(dc_sizes) + [0] * (16 - len(dc_sizes))  # one DC code of each length
    only_eob = [1] + [0] * 15
    out = b'\xff\xd8' + segment(0xDB, bytes([0] + [quant] * 64))
    out += segment(0xC0, bytes([8]) + struct.pack('>HH', height, width) + bytes(components))
    out += segment(0xC4, bytes([0x00] + counts + dc_sizes))
    out += segment(0xC4, bytes([0x10] + only_eob + [0]))
    for component, bits in scans:
        out += segment(0xDA, bytes([1, component, 0x00, 0, 63, 0])) + entropy(bits)
    return out + b'\xff\xd9'


here = os.path.dirname(os.path.abspath(__file__))
# DC codes: "0" a difference of size 0, "10" of size 5 (11111: +31); AC code "0": end of block.
odd = picture(16, 17, 16, [3, 1, 0x22, 0, 2, 0x11, 0, 3, 0x11, 0], [0, 5],
              [(1, '00' * 6), (2, '00' + '10' + '11111' + '0'), (3, '00' * 2)])
# DC code "0": a difference of size 11; eleven ones are +2047.
over = picture(255, 136, 8, [1, 1, 0x11, 0], [11], [(1, ('0' + '1' * 11 + '0') * 17)])
# 513 blocks, each "0" (DC difference 0) and "0" (end of block).
wide = picture(16, 4097, 8, [1, 1, 0x11, 0], [0], [(1, '00' * 513)])
for name, data in (('odd-width-scans.jpg', odd), ('dc-overflow.jpg', over), ('wide.jpg', wide)):
    with open(os.path.join(here, name), 'wb') as f:
        f.write(data)
