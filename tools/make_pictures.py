#!/usr/bin/env python3
"""Draw the observer's pictures into data/pictures/ with ImageMagick's convert.

    worldmap.png   the observer window's map: plate carree, 640 x 320, 0.5625
                   degrees a pixel, 180 W at the left edge, Greenwich at x = 320.
    timezones.png  the time-zone window's picture: a world map above a bar of
                   zone cells (y 310 to 329) whose edges are those the window
                   tests the click against, with faint lines up the map.

Both are scaled from NASA Visible Earth's earth.jpg as Debian's xplanet-images
package ships it (apt-get install xplanet-images imagemagick fonts-dejavu-core).

    python3 tools/make_pictures.py                 # writes into data/pictures/
    python3 tools/make_pictures.py OUTDIR [EARTH]  # another folder or source picture

The output is the same on every run: no dates or times are written into the PNGs.
"""

import os
import subprocess
import sys

EARTH = "/usr/share/xplanet/images/earth.jpg"  # 2048 x 1024, 180 W at the left edge

WIDTH = 640
MAP_HEIGHT = 320

# The time-zone picture. Its bar gives each zone about 25 pixels, so the map above it is
# drawn at 600 pixels for 360 degrees with Greenwich at x = 280, the middle of the zone 0
# cell: every cell then stands under the 15 degrees of its zone. The last 40 pixels on the
# right repeat the map's left edge, across the date line.
TZ_MAP_WIDTH = 600
TZ_MAP_HEIGHT = 300
TZ_GREENWICH_X = 280
BAR_TOP = 310
BAR_HEIGHT = 20
TZ_HEIGHT = BAR_TOP + BAR_HEIGHT

# The bar's cells, west to east: (first x, first x past the cell, zone). The -11 cell is
# split across both ends.
CELLS = [
    (0, 17, -11), (17, 43, -10), (43, 69, -9), (69, 93, -8), (93, 118, -7), (118, 143, -6),
    (143, 168, -5), (168, 192, -4), (192, 218, -3), (218, 248, -2), (248, 268, -1),
    (268, 293, 0), (293, 318, 1), (318, 341, 2), (341, 369, 3), (369, 393, 4), (393, 418, 5),
    (418, 443, 6), (443, 468, 7), (468, 493, 8), (493, 518, 9), (518, 543, 10),
    (543, 594, 11), (594, 640, -11),
]

BACKGROUND = "#1b2440"   # night blue behind the bar
CELL_TONES = ["#f4ecda", "#dbe7f3"]  # cream and pale blue, alternating
DATE_LINE_TONE = "#e0eed8"  # pale green for -11, which meets 11 at the right
INK = "#1b2440"
BOUNDARY = "rgba(255,255,255,0.45)"
FONT = "DejaVu-Sans"
NARROW_FONT = "DejaVu-Sans-Condensed"  # for the 17-pixel left end of -11
NO_DATES = ["-define", "png:exclude-chunks=date,time", "+set", "date:create", "+set", "date:modify"]


def convert(*args):
    subprocess.run(["convert", *args], check=True)


def label(zone):
    if zone < 0:
        return "\u2212%d" % -zone  # a true minus sign, the width of a plus
    return "+%d" % zone if zone > 0 else "0"


def tone(zone):
    return DATE_LINE_TONE if zone == -11 else CELL_TONES[(zone + 11) % 2]


def world_map(earth, out):
    convert(earth, "-resize", "%dx%d!" % (WIDTH, MAP_HEIGHT), "-strip", *NO_DATES, "PNG24:" + out)


def time_zones(earth, out):
    # Two copies side by side, cut so that Greenwich, x = 300 of the first copy, lands at 280.
    shift = TZ_MAP_WIDTH // 2 - TZ_GREENWICH_X
    base = [
        "-size", "%dx%d" % (WIDTH, TZ_HEIGHT), "xc:" + BACKGROUND,
        "(", earth, "-resize", "%dx%d!" % (TZ_MAP_WIDTH, TZ_MAP_HEIGHT), "-write", "mpr:map", "+delete",
        "mpr:map", "mpr:map", "+append", "-crop", "%dx%d+%d+0" % (WIDTH, TZ_MAP_HEIGHT, shift),
        "+repage", ")",
        "-geometry", "+0+0", "-composite",
    ]
    draw = ["-fill", BOUNDARY, "-stroke", "none"]
    for first, _, _ in CELLS[1:]:
        draw += ["-draw", "rectangle %d,0 %d,%d" % (first, first, BAR_TOP - 1)]
    for first, past, zone in CELLS:
        draw += ["-fill", tone(zone),
                 "-draw", "rectangle %d,%d %d,%d" % (first, BAR_TOP, past - 1, TZ_HEIGHT - 1)]
    text = ["-fill", INK, "-gravity", "center"]
    for first, past, zone in CELLS:
        font, size = (FONT, 11) if past - first >= 20 else (NARROW_FONT, 8)
        x = (first + past) / 2.0 - WIDTH / 2.0
        y = BAR_TOP + BAR_HEIGHT / 2.0 - TZ_HEIGHT / 2.0
        text += ["-font", font, "-pointsize", str(size), "-annotate", "%+.1f%+.1f" % (x, y), label(zone)]
    convert(*base, *draw, *text, "-strip", *NO_DATES, "PNG24:" + out)


def main():
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    outdir = sys.argv[1] if len(sys.argv) > 1 else os.path.join(root, "data", "pictures")
    earth = sys.argv[2] if len(sys.argv) > 2 else EARTH
    os.makedirs(outdir, exist_ok=True)
    world_map(earth, os.path.join(outdir, "worldmap.png"))
    time_zones(earth, os.path.join(outdir, "timezones.png"))


if __name__ == "__main__":
    main()
