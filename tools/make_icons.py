#!/usr/bin/env python3
"""Draw the main window's button icons as SVG files into data/icons/.

Every icon is built from plain shapes here, so the set can be regenerated
at any time and always comes out byte-identical (no dates, no randomness,
fixed number formatting).

    python3 tools/make_icons.py            # writes into data/icons/
    python3 tools/make_icons.py OUTDIR     # writes somewhere else
"""

import math
import os
import sys

# One palette for the whole set so the buttons look like a family.
BG = "#16244a"          # night-blue tile
BG_EDGE = "#2b427a"
INK = "#e9eef7"         # near-white strokes and paper
DIM = "#7f93b8"         # axes, grid, secondary lines
TAN = "#e0a96d"         # Jupiter body
TAN_LIGHT = "#f3d9b1"   # Jupiter zones
BROWN = "#a4572a"       # Jupiter belts
ORANGE = "#f08a24"
SUN = "#ffd23f"
CYAN = "#3fd3e6"
SEA = "#2f6fb5"
GREEN = "#37c25c"
RED = "#e5484d"
STEEL = "#b7c6dc"       # gear metal
STEEL_DARK = "#6f84a6"

SIZE = 32


def n(x):
    """Fixed, short number formatting so output never drifts."""
    s = "%.2f" % x
    s = s.rstrip("0").rstrip(".")
    return "0" if s in ("-0", "") else s


def attrs(**kw):
    out = []
    for key in sorted(kw):
        val = kw[key]
        if val is None:
            continue
        name = key.rstrip("_").replace("_", "-")
        if isinstance(val, float) or isinstance(val, int):
            val = n(val)
        out.append('%s="%s"' % (name, val))
    return " ".join(out)


def el(tag, **kw):
    return "<%s %s/>" % (tag, attrs(**kw))


def rect(x, y, w, h, **kw):
    return el("rect", x=x, y=y, width=w, height=h, **kw)


def circle(cx, cy, r, **kw):
    return el("circle", cx=cx, cy=cy, r=r, **kw)


def ellipse(cx, cy, rx, ry, **kw):
    return el("ellipse", cx=cx, cy=cy, rx=rx, ry=ry, **kw)


def line(x1, y1, x2, y2, **kw):
    return el("line", x1=x1, y1=y1, x2=x2, y2=y2, **kw)


def path(d, **kw):
    return el("path", d=d, **kw)


def poly(points, **kw):
    return el("polygon", points=" ".join("%s,%s" % (n(x), n(y)) for x, y in points), **kw)


def polyline(points, **kw):
    return el("polyline", points=" ".join("%s,%s" % (n(x), n(y)) for x, y in points), **kw)


def stroke(color, width, **kw):
    """Common attributes for an unfilled, round-capped line."""
    d = dict(fill="none", stroke=color, stroke_width=width,
             stroke_linecap="round", stroke_linejoin="round")
    d.update(kw)
    return d


def tile():
    return rect(0.5, 0.5, 31, 31, rx=6, fill=BG, stroke=BG_EDGE, stroke_width=1)


def arc(cx, cy, r, a0, a1):
    """Path data of a circular arc, angles in degrees, 0 = east, clockwise on screen."""
    x0 = cx + r * math.cos(math.radians(a0))
    y0 = cy + r * math.sin(math.radians(a0))
    x1 = cx + r * math.cos(math.radians(a1))
    y1 = cy + r * math.sin(math.radians(a1))
    large = 1 if abs(a1 - a0) > 180 else 0
    sweep = 1 if a1 > a0 else 0
    return "M%s %s A%s %s 0 %d %d %s %s" % (n(x0), n(y0), n(r), n(r), large, sweep, n(x1), n(y1))


def jupiter(cx, cy, r, cid):
    """Banded planet disc; the belts are clipped to the disc."""
    parts = [
        '<clipPath id="%s">%s</clipPath>' % (cid, circle(cx, cy, r)),
        circle(cx, cy, r, fill=TAN),
        '<g clip-path="url(#%s)">' % cid,
        rect(cx - r, cy - 0.62 * r, 2 * r, 0.26 * r, fill=BROWN),
        rect(cx - r, cy - 0.24 * r, 2 * r, 0.26 * r, fill=TAN_LIGHT),
        rect(cx - r, cy + 0.08 * r, 2 * r, 0.28 * r, fill=BROWN),
        # the red spot sits just south of the dark belt
        ellipse(cx + 0.3 * r, cy + 0.55 * r, 0.24 * r, 0.14 * r, fill="#c2432b"),
        "</g>",
    ]
    return "".join(parts)


def gear(cx, cy, r_out, r_in, teeth, hole, color=STEEL):
    """Gear outline with a centre hole (even-odd fill)."""
    pts = []
    step = 2 * math.pi / teeth
    for i in range(teeth):
        a = i * step - math.pi / 2
        # tooth: flank up, flat top, flank down, then the root
        for frac, rad in ((-0.28, r_in), (-0.17, r_out), (0.17, r_out), (0.28, r_in)):
            ang = a + frac * step
            pts.append((cx + rad * math.cos(ang), cy + rad * math.sin(ang)))
    d = "M" + " L".join("%s %s" % (n(x), n(y)) for x, y in pts) + " Z"
    d += " M%s %s a%s %s 0 1 0 %s 0 a%s %s 0 1 0 %s 0 Z" % (
        n(cx - hole), n(cy), n(hole), n(hole), n(2 * hole), n(hole), n(hole), n(-2 * hole))
    return path(d, fill=color, fill_rule="evenodd", stroke=STEEL_DARK, stroke_width=0.75,
                stroke_linejoin="round")


def badge(cx, cy, r, color):
    """Round badge with a tile-coloured ring so it separates from the gear."""
    return circle(cx, cy, r, fill=color, stroke=BG, stroke_width=1.5)


# --------------------------------------------------------------------------
# The icons


def icon_observer():
    cx, cy, r = 13, 18, 10
    out = [
        '<clipPath id="globe">%s</clipPath>' % circle(cx, cy, r),
        circle(cx, cy, r, fill=SEA),
        '<g clip-path="url(#globe)">',
        # a couple of land masses so it reads as a globe, not a ball
        path("M5 12 C8 10 12 11 13 14 C14 17 11 19 9 18 C7 17 6 19 4 18 Z", fill=GREEN),
        path("M15 22 C17 20 21 21 22 23 C23 26 20 28 17 28 C15 27 14 24 15 22 Z", fill=GREEN),
        "</g>",
        ellipse(cx, cy, 4.2, r, **stroke(CYAN, 1)),
        line(cx, cy - r, cx, cy + r, **stroke(CYAN, 1)),
        line(cx - r, cy, cx + r, cy, **stroke(CYAN, 1)),
        path("M%s %s Q%s %s %s %s" % (n(cx - 8.7), n(cy - 5), n(cx), n(cy - 7.5), n(cx + 8.7), n(cy - 5)),
             **stroke(CYAN, 1)),
        path("M%s %s Q%s %s %s %s" % (n(cx - 8.7), n(cy + 5), n(cx), n(cy + 2.5), n(cx + 8.7), n(cy + 5)),
             **stroke(CYAN, 1)),
        circle(cx, cy, r, **stroke(CYAN, 1.25)),
        # location pin, standing on the globe
        path("M22 19 C22 19 16.2 12.6 16.2 9.2 A5.8 5.8 0 0 1 27.8 9.2 C27.8 12.6 22 19 22 19 Z",
             fill=ORANGE, stroke=BG, stroke_width=1.25, stroke_linejoin="round"),
        circle(22, 9.2, 2.1, fill=INK),
    ]
    return out


def icon_predict():
    out = [
        jupiter(11.5, 19.5, 8.5, "jup"),
        # radio waves leaving the planet toward the upper right
        path(arc(11.5, 19.5, 12, -75, -15), **stroke(CYAN, 1.75)),
        path(arc(11.5, 19.5, 16, -70, -20), **stroke(CYAN, 1.75)),
        # burst
        poly([(24.5, 16.5), (20.5, 23.5), (23.6, 23.5), (21.5, 30), (28.8, 21.5), (25.4, 21.5), (28, 16.5)],
             fill=SUN, stroke=BG, stroke_width=0.75, stroke_linejoin="round"),
    ]
    return out


def icon_cml_io():
    x0, y0, x1, y1 = 7, 5, 27, 25  # plot area
    out = [
        rect(x0, y0, x1 - x0, y1 - y0, fill="#0f1a37"),
        # source regions
        ellipse(12.5, 11, 3.8, 3.2, fill=ORANGE, fill_opacity=0.9),
        ellipse(21.5, 13.5, 3.2, 4.2, fill=SUN, fill_opacity=0.9),
        ellipse(14.5, 20.5, 3.6, 2.6, fill=CYAN, fill_opacity=0.85),
        ellipse(23, 21.5, 2.2, 1.8, fill="#c77dff", fill_opacity=0.9),
        # observing track, wraps around like the real one
        line(x0 + 0.5, 16, 18, y0 + 0.5, **stroke(INK, 1.25)),
        line(18, y1 - 0.5, x1 - 0.5, 16.5, **stroke(INK, 1.25)),
        # axes with ticks
        polyline([(x0, y0 - 1), (x0, y1), (x1 + 1, y1)], **stroke(DIM, 1.5, stroke_linecap="square")),
        line(x0 - 2, 10, x0, 10, **stroke(DIM, 1)),
        line(x0 - 2, 15, x0, 15, **stroke(DIM, 1)),
        line(x0 - 2, 20, x0, 20, **stroke(DIM, 1)),
        line(12, y1, 12, y1 + 2, **stroke(DIM, 1)),
        line(17, y1, 17, y1 + 2, **stroke(DIM, 1)),
        line(22, y1, 22, y1 + 2, **stroke(DIM, 1)),
    ]
    return out


def icon_sky_map():
    cx, cy, r = 16, 25, 12.5
    out = [
        '<clipPath id="dome">%s</clipPath>' % path(
            "M%s %s A%s %s 0 0 1 %s %s Z" % (n(cx - r), n(cy), n(r), n(r), n(cx + r), n(cy))),
        path("M%s %s A%s %s 0 0 1 %s %s Z" % (n(cx - r), n(cy), n(r), n(r), n(cx + r), n(cy)),
             fill="#0c1530", stroke=DIM, stroke_width=1),
        '<g clip-path="url(#dome)">',
        # alt-az grid
        path(arc(cx, cy, 8.3, 180, 360), **stroke(BG_EDGE, 0.75)),
        path(arc(cx, cy, 4.2, 180, 360), **stroke(BG_EDGE, 0.75)),
        line(cx, cy, cx, cy - r, **stroke(BG_EDGE, 0.75)),
        # beam lobe aimed up and to the right
        path("M16 25 C14.5 19 17.5 12.5 21.5 11.5 C25 11 25.5 14.5 23.5 17.5 C21.5 20.5 18 23 16 25 Z",
             fill=CYAN, fill_opacity=0.6, stroke=CYAN, stroke_width=1, stroke_linejoin="round"),
        circle(8, 18, 0.9, fill=INK),
        circle(11.5, 14.5, 0.7, fill=INK),
        circle(7, 22.5, 0.6, fill=INK),
        circle(12.5, 20, 0.6, fill=INK),
        circle(16, 15, 0.7, fill=INK),
        circle(25.5, 21.5, 0.7, fill=INK),
        circle(20.5, 15, 1.3, fill=TAN),
        "</g>",
        line(2.5, cy, 29.5, cy, **stroke(INK, 1.5)),
        # small yagi at the foot of the lobe
        line(16, cy, 16, 29, **stroke(INK, 1.25)),
        line(13.5, 29, 18.5, 29, **stroke(INK, 1.25)),
    ]
    return out


def icon_alt_az():
    out = [
        # axes
        polyline([(5, 4), (5, 27), (28, 27)], **stroke(DIM, 1.5, stroke_linecap="square")),
        # horizon
        line(5, 20, 28, 20, **stroke(DIM, 1, stroke_dasharray="2 1.5", stroke_linecap="butt")),
        # sun track peaks early, Jupiter's later and higher
        path("M6 24 Q12 2 20 24", **stroke(SUN, 2)),
        path("M13 24 Q21 -1 28 22", **stroke(TAN, 2)),
        circle(10.8, 12.5, 2.3, fill=SUN),
        circle(22.7, 11.0, 2.3, fill=TAN, stroke=BROWN, stroke_width=0.75),
    ]
    return out


def icon_ephemeris():
    out = [
        path("M6 3.5 H20 L26 9.5 V28.5 H6 Z", fill=INK, stroke=DIM, stroke_width=1,
             stroke_linejoin="round"),
        path("M20 3.5 V9.5 H26", fill="#c9d3e4", stroke=DIM, stroke_width=1, stroke_linejoin="round"),
        # header row then table rows
        line(9, 8, 17, 8, **stroke(SEA, 2)),
    ]
    for y in (12.5, 16, 19.5, 23):
        out.append(line(9, y, 12, y, **stroke(STEEL_DARK, 1.5)))
        out.append(line(14, y, 22.5, y, **stroke(STEEL_DARK, 1.5)))
    out.append(circle(23, 24, 6, fill=BG))
    out.append(jupiter(23, 24, 5, "jup"))
    return out


def icon_dsube():
    out = [
        polyline([(5, 4), (5, 28), (28, 28)], **stroke(DIM, 1.5, stroke_linecap="square")),
        line(5, 16, 28, 16, **stroke(DIM, 1, stroke_dasharray="2 1.5", stroke_linecap="butt")),
    ]
    pts = []
    for i in range(0, 45):
        x = 6 + i * 0.5
        y = 16 - 8.5 * math.sin((x - 6) / 22 * 2 * math.pi * 1.1)
        pts.append((x, y))
    out.append(polyline(pts, **stroke(CYAN, 2)))
    # Earth marker riding on the curve
    x = 12
    y = 16 - 8.5 * math.sin((x - 6) / 22 * 2 * math.pi * 1.1)
    out.append(circle(x, y, 2.6, fill=SEA, stroke=INK, stroke_width=1))
    return out


def icon_visibility():
    x0, y0, x1, y1 = 4, 7, 28, 28
    out = [
        rect(x0, y0, x1 - x0, y1 - y0, rx=2, fill="#3a5a96", stroke=DIM, stroke_width=1),
        '<clipPath id="chart">%s</clipPath>' % rect(x0 + 0.5, 11, x1 - x0 - 1, y1 - 11.5),
        '<g clip-path="url(#chart)">',
        # night band, longest in winter, so it narrows toward mid-year
        path("M4 12 C10 14 12 16.5 16 17 C20 16.5 22 14 28 12 V28 H4 Z", fill="#0f1a37"),
        # hours Jupiter is up, drifting earlier through the year
        path("M4 19 C10 17 16 14 28 9 V15 C16 20 10 23 4 25 Z", fill=TAN),
        path("M4 21 C10 19 16 16 28 11 V13 C16 18 10 21 4 23 Z", fill=ORANGE),
        "</g>",
    ]
    # month and hour grid
    for x in (10, 16, 22):
        out.append(line(x, 11, x, y1 - 0.5, stroke=DIM, stroke_width=0.6))
    for y in (16.5, 22):
        out.append(line(x0 + 0.5, y, x1 - 0.5, y, stroke=DIM, stroke_width=0.6))
    # calendar header with binder rings
    out.append(path("M4 11 V9 A2 2 0 0 1 6 7 H26 A2 2 0 0 1 28 9 V11 Z", fill=RED))
    out.append(line(10, 4.5, 10, 8.5, **stroke(INK, 1.75)))
    out.append(line(22, 4.5, 22, 8.5, **stroke(INK, 1.75)))
    return out


def icon_observer_log():
    out = [
        # two pages, slightly sloping down to the spine
        path("M16 9 C12.5 6.5 7.5 6.5 3.5 7.5 V25.5 C7.5 24.5 12.5 24.5 16 27 Z",
             fill=INK, stroke=DIM, stroke_width=1, stroke_linejoin="round"),
        path("M16 9 C19.5 6.5 24.5 6.5 28.5 7.5 V25.5 C24.5 24.5 19.5 24.5 16 27 Z",
             fill="#d8e0ee", stroke=DIM, stroke_width=1, stroke_linejoin="round"),
        line(16, 9, 16, 27, **stroke(DIM, 1)),
    ]
    for y in (11.5, 15, 18.5, 22):
        out.append(path("M6 %s C8.5 %s 11 %s 13.5 %s" % (n(y), n(y - 0.5), n(y - 0.5), n(y + 0.5)),
                        **stroke(SEA, 1.1)))
    for y in (11.5, 15):
        out.append(path("M18.5 %s C21 %s 23.5 %s 26 %s" % (n(y + 0.5), n(y - 0.5), n(y - 0.5), n(y)),
                        **stroke(SEA, 1.1)))
    # pencil lying across the right page
    out.append('<g transform="rotate(-45 22 21)">')
    out.append(rect(15, 19.2, 11, 3.6, fill=SUN, stroke="#a8781a", stroke_width=0.6))
    out.append(rect(26, 19.2, 2.4, 3.6, fill="#f28da0", stroke="#a8781a", stroke_width=0.6))
    out.append(poly([(15, 19.2), (15, 22.8), (11.6, 21)], fill=TAN_LIGHT, stroke="#a8781a",
                    stroke_width=0.6, stroke_linejoin="round"))
    out.append(poly([(12.7, 20.42), (12.7, 21.58), (11.6, 21)], fill="#333"))
    out.append("</g>")
    return out


def gear_motif():
    return gear(13, 13, 10.5, 8, 8, 3.4)


def icon_automation():
    out = [gear_motif()]
    cx, cy = 22.5, 22.5
    out.append(badge(cx, cy, 7.2, INK))
    out.append(circle(cx, cy, 5.6, **stroke(CYAN, 1.25)))
    out.append(polyline([(cx, cy - 3.8), (cx, cy), (cx + 2.8, cy + 1.2)], **stroke(BG, 1.5)))
    out.append(circle(cx, cy, 0.8, fill=BG))
    return out


def icon_run_automation():
    out = [gear_motif()]
    cx, cy = 22.5, 22.5
    out.append(badge(cx, cy, 7.2, GREEN))
    out.append(poly([(cx - 2.4, cy - 3.8), (cx - 2.4, cy + 3.8), (cx + 4, cy)], fill=INK,
                    stroke=INK, stroke_width=0.75, stroke_linejoin="round"))
    return out


def icon_stop_automation():
    out = [gear_motif()]
    cx, cy = 22.5, 22.5
    out.append(badge(cx, cy, 7.2, RED))
    out.append(rect(cx - 3.2, cy - 3.2, 6.4, 6.4, rx=0.8, fill=INK))
    return out


def icon_app():
    out = [
        jupiter(11, 11, 8, "jup"),
        # waves travelling from the planet down to the antenna
        path(arc(11, 11, 11, 20, 70), **stroke(CYAN, 1.75)),
        path(arc(11, 11, 14.5, 25, 65), **stroke(CYAN, 1.75)),
        # dipole on a mast, bottom right
        line(25, 24, 25, 29.5, **stroke(INK, 1.5)),
        line(19.5, 24, 30, 24, **stroke(INK, 1.75)),
        line(22, 29.5, 28, 29.5, **stroke(DIM, 1.5)),
        circle(25, 24, 1.3, fill=ORANGE),
    ]
    return out


ICONS = [
    ("cmdObserver.svg", "Observer location", icon_observer),
    ("CmdPredict.svg", "Storm prediction", icon_predict),
    ("cmdCMLiOPlane.svg", "CML and Io phase plot", icon_cml_io),
    ("cmdSkyMap.svg", "Sky map", icon_sky_map),
    ("cmdAltAz.svg", "Altitude and azimuth", icon_alt_az),
    ("cmdEphemeris.svg", "Ephemeris", icon_ephemeris),
    ("cmdDsubE.svg", "Declination of the Earth", icon_dsube),
    ("cmdVisibility.svg", "Yearly visibility", icon_visibility),
    ("cmdObserverlog.svg", "Observer log", icon_observer_log),
    ("CmdAutomation.svg", "Automation parameters", icon_automation),
    ("cmdRunAutomation.svg", "Activate automation", icon_run_automation),
    ("cmdStopAutomation.svg", "Deactivate automation", icon_stop_automation),
    ("tarvelle.svg", "Tarvelle", icon_app),
]


def render(title, body):
    lines = [
        '<?xml version="1.0" encoding="UTF-8"?>',
        '<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" viewBox="0 0 %d %d">'
        % (SIZE, SIZE, SIZE, SIZE),
        "<title>%s</title>" % title,
        tile(),
    ]
    lines.extend(body)
    lines.append("</svg>")
    return "\n".join(lines) + "\n"


def main(argv):
    here = os.path.dirname(os.path.abspath(__file__))
    outdir = argv[1] if len(argv) > 1 else os.path.join(here, os.pardir, "data", "icons")
    outdir = os.path.normpath(outdir)
    os.makedirs(outdir, exist_ok=True)
    for name, title, draw in ICONS:
        target = os.path.join(outdir, name)
        with open(target, "w", encoding="utf-8", newline="\n") as fh:
            fh.write(render(title, draw()))
        print(target)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
