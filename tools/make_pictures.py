#!/usr/bin/env python3
"""Draws the 16 field pictures (20 x 20 pixel art) and the application icon into assets/.

Run from anywhere: python3 tools/make_pictures.py. The field pictures need only the standard
library; the icon's PNG sizes are rendered from its SVG with ImageMagick's `convert`.
"""
import shutil
import struct
import subprocess
import zlib
from pathlib import Path

ASSETS = Path(__file__).resolve().parent.parent / "assets"
SIZE = 20

LES_FRAME = (115, 203, 236)
LOUKA_FRAME = (244, 214, 4)
BLACK = (0, 0, 0)


def write_png(path, pixels):
    """pixels: rows of (r, g, b) tuples."""
    height, width = len(pixels), len(pixels[0])
    raw = b"".join(b"\x00" + bytes(c for p in row for c in p) for row in pixels)

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

    png = (b"\x89PNG\r\n\x1a\n"
           + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0))
           + chunk(b"IDAT", zlib.compress(raw, 9))
           + chunk(b"IEND", b""))
    path.write_bytes(png)


def canvas(colour):
    return [[colour] * SIZE for _ in range(SIZE)]


def frame(pixels, colour):
    for i in range(SIZE):
        pixels[0][i] = pixels[SIZE - 1][i] = pixels[i][0] = pixels[i][SIZE - 1] = colour


def stamp(pixels, rows, left, top, colours):
    """Paints a character map; each character names a colour of `colours`, "." is left alone."""
    for y, row in enumerate(rows):
        for x, ch in enumerate(row):
            if ch != ".":
                pixels[top + y][left + x] = colours[ch]


def noise(x, y, seed):
    """A fixed pseudo-random value 0..99 per pixel, so texture is the same on every run."""
    n = (x * 374761393 + y * 668265263 + seed * 982451653) & 0xFFFFFFFF
    n = ((n ^ (n >> 13)) * 1274126177) & 0xFFFFFFFF
    return (n ^ (n >> 16)) % 100


def grass():
    base, dark, light = (70, 156, 52), (40, 112, 32), (128, 198, 84)
    pixels = canvas(base)
    # Short upright blades: a dark stem with a light tip, scattered over the field.
    for y in range(1, SIZE - 1):
        for x in range(1, SIZE - 1):
            r = noise(x, y, 1)
            if r < 14 and y + 1 < SIZE - 1:
                pixels[y][x] = light
                pixels[y + 1][x] = dark
            elif r < 20:
                pixels[y][x] = dark
    return pixels


def swamp():
    mud, water, reed, glint = (122, 120, 46), (78, 84, 38), (156, 150, 62), (104, 118, 70)
    pixels = canvas(mud)
    # Two dark pools with a paler glint, and reed tufts around them.
    pools = [(6, 6, 4.2, 2.6), (13, 13, 4.8, 2.8), (14, 4, 2.6, 1.6), (4, 15, 2.4, 1.5)]
    for y in range(SIZE):
        for x in range(SIZE):
            if any(((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1 for cx, cy, rx, ry in pools):
                pixels[y][x] = water
    for x, y in [(5, 6), (6, 6), (12, 13), (13, 13), (14, 13)]:
        pixels[y][x] = glint
    for x, y in [(10, 3), (3, 10), (17, 9), (9, 17), (10, 9)]:
        for dy in range(3):
            pixels[y - dy][x] = reed
        pixels[y - 1][x + 1] = reed
    return pixels


def stones():
    ground, stone, shade, shine = (138, 136, 130), (200, 200, 196), (104, 102, 98), (236, 236, 232)
    pixels = canvas(ground)
    # Rounded stones, each lit from the top left and shaded at the bottom right.
    rocks = [(5.5, 5.5, 3.6, 3.0), (13.5, 5, 3.4, 2.6), (9.5, 12, 4.4, 3.2),
             (3.5, 15, 2.4, 2.2), (16, 14.5, 2.6, 2.6)]
    for cx, cy, rx, ry in rocks:
        for y in range(SIZE):
            for x in range(SIZE):
                d = ((x + 0.5 - cx) / rx) ** 2 + ((y + 0.5 - cy) / ry) ** 2
                if d <= 1:
                    lit = (x + 0.5 - cx) / rx + (y + 0.5 - cy) / ry
                    pixels[y][x] = shine if lit < -0.9 else shade if lit > 0.7 or d > 0.8 else stone
    return pixels


TERRAINS = {"N": grass, "B": swamp, "S": stones}

LETTER_A = [
    "....##....",
    "...####...",
    "...####...",
    "..##..##..",
    "..##..##..",
    ".##....##.",
    ".########.",
    ".########.",
    "##......##",
    "##......##",
    "##......##",
]

QUESTION_MARK = [
    "..####..",
    ".######.",
    "##....##",
    "##....##",
    ".....##.",
    "....##..",
    "...##...",
    "...##...",
    "........",
    "...##...",
    "...##...",
]

BANNER = [
    "PYYYYYYYYY",
    "PYYYYYYYY.",
    "PYYYYYYY..",
    "PRRRRRRR..",
    "PRRRRRRRR.",
    "PRRRRRRRRR",
    "P.........",
    "P.........",
    "P.........",
    "P.........",
    "P.........",
    "P.........",
]


def owned_field(terrain, side_frame, army):
    pixels = TERRAINS[terrain]()
    frame(pixels, side_frame)
    if army:
        stamp(pixels, LETTER_A, 5, 5, {"#": BLACK})
    return pixels


def fog():
    pixels = canvas(BLACK)
    stamp(pixels, QUESTION_MARK, 6, 5, {"#": (0, 170, 170)})
    return pixels


def free_land():
    pixels = canvas((68, 66, 68))
    frame(pixels, (116, 114, 116))
    return pixels


def headquarters():
    pixels = canvas((232, 243, 249))
    mound, mound_dark, mound_light = (138, 120, 100), (104, 88, 72), (168, 152, 132)
    for y in range(12, SIZE):
        for x in range(SIZE):
            d = ((x + 0.5 - 10) / 8.5) ** 2 + ((y + 0.5 - 19.5) / 6.5) ** 2
            if d <= 1:
                side = (x + 0.5 - 10) / 8.5
                pixels[y][x] = mound_light if side < -0.35 and d < 0.8 else mound_dark if side > 0.4 else mound
    stamp(pixels, BANNER, 6, 2, {"P": (72, 56, 40), "Y": (250, 208, 16), "R": (212, 32, 28)})
    pixels[1][6] = (72, 56, 40)  # the knob on top of the pole
    return pixels


def unconquerable():
    grey = (150, 150, 150)
    pixels = canvas(BLACK)
    frame(pixels, grey)
    for i in range(SIZE):
        pixels[9][i] = pixels[10][i] = pixels[i][9] = pixels[i][10] = grey
    return pixels


def field_pictures():
    """The pictures by their 1-based index in the image list."""
    pictures = {1: fog(), 2: free_land(), 15: headquarters(), 16: unconquerable()}
    for side_offset, side_frame in ((0, LES_FRAME), (6, LOUKA_FRAME)):
        for terrain_offset, terrain in ((0, "N"), (2, "B"), (4, "S")):
            index = 3 + side_offset + terrain_offset
            pictures[index] = owned_field(terrain, side_frame, army=False)
            pictures[index + 1] = owned_field(terrain, side_frame, army=True)
    return pictures


# The icon: a small map of four fields, one per side colour, with a replay arrow across it.
ICON_SVG = """<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="256" height="256" viewBox="0 0 256 256">
  <rect x="8" y="8" width="240" height="240" rx="44" ry="44" fill="#1f2d3a"/>
  <rect x="36" y="36" width="88" height="88" fill="#469c34" stroke="#73cbec" stroke-width="8"/>
  <rect x="132" y="36" width="88" height="88" fill="#7a782e" stroke="#f4d604" stroke-width="8"/>
  <rect x="36" y="132" width="88" height="88" fill="#c8c8c4" stroke="#f4d604" stroke-width="8"/>
  <rect x="132" y="132" width="88" height="88" fill="#469c34" stroke="#73cbec" stroke-width="8"/>
  <circle cx="128" cy="128" r="58" fill="#ffffff" stroke="#1f2d3a" stroke-width="8"/>
  <polygon points="108,96 108,160 164,128" fill="#d4201c"/>
</svg>
"""
ICON_SIZES = (16, 32, 48, 64, 128, 256)


def write_icon():
    folder = ASSETS / "icon"
    folder.mkdir(parents=True, exist_ok=True)
    svg = folder / "trelvin.svg"
    svg.write_text(ICON_SVG, encoding="utf-8")
    convert = shutil.which("convert")
    if convert is None:
        print("convert not found: icon PNGs not rendered")
        return
    for size in ICON_SIZES:
        subprocess.run([convert, "-background", "none", "-density", str(72 * size / 256 * 4), str(svg),
                        "-resize", f"{size}x{size}", "-strip", str(folder / f"trelvin-{size}.png")],
                       check=True)


def main():
    folder = ASSETS / "fields"
    folder.mkdir(parents=True, exist_ok=True)
    for index, pixels in field_pictures().items():
        write_png(folder / f"{index:02d}.png", pixels)
    write_icon()


if __name__ == "__main__":
    main()
