#!/usr/bin/env python3
"""Renders marlune.svg into marlune.ico: nine images of 32 bits. Needs rsvg-convert and ImageMagick.

Run it after a change of the drawing and commit both; the build only reads the .ico.
"""
import pathlib
import struct
import subprocess

SIZES = (16, 20, 24, 32, 40, 48, 64, 128, 256)
HERE = pathlib.Path(__file__).parent


def png(size):
    return subprocess.check_output(
        ["rsvg-convert", "-w", str(size), "-h", str(size), HERE / "marlune.svg"])


def bitmap(size):
    """A DIB as icons hold it: bottom-up BGRA and an AND mask, which 32 bits leave unused."""
    rgba = subprocess.run(["convert-im6.q16", "png:-", "-depth", "8", "rgba:-"],
                          input=png(size), stdout=subprocess.PIPE, check=True).stdout
    rows = [rgba[y * size * 4:(y + 1) * size * 4] for y in range(size)]
    pixels = b"".join(
        bytes((row[x + 2], row[x + 1], row[x], row[x + 3]))
        for row in reversed(rows) for x in range(0, size * 4, 4))
    mask = bytes(((size + 31) // 32) * 4 * size)
    return struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, 0, 0, 0, 0, 0) + pixels + mask


images = [png(size) if size == 256 else bitmap(size) for size in SIZES]
header = struct.pack("<HHH", 0, 1, len(SIZES))
offset = len(header) + 16 * len(SIZES)
for size, image in zip(SIZES, images):
    header += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset)
    offset += len(image)
(HERE / "marlune.ico").write_bytes(header + b"".join(images))
