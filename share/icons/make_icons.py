#!/usr/bin/env python3
"""Draws the two icons (16 and 32 pixels) and the cursor beside this script.
Usage: share/icons/make_icons.py   (only after a change of the drawings: the build embeds the icon files)"""
import math, pathlib, struct

# Colours are 0xAARRGGBB.
CLEAR, WHITE, BLACK = 0, 0xFFFFFFFF, 0xFF000000
BLUE, GREEN, AMBER = 0xFF1F4E79, 0xFF1E6B52, 0xFFFFB000
TREND = [0.70, 0.55, 0.62, 0.38, 0.46, 0.22]  # heights from the top, at equal steps
FINGERTIP = (5, 0)  # where the cursor points
# A hand with its finger up: "#" outline, "." inside.
HAND = """\
     ##
    #..#
    #..#
    #..#
    #..###
    #..#..###
    #..#..#..##
    #..#..#..#.#
 ## #..........#
#..##..........#
#...#..........#
 #.............#
  #............#
  #...........#
   #..........#
    #........#
     #.......#
     #.......#
     #########""".splitlines()


def empty_picture(size):
    return [[CLEAR] * size for _ in range(size)]


def chart_icon(size, tile, trend):
    """A tile with two axes and a trend that climbs over them."""
    picture = empty_picture(size)
    radius = size * 0.16
    thickness = max(1, size // 16)
    for y in range(size):
        for x in range(size):
            outside_x = max(radius - x - 0.5, x + 0.5 - (size - radius), 0.0)
            outside_y = max(radius - y - 0.5, y + 0.5 - (size - radius), 0.0)
            if math.hypot(outside_x, outside_y) <= radius:
                picture[y][x] = tile
    left, right, bottom = size * 3 // 16, size - size // 8, size - size * 3 // 16 - 1
    for i in range(thickness):
        for y in range(size // 8, bottom + 1):
            picture[y][left + i] = WHITE
        for x in range(left, right):
            picture[bottom - i][x] = WHITE
    for x in range(left + thickness + 1, right):
        place = (x - left) / (right - left) * (len(TREND) - 1)
        step = int(place)
        height = TREND[step] + (place - step) * (TREND[step + 1] - TREND[step])
        for i in range(thickness + 1):
            picture[int(height * size) + i][x] = trend
    return picture


def hand_cursor():
    picture = empty_picture(32)
    for y, row in enumerate(HAND):
        for x, mark in enumerate(row):
            picture[y][x] = {"#": BLACK, ".": WHITE, " ": CLEAR}[mark]
    return picture


def icon_image(picture):
    """One picture of an icon file: a bitmap of double height, colours above, mask below, both from the bottom up."""
    size = len(picture)
    mask_row = (size + 31) // 32 * 4
    header = struct.pack("<IIIHHII16x", 40, size, 2 * size, 1, 32, 0, size * size * 4 + mask_row * size)
    colours = b"".join(struct.pack(f"<{size}I", *row) for row in reversed(picture))
    mask = b""
    for row in reversed(picture):
        bits = "".join("1" if pixel == CLEAR else "0" for pixel in row).ljust(mask_row * 8, "0")
        mask += int(bits, 2).to_bytes(mask_row, "big")
    return header + colours + mask


def icon_file(kind, first, second, pictures):
    """kind: 1 icon (first: planes, second: bits a pixel) or 2 cursor (first, second: the point it shows)."""
    images = [icon_image(picture) for picture in pictures]
    entries = b""
    place = 6 + 16 * len(images)
    for picture, image in zip(pictures, images):
        entries += struct.pack("<BBHHHII", len(picture), len(picture), 0, first, second, len(image), place)
        place += len(image)
    return struct.pack("<HHH", 0, kind, len(images)) + entries + b"".join(images)


def chart_icon_file(tile):
    return icon_file(1, 1, 32, [chart_icon(16, tile, AMBER), chart_icon(32, tile, AMBER)])


FILES = {
    "Kestrel.ico": chart_icon_file(BLUE),
    "Orlin.ico": chart_icon_file(GREEN),
    "Select.cur": icon_file(2, *FINGERTIP, [hand_cursor()]),
}
for name, contents in FILES.items():
    (pathlib.Path(__file__).parent / name).write_bytes(contents)
