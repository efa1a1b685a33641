#!/usr/bin/env python3
"""Draws the product's pictures from the drawings in resources/.

    tools/pictures.py FOLDER   writes the icons and the bitmaps of the resource library into FOLDER
    tools/pictures.py --self-test

Needs rsvg-convert (librsvg).
"""

import struct
import subprocess
import sys
import tempfile
import zlib
from pathlib import Path

RESOURCES = Path(__file__).resolve().parent.parent / "resources"

# Buttons of the ribbon have pictures of 16 or 32 pixels at 100 %, and of up to twice that.
BUTTON_SIZES = 16, 20, 24, 32, 40, 48, 64
# File, drawing and sizes.
ICON = "Veltro.ico", "veltro.svg", (*BUTTON_SIZES, 128, 256)
ICONS = [ICON] + [
    (f"{name}.ico", f"{name}.svg", BUTTON_SIZES)
    for name in ("accountList", "settings", "updates", "question", "support", "checkNow")
]
# Windows before Vista reads no PNG in an icon, and wants none of these sizes; as bitmaps they would be huge.
PNG_FROM = 128

# File, drawing, and what stands where the drawing is transparent.
BITMAPS = [
    ("welcome.bmp", "welcome.svg", (255, 255, 255)),
    ("logo.bmp", "logo.svg", (255, 255, 255)),
    ("about.bmp", "about.svg", (255, 255, 255)),
    ("help.bmp", "help.svg", (192, 192, 192)),
]
# File, drawing: black where the drawing is opaque.
MASK = "helpMask.bmp", "help.svg"


def png(drawing, size=None):
    """The drawing as the bytes of a PNG, in its own size or in a square."""
    square = ["--width", str(size), "--height", str(size)] if size else []
    return subprocess.run(["rsvg-convert", *square, drawing], check=True, stdout=subprocess.PIPE).stdout


def unfiltered(kind, line, above, step):
    """A line of a PNG without its filter: each byte stands there less what its neighbours foretell."""
    result = bytearray(line)
    for i, value in enumerate(line):
        a, b, c = (result[i - step], above[i], above[i - step]) if i >= step else (0, above[i], 0)
        nearest = min((a, b, c), key=lambda neighbour: abs(a + b - c - neighbour))
        result[i] = (value + (0, a, b, (a + b) // 2, nearest)[kind]) & 255
    return result


def pixels(data):
    """The lines of a PNG as rsvg-convert writes them, each a list of (R, G, B, A)."""
    width, _, depth, colours, _, _, interlaced = struct.unpack(">IIBBBBB", data[16:29])
    channels = {2: 3, 6: 4}[colours]
    if (depth, interlaced) != (8, 0):
        raise ValueError("not a plain picture")
    packed, at = b"", 8
    while at < len(data):
        (length,) = struct.unpack(">I", data[at : at + 4])
        if data[at + 4 : at + 8] == b"IDAT":
            packed += data[at + 8 : at + 8 + length]
        at += length + 12
    raw, lines, line = zlib.decompress(packed), [], bytes(width * channels)
    for start in range(0, len(raw), len(line) + 1):
        line = unfiltered(raw[start], raw[start + 1 : start + 1 + len(line)], line, channels)
        lines.append([(*line[i : i + 3], *line[i + 3 : i + channels], 255)[:4] for i in range(0, len(line), channels)])
    return lines


def padded(line):
    return line + bytes(-len(line) % 4)


def header(lines, height, bits, size):
    return struct.pack("<IiiHHIIiiII", 40, len(lines[0]), height, 1, bits, 0, size, 3780, 3780, 0, 0)


def file_of(head, body):
    at = 14 + len(head)
    return struct.pack("<2sIHHI", b"BM", at + len(body), 0, 0, at) + head + body


def bitmap(lines, background):
    """A bitmap file with 24 bits a pixel, the drawing on a background of one colour."""

    def shown(pixel):
        return bytes((pixel[c] * pixel[3] + background[c] * (255 - pixel[3]) + 127) // 255 for c in (2, 1, 0))

    body = b"".join(padded(b"".join(map(shown, line))) for line in reversed(lines))
    return file_of(header(lines, len(lines), 24, len(body)), body)


def mask(lines):
    """One bit a pixel: 1 where the drawing is transparent."""
    result = b""
    for line in reversed(lines):
        bits = "".join("0" if alpha >= 128 else "1" for *_, alpha in line)
        bits += "0" * (-len(bits) % 32)
        result += int(bits, 2).to_bytes(len(bits) // 8, "big")
    return result


def mask_bitmap(lines):
    body = mask(lines)
    black_and_white = b"\0\0\0\0\xff\xff\xff\0"
    return file_of(header(lines, len(lines), 1, len(body)) + black_and_white, body)


def icon_bitmap(lines):
    """One picture of an icon: its colours and, for who knows no alpha, its mask."""
    colours = b"".join(bytes((b, g, r, a)) for line in reversed(lines) for r, g, b, a in line)
    body = colours + mask(lines)
    return header(lines, 2 * len(lines), 32, len(body)) + body


def icon(pictures):
    """An icon file of PNGs, by their sizes."""
    entries = [(size, data if size >= PNG_FROM else icon_bitmap(pixels(data))) for size, data in pictures.items()]
    head, at = struct.pack("<HHH", 0, 1, len(entries)), 6 + 16 * len(entries)
    for size, data in entries:
        head += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(data), at)
        at += len(data)
    return head + b"".join(data for _, data in entries)


def draw(folder):
    folder.mkdir(parents=True, exist_ok=True)
    for name, drawing, sizes in ICONS:
        (folder / name).write_bytes(icon({size: png(RESOURCES / drawing, size) for size in sizes}))
    for name, drawing, background in BITMAPS:
        (folder / name).write_bytes(bitmap(pixels(png(RESOURCES / drawing)), background))
    name, drawing = MASK
    (folder / name).write_bytes(mask_bitmap(pixels(png(RESOURCES / drawing))))


def self_test():
    flag = '<svg xmlns="http://www.w3.org/2000/svg" width="3" height="2"><path fill="#102030" d="M0 0h2v2H0z"/></svg>'
    with tempfile.TemporaryDirectory() as temporary:
        folder = Path(temporary)
        (folder / "flag.svg").write_text(flag, encoding="ascii")
        drawn = pixels(png(folder / "flag.svg"))
        draw(folder)
        heads = {name: (folder / name).read_bytes() for name, _, _ in ICONS}
    line = bytes((0x30, 0x20, 0x10) * 2 + (255,) * 3 + (0,) * 3)
    good = {
        "pixels": drawn == [[(0x10, 0x20, 0x30, 255)] * 2 + [(0, 0, 0, 0)]] * 2,
        "filters": [unfiltered(kind, bytes((1, 5)), bytes((10, 14)), 1).hex() for kind in range(5)]
        == ["0105", "0106", "0b13", "060f", "0b13"],
        "bitmap": bitmap(drawn, (255, 255, 255))[54:] == line * 2,
        "mask": mask_bitmap(drawn)[62:] == b"\x20\0\0\0" * 2,
        "picture of an icon": icon_bitmap(drawn)[40:52] == bytes((0x30, 0x20, 0x10, 255) * 2 + (0,) * 4),
        "icons": all(
            [heads[name][6 + 16 * i] or 256 for i in range(heads[name][4])] == list(sizes) for name, _, sizes in ICONS
        ),
    }
    faults = [name for name, passed in good.items() if not passed]
    print("pictures: " + ("wrong: " + ", ".join(faults) if faults else "self-test passed"))
    return 1 if faults else 0


if __name__ == "__main__":
    if sys.argv[1:] == ["--self-test"]:
        sys.exit(self_test())
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    draw(Path(sys.argv[1]))
