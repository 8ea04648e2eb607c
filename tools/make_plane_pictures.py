#!/usr/bin/env python3
"""Draw the CML-Io phase plane pictures into data/ as 24-bit BMP files.

    pp-360.bmp, pp-with-scale-360.bmp, pp-with-zones-360.bmp,
    pp-with-scale-and-zones-360.bmp        CML 0..360 across
    pp45-360.bmp, pp45-scale-360.bmp, pp45-with-zones-360.bmp,
    pp45-with-scale-and-zones-360.bmp      the same, CML shifted by 45 degrees
    pp-legend.bmp                          the window's colour legend, 40 x 360

Each plane is 360 x 360 pixels, one pixel a degree: x is CML - shift (wrapped into
0..360), y is Io phase with 0 at the bottom, so pixel row 0 is Io phase 360. The
colours come from the program's own probability table (tools/prob_table.py); the
window draws the axis marks, the day's track and the marker itself, so none of that
is drawn here. The window names a picture by whether its legend is shown, but the
colour scale is only ever the legend beside the plane (pp-legend.bmp): a scale drawn
into the picture would cover the map and the track's hour texts, so the pictures of
the legend's choice are the same as the others.

    python3 tools/make_plane_pictures.py            # writes into data/
    python3 tools/make_plane_pictures.py OUTDIR     # writes somewhere else

Standard library only; the output is byte-identical on every run.
"""

import math
import os
import struct
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.dirname(HERE)
SIZE = 360

# Source regions as the default mode file UFMODES.JMF gives them:
# (label, CML from, CML to, Io from, Io to, Io-related?)
ZONES = [
    ("Io-A", 200, 270, 195, 265, True),
    ("Io-B", 105, 185, 75, 105, True),
    ("Io-C", 280, 360, 225, 250, True),
    ("Io-D", 0, 200, 95, 130, True),
    ("non-Io-A", 200, 270, 0, 360, False),
    ("non-Io-B", 105, 185, 0, 360, False),
]

# Where each label's top-left corner goes, in (CML, Io phase). Chosen by eye so that
# no label covers a peak or another label, in both the plain and the shifted view.
LABEL_AT = {
    "Io-A": (203, 262),
    "Io-B": (107, 73),
    "Io-C": (283, 247),
    "Io-D": (3, 127),
    "non-Io-A": (204, 178),
    "non-Io-B": (112, 178),
}


# ----------------------------------------------------------------------------
# The probability table


def stand_in_table():
    """A rough table of the right shape, used only while the real one is missing."""
    def cdist(a, b):
        d = abs(a - b) % 360
        return min(d, 360 - d)

    blobs = [  # (peak, Io, CML, sigma Io, sigma CML)
        (92, 90, 136, 7, 14),     # Io-B
        (70, 235, 240, 14, 18),   # Io-A
        (37, 240, 330, 9, 20),    # Io-C
        (12, 112, 100, 9, 55),    # Io-D
    ]
    t = [[0] * 361 for _ in range(361)]
    for io in range(1, 361):
        for c in range(1, 361):
            v = 8.0
            v += 12 * math.exp(-0.5 * (cdist(c, 240) / 18) ** 2)   # non-Io-A
            v += 4 * math.exp(-0.5 * (cdist(c, 150) / 20) ** 2)    # non-Io-B
            for peak, bi, bc, si, sc in blobs:
                v += peak * math.exp(-0.5 * ((cdist(io, bi) / si) ** 2 + (cdist(c, bc) / sc) ** 2))
            t[io][c] = max(3, min(100, int(round(v))))
    return t


def load_probabilities():
    """The program's table, index [io][cml]; falls back to the stand-in with a warning."""
    sys.path.insert(0, HERE)
    try:
        import prob_table  # written by tools/make_probtable.py's author
        table = prob_table.load_table()
        if len(table) == 361 and all(len(r) == 361 for r in table):
            return table, "program table (tools/prob_table.py)"
        sys.stderr.write("prob_table.load_table() has the wrong shape; using the stand-in\n")
    except (ImportError, OSError, ValueError) as e:
        sys.stderr.write("no program table (%s); using the stand-in table\n" % e)
    return stand_in_table(), "stand-in table"


def smoothed_plane(table):
    """The table on the 360 x 360 grid [row][x] with shift 0, lightly blurred.

    The table holds whole percents, one a degree, which shows as terraces; a small
    Gaussian (both axes are angles, so it wraps) takes them away without moving any
    feature by more than a degree or two.
    """
    grid = []
    for y in range(SIZE):
        io = SIZE - y                      # row 0 is Io 360, row 359 is Io 1
        row = table[io]
        grid.append([float(row[x if x > 0 else 360]) for x in range(SIZE)])  # CML 0 is CML 360
    sigma = 1.3
    kern = [math.exp(-0.5 * (k / sigma) ** 2) for k in range(-4, 5)]
    s = sum(kern)
    kern = [k / s for k in kern]

    def blur_rows(g):
        out = []
        for row in g:
            out.append([sum(kern[k + 4] * row[(x + k) % SIZE] for k in range(-4, 5))
                        for x in range(SIZE)])
        return out

    g = blur_rows(grid)
    g = [list(r) for r in zip(*g)]        # transpose, blur the other way, transpose back
    g = blur_rows(g)
    return [list(r) for r in zip(*g)]


# ----------------------------------------------------------------------------
# Colours

GAMMA = 0.6   # most of the map is 5-30 %, so the ramp spends more of itself down there

# Stops of the ramp in position 0..1 and RGB: dark blue through cyan, green and
# yellow to red and a near-white top; lightness rises all the way.
STOPS = [
    (0.00, (4, 4, 30)),
    (0.20, (12, 22, 90)),
    (0.32, (20, 72, 165)),
    (0.44, (15, 160, 200)),
    (0.56, (45, 200, 115)),
    (0.68, (185, 225, 50)),
    (0.79, (255, 200, 30)),
    (0.90, (240, 80, 25)),
    (1.00, (255, 245, 235)),
]


def ramp_pos(percent):
    return max(0.0, min(1.0, percent / 100.0)) ** GAMMA


def ramp(t):
    t = max(0.0, min(1.0, t))
    for (t0, c0), (t1, c1) in zip(STOPS, STOPS[1:]):
        if t <= t1:
            f = (t - t0) / (t1 - t0) if t1 > t0 else 0.0
            return tuple(int(round(a + (b - a) * f)) for a, b in zip(c0, c1))
    return STOPS[-1][1]


def colour(percent):
    return ramp(ramp_pos(percent))


def luminance(c):
    return (0.2126 * c[0] + 0.7152 * c[1] + 0.0722 * c[2]) / 255.0


# ----------------------------------------------------------------------------
# A small bitmap font: 5 x 7 cells, advance 6


FONT = {
    "0": ["01110", "10001", "10011", "10101", "11001", "10001", "01110"],
    "1": ["00100", "01100", "00100", "00100", "00100", "00100", "01110"],
    "2": ["01110", "10001", "00001", "00010", "00100", "01000", "11111"],
    "3": ["11110", "00001", "00001", "01110", "00001", "00001", "11110"],
    "4": ["00010", "00110", "01010", "10010", "11111", "00010", "00010"],
    "5": ["11111", "10000", "11110", "00001", "00001", "10001", "01110"],
    "6": ["00110", "01000", "10000", "11110", "10001", "10001", "01110"],
    "7": ["11111", "00001", "00010", "00100", "01000", "01000", "01000"],
    "8": ["01110", "10001", "10001", "01110", "10001", "10001", "01110"],
    "9": ["01110", "10001", "10001", "01111", "00001", "00010", "01100"],
    "%": ["11000", "11001", "00010", "00100", "01000", "10011", "00011"],
    "-": ["00000", "00000", "00000", "01110", "00000", "00000", "00000"],
    " ": ["00000"] * 7,
    "I": ["01110", "00100", "00100", "00100", "00100", "00100", "01110"],
    "o": ["00000", "00000", "01110", "10001", "10001", "10001", "01110"],
    "n": ["00000", "00000", "10110", "11001", "10001", "10001", "10001"],
    "A": ["01110", "10001", "10001", "11111", "10001", "10001", "10001"],
    "B": ["11110", "10001", "10001", "11110", "10001", "10001", "11110"],
    "C": ["01110", "10001", "10000", "10000", "10000", "10001", "01110"],
    "D": ["11100", "10010", "10001", "10001", "10001", "10010", "11100"],
}
ADVANCE = 6


def text_width(s):
    return len(s) * ADVANCE - 1


class Canvas:
    def __init__(self, w, h, fill=(0, 0, 0)):
        self.w, self.h = w, h
        self.px = [[fill] * w for _ in range(h)]

    def get(self, x, y):
        return self.px[y % self.h][x % self.w]

    def set(self, x, y, c):
        if 0 <= x < self.w and 0 <= y < self.h:
            self.px[y][x] = c

    def shade(self, x0, y0, x1, y1, keep):
        """Darken a box so text on it reads; keep is the part of the colour left."""
        for y in range(max(0, y0), min(self.h, y1)):
            for x in range(max(0, x0), min(self.w, x1)):
                c = self.px[y][x]
                self.px[y][x] = tuple(int(round(v * keep)) for v in c)

    def text(self, x, y, s, ink=(255, 255, 255), halo=(0, 0, 0)):
        """Text with a one-pixel dark halo, so it stands on any colour of the map."""
        on = set()
        for i, ch in enumerate(s):
            for r, bits in enumerate(FONT[ch]):
                for col, b in enumerate(bits):
                    if b == "1":
                        on.add((x + i * ADVANCE + col, y + r))
        if halo is not None:
            for (px, py) in on:
                for dx in (-1, 0, 1):
                    for dy in (-1, 0, 1):
                        if (px + dx, py + dy) not in on:
                            self.set(px + dx, py + dy, halo)
        for (px, py) in on:
            self.set(px, py, ink)

    def write_bmp(self, path):
        row_bytes = self.w * 3
        pad = (4 - row_bytes % 4) % 4
        data = bytearray()
        for y in range(self.h - 1, -1, -1):          # bottom-up
            for (r, g, b) in self.px[y]:
                data += bytes((b, g, r))
            data += b"\0" * pad
        header = struct.pack("<2sIHHI", b"BM", 54 + len(data), 0, 0, 54)
        info = struct.pack("<IiiHHIIiiII", 40, self.w, self.h, 1, 24, 0, len(data),
                           2835, 2835, 0, 0)
        with open(path, "wb") as f:
            f.write(header + info + bytes(data))


# ----------------------------------------------------------------------------
# The plane


def x_of(cml, shift):
    return int(round(cml - shift)) % SIZE


def y_of(io):
    return SIZE - int(round(io))


def contrast_dot(cv, x, y):
    """A line pixel that is white on dark ground and black on light ground."""
    if 0 <= x < SIZE and 0 <= y < SIZE:
        cv.set(x, y, (0, 0, 0) if luminance(cv.get(x, y)) > 0.55 else (255, 255, 255))


def draw_zone(cv, zone, shift):
    name, c0, c1, i0, i1, io_related = zone
    dashed = not io_related                 # the Io-independent bands are dashed

    def on(k):
        return not dashed or k % 7 < 4

    ytop, ybot = y_of(i1), min(SIZE - 1, y_of(i0))
    # Horizontal edges (a band over all Io phases has none: they would be the frame).
    if i1 - i0 < 360:
        for k, c in enumerate(range(c0, c1 + 1)):
            if on(k):
                x = x_of(c, shift)
                if x == 0 and c == c1:      # the box ends on the right-hand frame
                    x = SIZE - 1
                for y in (ytop, ybot):
                    contrast_dot(cv, x, y)
    # Vertical edges, unless the range covers the whole circle. An edge that falls on
    # the picture's frame is drawn just inside it.
    if c1 - c0 < 360:
        for c, inward in ((c0, 1), (c1, -1)):
            x = x_of(c, shift)
            if x == 0 and inward < 0:
                x = SIZE - 1
            for k, y in enumerate(range(ytop, ybot + 1)):
                if on(k):
                    contrast_dot(cv, x, y)


def label_zone(cv, zone, shift):
    name = zone[0]
    cml, io = LABEL_AT[name]
    x = x_of(cml, shift)
    x = min(x, SIZE - 1 - text_width(name))
    cv.text(x, y_of(io), name)


# The percent marks of the legend.
MARKS = [0, 10, 20, 40, 60, 80, 100]


def plane(values, shift, zones):
    cv = Canvas(SIZE, SIZE)
    for y in range(SIZE):
        row = values[y]
        for x in range(SIZE):
            cv.px[y][x] = colour(row[(x + shift) % SIZE])
    if zones:
        # Bands first so the Io-related boxes lie on top of them.
        for z in sorted(ZONES, key=lambda z: z[5]):
            draw_zone(cv, z, shift)
        for z in ZONES:
            label_zone(cv, z, shift)
    return cv


def legend():
    """Image1 of the window: the ramp upward, 0 % at the foot and 100 % at the head."""
    w, h = 40, SIZE
    cv = Canvas(w, h, (24, 24, 32))
    top, bottom = 6, h - 8
    for y in range(top, bottom + 1):
        c = ramp((bottom - y) / (bottom - top))
        for x in range(3, 13):
            cv.set(x, y, c)
    for m in MARKS + [5, 30, 50, 70, 90]:
        y = bottom - int(round(ramp_pos(m) * (bottom - top)))
        for x in (13, 14, 15):
            cv.set(x, y, (230, 230, 230))
        if m in MARKS:
            cv.text(16, max(0, min(h - 7, y - 3)), str(m) + "%", halo=None)
    return cv


NAMES = {
    (0, False, False): "pp-360.bmp",
    (0, False, True): "pp-with-scale-360.bmp",
    (0, True, False): "pp-with-zones-360.bmp",
    (0, True, True): "pp-with-scale-and-zones-360.bmp",
    (45, False, False): "pp45-360.bmp",
    (45, False, True): "pp45-scale-360.bmp",
    (45, True, False): "pp45-with-zones-360.bmp",
    (45, True, True): "pp45-with-scale-and-zones-360.bmp",
}


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(ROOT, "data")
    os.makedirs(out, exist_ok=True)
    table, source = load_probabilities()
    values = smoothed_plane(table)
    for (shift, zones, _legend), name in sorted(NAMES.items()):
        plane(values, shift, zones).write_bmp(os.path.join(out, name))
    legend().write_bmp(os.path.join(out, "pp-legend.bmp"))
    print("wrote %d pictures into %s from the %s" % (len(NAMES) + 1, out, source))


if __name__ == "__main__":
    main()
