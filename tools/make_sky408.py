#!/usr/bin/env python3
"""Draws data/pictures/sky408.bmp, the all-sky picture of the sky image viewer (Pic408): a
model of the radio sky near 408 MHz, not a survey, in false colour on dark blue (the brightness raised to the power 0.55 before colouring, so that
the faint sky away from the plane shows).

Frame: 360 x 360 pixels, one pixel a degree of right ascension from 0 at the left to 360 at
the right; rows run from declination +90 at the top to -90 at the bottom, half a degree a row.

Brightness, in arbitrary units, is the sum of
  - a faint floor over the whole sky;
  - the galactic disc: bright along the plane and falling off exponentially with galactic
    latitude (a thin layer of scale height 2.5 degrees and a thick one of 15 degrees), brighter
    toward the galactic centre;
  - a broad bump round the galactic centre (l = 0, b = 0);
  - the Cygnus X region, about 7 degrees across near RA 20h37m, Dec +40.5;
  - Cassiopeia A (RA 23h23m24s, Dec +58d48m54s, J2000) and Cygnus A (RA 19h59m28s,
    Dec +40d44m02s, J2000), the two brightest radio sources beyond the Sun.
Galactic coordinates come from the pole and node of the 1950 equator that the sky map uses
(RA of the pole 3.355395 rad, Dec 0.4782202 rad, node 0.5759587 rad); the difference from
J2000 is under a degree, one pixel here. Run from the repository root:

    python3 tools/make_sky408.py

Python 3, standard library only; the output is byte-identical on every run.
"""
import math
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from make_plane_pictures import Canvas  # noqa: E402  (the BMP writer)

ALPHA0, DELTA0, L0 = 3.355395, 0.4782202, 0.5759587
SIZE = 360


def galactic_to_equatorial(l_deg, b_deg):
    l, b = math.radians(l_deg), math.radians(b_deg)
    s = math.cos(DELTA0) * math.cos(b) * math.sin(l - L0) + math.sin(DELTA0) * math.sin(b)
    dec = math.asin(max(-1.0, min(1.0, s)))
    y = math.cos(l - L0) * math.cos(b)
    x = math.sin(b) * math.cos(DELTA0) - math.cos(b) * math.sin(DELTA0) * math.sin(l - L0)
    ra = math.atan2(y, x) + ALPHA0
    return ra % (2 * math.pi), dec


def unit(ra, dec):
    return (math.cos(dec) * math.cos(ra), math.cos(dec) * math.sin(ra), math.sin(dec))


# Columns of the rotation from galactic to equatorial vectors, from the transform itself.
COLUMNS = [unit(*galactic_to_equatorial(l, b)) for l, b in ((0, 0), (90, 0), (0, 90))]


def equatorial_to_galactic(ra, dec):
    v = unit(ra, dec)
    g = [sum(c[i] * v[i] for i in range(3)) for c in COLUMNS]
    return math.degrees(math.atan2(g[1], g[0])), math.degrees(math.asin(max(-1.0, min(1.0, g[2]))))


def hms(h, m, s):
    return math.radians(15 * (h + m / 60 + s / 3600))


def dms(d, m, s):
    return math.radians(math.copysign(abs(d) + m / 60 + s / 3600, d))


# (RA, Dec, peak, radius in degrees)
SOURCES = [
    (hms(20, 37, 0), dms(40, 30, 0), 0.40, 3.5),   # Cygnus X
    (hms(23, 23, 24), dms(58, 48, 54), 0.95, 1.2),  # Cassiopeia A
    (hms(19, 59, 28), dms(40, 44, 2), 0.75, 1.2),   # Cygnus A
]


def separation(a, b):
    return math.degrees(math.acos(max(-1.0, min(1.0, sum(p * q for p, q in zip(a, b))))))


def brightness(ra, dec):
    l, b = equatorial_to_galactic(ra, dec)
    along = 0.35 + 0.65 * math.exp(-(l / 40.0) ** 2)
    t = 0.03
    t += 0.45 * along * math.exp(-abs(b) / 2.5)
    t += 0.12 * along * math.exp(-abs(b) / 15.0)
    t += 0.35 * math.exp(-(l * l + b * b) / (2 * 6.0 ** 2))
    here = unit(ra, dec)
    for sra, sdec, peak, radius in SOURCES:
        d = separation(here, unit(sra, sdec))
        if d < 4 * radius:
            t += peak * math.exp(-(d / radius) ** 2)
    return t


# Brightness to colour: a power below 1 gives the faint sky more of the ramp.
GAMMA, DISPLAY_SCALE = 0.55, 0.95

STOPS = [(0.0, (0, 0, 48)), (0.15, (0, 0, 140)), (0.35, (0, 90, 220)), (0.55, (0, 200, 200)),
         (0.7, (120, 230, 60)), (0.85, (250, 200, 0)), (1.0, (255, 40, 0))]


def false_colour(t):
    t = max(0.0, min(1.0, t))
    for (a, ca), (b, cb) in zip(STOPS, STOPS[1:]):
        if t <= b:
            f = (t - a) / (b - a)
            return tuple(int(round(p + (q - p) * f)) for p, q in zip(ca, cb))
    return STOPS[-1][1]


def main():
    canvas = Canvas(SIZE, SIZE)
    for y in range(SIZE):
        dec = math.radians(90.0 - (y + 0.5) / 2.0)
        for x in range(SIZE):
            ra = math.radians(x + 0.5)
            canvas.set(x, y, false_colour(DISPLAY_SCALE * brightness(ra, dec) ** GAMMA))
    out = os.path.join("data", "pictures", "sky408.bmp")
    canvas.write_bmp(out)
    print("wrote", out)


if __name__ == "__main__":
    main()
