#!/usr/bin/env python3
"""Build src/prediction/prob_table_rows.inc, the built-in emission probability table.

The table holds a modelled chance, in whole percent, of hearing Jupiter's
decametric emission at each whole degree of Io phase (rows 1 to 360) and CML III
(columns 1 to 360). It is a model made here for this program, not a table of
observations: no published occurrence values go into it. The published facts
it follows are only that the Io-related sources are regions bounded in both
CML and Io phase and the non-Io sources bands of CML at every Io phase (Zarka
et al. 2018, A&A 618, A84, Fig. 1; Marques et al. 2017, A&A 604, A17); the
regions are placed in the boxes of data/UFMODES.JMF, whose boundaries are not
verified against a published table (see data/README.md). By hand:

- a background of a few percent at all phases;
- the non-Io sources as bands of CML at every Io phase: non-Io-A around
  CML 200-270 and a weaker non-Io-B around CML 105-185;
- the Io-controlled sources as compact regions: Io-B (the strongest, CML
  105-185 at Io phase 75-105, peaking at 100 at Io phase 90-91 and CML
  134-138), Io-A (CML 200-270, Io phase 195-265), Io-C (CML 300-360 and a
  little beyond, Io phase 220-260) and the weak Io-D (CML 0-200, Io phase
  95-130).

The coarse shape is fixed by a 12 x 12 sample at every 30 degrees of both
(SAMPLE below, set by hand, from no outside table); the table passes through it exactly. The Io sources are
smooth bumps laid on it, and what the bumps leave of the sample is
interpolated between the sample points by a periodic monotone cubic, which
carries the background and the non-Io bands and never overshoots. A few
cells are then set outright (the peak plateau, the start of the first row
and the end of the row of Io phase 12), and every value is rounded to a
whole percent and held to 3..100.

Rows are written in the packed form that the program expands at start-up:
values for CML 1 to 360 joined by "_" and ended by "X", with the runs
u = 8 x "8", y = 5 x "12", z = 4 x "20", w = 4 x "11" put in greedily from
the left. The row of Io phase 12 carries 359 values (its CML 359 value is
left out), so that it expands to 0 at CML 359 and 8 at CML 360.

    python3 tools/make_probtable.py          # writes src/prediction/prob_table_rows.inc
    python3 tools/make_probtable.py OUT      # another output

Python 3, standard library only; the output is the same on every run.
"""

import math
import os
import sys

from prob_table import TOKENS, expand_rows

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
DEFAULT_OUT = os.path.join(ROOT, "src", "prediction", "prob_table_rows.inc")

STEP = 30
# Io phase 30, 60 .. 360 down, CML 30, 60 .. 360 across.
SAMPLE = [
    [8, 8, 8, 7, 8, 8, 8, 19, 18, 16, 12, 8],
    [8, 11, 15, 10, 13, 9, 9, 18, 20, 12, 12, 8],
    [8, 7, 29, 85, 92, 56, 15, 18, 17, 12, 12, 8],
    [8, 8, 10, 11, 12, 13, 12, 21, 19, 8, 8, 4],
    [7, 8, 8, 10, 13, 8, 9, 19, 16, 12, 8, 4],
    [8, 8, 8, 8, 12, 7, 18, 24, 22, 8, 8, 4],
    [8, 8, 8, 8, 10, 8, 21, 27, 22, 14, 8, 4],
    [12, 8, 8, 8, 9, 9, 54, 78, 40, 36, 45, 30],
    [8, 8, 8, 8, 10, 8, 12, 23, 19, 13, 8, 4],
    [8, 12, 12, 12, 12, 12, 9, 17, 19, 12, 12, 8],
    [8, 12, 12, 12, 12, 8, 8, 17, 19, 12, 12, 8],
    [8, 8, 12, 12, 12, 8, 8, 16, 16, 12, 12, 8],
]

# The row of Io phase 1 begins with these values, CML 1 onwards.
ROW1_START = [8] * 64 + [8, 8, 8, 9, 10, 11, 11, 12, 11, 10, 9, 8, 8, 9, 9, 10, 11] + [12] * 30 + [12, 11, 11, 10, 9]
ROW1_PACKED_START = "u_u_u_u_u_u_u_u_8_8_8_9_10_11_11_12_11_10_9_8_8_9_9_10_11_y_y_y_y_y_y_12_11_11_10_9"

# The peak: 100 at Io phase 90 to 91 and CML 134 to 138, below 100 everywhere else.
PEAK_IO = (90, 91)
PEAK_CML = (134, 138)

# The row with one value short, and the value that lands at its CML 360.
SHORT_ROW = 12
SHORT_ROW_LAST = 8

LOWEST, HIGHEST = 3, 100


def wrap(d):
    """The signed difference of two angles, -180..180."""
    return (d + 180.0) % 360.0 - 180.0


def bump(io, cml, io0, cml0, s_io, s_left, s_right, shape=2.0):
    """A smooth source region: 1 at its centre, falling off with its own width on each side
    of the CML centre. A shape below 2 gives a sharper top."""
    di = wrap(io - io0) / s_io
    dc = wrap(cml - cml0)
    dc /= s_left if dc < 0 else s_right
    return math.exp(-0.5 * (di * di + dc * dc) ** (shape / 2.0))


def io_b(io, cml):
    """Io-B, with a flat top over the peak cells so that they all reach the full amplitude."""
    di = max(0.0, abs(wrap(io - 90.5)) - 0.5) / 9.0
    dc = wrap(cml - 136.0)
    dc = (dc + 2.0) / 24.5 if dc < -2.0 else ((dc - 2.0) / 35.0 if dc > 2.0 else 0.0)
    return math.exp(-0.5 * (di * di + dc * dc))


def peak_lift(io, cml):
    """A small rounded cap that brings the cells around the peak up to meet it. It is zero
    from CML 120 and 150 outwards and from 10 degrees of Io phase off the peak, so the sample
    points on either side keep what the interpolation gives them."""
    di = wrap(io - 90.5) / 10.0
    dc = wrap(cml - 136.0)
    dc = dc / 16.0 if dc < 0 else dc / 14.0
    if abs(di) >= 1.0 or abs(dc) >= 1.0:
        return 0.0
    return math.cos(0.5 * math.pi * di) ** 2 * math.cos(0.5 * math.pi * dc) ** 2


def sources(io, cml):
    """The Io-controlled sources in percent, above what the sample carries between its points."""
    return (
        88.0 * io_b(io, cml)
        + 2.0 * peak_lift(io, cml)
        + 62.0 * bump(io, cml, 240.0, 230.0, 13.0, 20.0, 26.5)
        + 37.0 * bump(io, cml, 242.0, 340.0, 10.0, 41.0, 24.0)
        + 5.0 * bump(io, cml, 110.0, 110.0, 9.0, 60.0, 45.0)
    )


def pchip_slopes(y, h):
    """Slopes of a periodic monotone cubic through equally spaced values y."""
    n = len(y)
    d = [(y[(k + 1) % n] - y[k]) / h for k in range(n)]
    m = []
    for k in range(n):
        a, b = d[k - 1], d[k]
        m.append(0.0 if a * b <= 0.0 else 2.0 * a * b / (a + b))
    return m


def pchip_eval(y, m, h, x):
    """The periodic monotone cubic at x (degrees)."""
    n = len(y)
    x = x % (n * h)
    k = int(x // h)
    t = (x - k * h) / h
    y0, y1 = y[k], y[(k + 1) % n]
    m0, m1 = m[k] * h, m[(k + 1) % n] * h
    t2, t3 = t * t, t * t * t
    return (2 * t3 - 3 * t2 + 1) * y0 + (t3 - 2 * t2 + t) * m0 + (-2 * t3 + 3 * t2) * y1 + (t3 - t2) * m1


def node_value(i, j):
    """The sample at node (Io 30 i, CML 30 j), i and j 0..11, where 0 stands for 360."""
    return SAMPLE[(i - 1) % 12][(j - 1) % 12]


def build_table():
    """The expanded table, [io][cml] for 0..360, row and column 0 left at 0."""
    # What the sources leave of the sample, interpolated first along CML, then along Io.
    rest = [[node_value(i, j) - sources(STEP * i, STEP * j) for j in range(12)] for i in range(12)]
    along_cml = []
    for i in range(12):
        m = pchip_slopes(rest[i], STEP)
        along_cml.append([pchip_eval(rest[i], m, STEP, c) for c in range(361)])
    field = [[0.0] * 361 for _ in range(361)]
    for c in range(361):
        column = [along_cml[i][c] for i in range(12)]
        m = pchip_slopes(column, STEP)
        for io in range(361):
            field[io][c] = pchip_eval(column, m, STEP, io) + sources(io, c)

    # The first row's given start; its step back into the field fades out over the next
    # degrees of CML and the next few rows of Io phase.
    n = len(ROW1_START)
    offset = [0.0] * 361
    for c in range(1, 361):
        if c <= n:
            offset[c] = ROW1_START[c - 1] - field[1][c]
        else:
            fade = max(0.0, 1.0 - (c - n) / 12.0)
            offset[c] = (ROW1_START[-1] - field[1][n]) * fade
    for io, weight in ((1, 1.0), (2, 0.65), (3, 0.35), (4, 0.12)):
        for c in range(1, 361):
            field[io][c] += weight * offset[c]

    table = [[0] * 361 for _ in range(361)]
    for io in range(1, 361):
        for c in range(1, 361):
            v = int(round(field[io][c]))
            table[io][c] = min(HIGHEST - 1, max(LOWEST, v))
    for io in range(PEAK_IO[0], PEAK_IO[1] + 1):
        for c in range(PEAK_CML[0], PEAK_CML[1] + 1):
            table[io][c] = HIGHEST
    for c in range(1, n + 1):
        table[1][c] = ROW1_START[c - 1]
    table[SHORT_ROW][359] = 0
    table[SHORT_ROW][360] = SHORT_ROW_LAST
    return table


def pack(values):
    """One row in packed form: runs replaced greedily from the left, "_" between, "X" at the end."""
    out = []
    k = 0
    while k < len(values):
        for token, value, run in TOKENS:
            if values[k : k + run] == [value] * run:
                out.append(token)
                k += run
                break
        else:
            out.append(str(values[k]))
            k += 1
    return "_".join(out) + "X"


def packed_rows(table):
    rows = []
    for io in range(1, 361):
        values = table[io][1:361]
        if io == SHORT_ROW:
            values = values[:358] + values[359:]
        rows.append(pack(values))
    return rows


def check(table, rows):
    for i in range(1, 13):
        for j in range(1, 13):
            assert table[STEP * i][STEP * j] == SAMPLE[i - 1][j - 1], (STEP * i, STEP * j)
    assert rows[0].startswith(ROW1_PACKED_START + "_"), rows[0][:120]
    assert table[1][1 : len(ROW1_START) + 1] == ROW1_START
    assert table[90][136] == 100 and table[1][1] == 8
    for io in range(1, 361):
        for c in range(1, 361):
            v = table[io][c]
            in_peak = PEAK_IO[0] <= io <= PEAK_IO[1] and PEAK_CML[0] <= c <= PEAK_CML[1]
            if io == SHORT_ROW and c == 359:
                assert v == 0
            elif in_peak:
                assert v == HIGHEST
            else:
                assert LOWEST <= v < HIGHEST, (io, c, v)
    assert table[SHORT_ROW][360] == SHORT_ROW_LAST
    assert all(table[0][c] == 0 for c in range(361)) and all(table[r][0] == 0 for r in range(361))
    # The sources stand out inside their UFMODES.JMF boxes.
    assert max(table[90][100:190]) == 100
    assert table[240][236] > 70 and table[240][332] > 40
    assert max(table[150][200:280]) >= 15 and min(table[150][200:280]) >= 8
    assert max(table[112][0:201]) > max(table[30][0:201])


def smoothness(table):
    """The largest step between neighbouring cells, away from the seam of the short row."""
    worst = 0
    for io in range(1, 361):
        for c in range(1, 361):
            v = table[io][c]
            nxt_c = table[io][c % 360 + 1]
            nxt_io = table[io % 360 + 1][c]
            for other, cell in ((nxt_c, (io, c % 360 + 1)), (nxt_io, (io % 360 + 1, c))):
                if (io, c) == (SHORT_ROW, 359) or cell == (SHORT_ROW, 359):
                    continue
                worst = max(worst, abs(v - other))
    return worst


def render(rows):
    lines = [
        "// Generated by tools/make_probtable.py; edit the script, not this file.",
        "// The emission probability by Io phase (row r = 1..360) and CML 1..360, packed:",
        '// values joined by "_", ended by "X", with u = 8 x 8, y = 5 x 12, z = 4 x 20, w = 4 x 11.',
        "// clang-format off",
        "constexpr const char* kProbTableRows[360] = {",
    ]
    for r in rows:
        lines.append('    "%s",' % r)
    lines.append("};")
    lines.append("// clang-format on")
    return "\n".join(lines) + "\n"


def main():
    out = sys.argv[1] if len(sys.argv) > 1 else DEFAULT_OUT
    table = build_table()
    rows = packed_rows(table)
    assert expand_rows(rows) == table, "packing does not expand back to the table"
    check(table, rows)
    with open(out, "w", newline="\n") as f:
        f.write(render(rows))
    print("wrote %s: %d packed characters, largest step %d" % (out, sum(len(r) for r in rows), smoothness(table)))


if __name__ == "__main__":
    main()
