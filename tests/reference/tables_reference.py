#!/usr/bin/env python3
"""Plain-Python reference of Tarvelle's ephemeris tables and graphs.

Written from the rules of the ephemeris grid, the yearly visibility chart, the
graph of the Jovicentric declination of the Earth and the Alt/Az table file,
apart from the C++ code, on top of core_reference.py. Standard library only.

Each function returns what tarvelle-cli prints (or writes), together with the
raw values behind every rounded text, so that compare_tables.py can tell a
real disagreement from a value that sits on a rounding point.
"""

import datetime
import decimal
import math
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import core_reference as ref  # noqa: E402

HEADINGS = ['GMT ', 'Local ', 'Jup Alt', 'Jup Az', 'Jup HA', 'CML III', 'Io Phase',
            'Mag Lat', 'Sun Alt', 'Sun Az', 'Sun HA']
# The mask of each column; None for the plain decimal text of CML III and the times.
COLUMN_MASKS = [None, None, '00.0', '000.0', '00.00', None, '000.00', '00.0', '00.0',
                '000.0', '00.00']


def date_serial(year, month, day):
    """Year, month and day with out-of-range months and days carried over."""
    year += (month - 1) // 12
    month = (month - 1) % 12 + 1
    first = datetime.date(year, month, 1)
    return float((first - ref.EPOCH).days + day - 1)


def whole(text):
    return int(ref.round_half_even(ref.val(text)))


def str_single(x):
    """Str form of a single: up to 7 significant digits, a blank before a non-negative."""
    text = '%.7G' % x
    return text if x < 0 else ' ' + text


def plain_single(x):
    """The fewest digits, seven at most, that read back to the single."""
    for p in range(1, 8):
        text = '%.*G' % (p, x)
        if ref.f32(float(text)) == x:
            break
    return format(decimal.Decimal(text), 'f')


def shortest_single(x):
    for p in range(1, 10):
        text = '%.*g' % (p, x)
        if ref.f32(float(text)) == x:
            return text
    return '%.9g' % x


def hhnn(t):
    f = ref.calendar_fields(t)
    return '%02d:%02d' % (f[3], f[4])


def ymd(t, sep='/'):
    y, m, d = ref.calendar_fields(t)[:3]
    return '%04d%s%02d%s%02d' % (y, sep, m, sep, d)


def window_hour_angle(lst, ra):
    ha = lst - ra
    if ha > 12:
        ha -= 24
    if ha < -12:
        ha += 24
    return ha


def make_core(observer):
    core = ref.Core()
    lat, lng, tz = observer
    core.set_observer(lat, lng, tz)
    return core


# ---------------------------------------------------------------- ephemeris

def ephemeris(observer, year, month, day, interval='30'):
    """(lines, raws): the output lines of `ephemeris`, and for each grid row the raw
    values of its columns (None for a label line or the heading row)."""
    core = make_core(observer)
    i = ref.val(interval)
    if i > 360 or i < 1:
        return ['message: Interval must be 1 to 360 Minutes.'], [None]
    y, m, d = ref.val(year), ref.val(month), ref.val(day)
    if y < 1900 or y > 2300 or m > 12 or m < 1 or d > 31 or d < 1:
        return ['message: Invalid Date'], [None]
    rows = math.floor(1440 / i) + 1
    last = rows - 2
    core.CurrentUT = date_serial(whole(year), whole(month), whole(day))
    lines = ['LBLLocalDate = Local Date Begins: ' + ymd(core.CurrentUT + core.ObsTZ / 24)]
    core.update_day_numbers()
    core.update_positions()
    core.update_de()
    sep = core.angular_separation(core.JupRA, core.JupDec, core.SunRA, core.SunDec)
    lines += [
        'LbLSep = Jup/Sun Angular Separation = ' + ref.mask(sep, '000.0') + ' deg.',
        'LbLJupRA = JUP RA: ' + core.JupRAText,
        'LbLJupDec = JUP DEC: ' + core.JupDecText,
        'LbLSunRA = SUN RA: ' + core.SunRAText,
        'LbLSunDec = SUN DEC: ' + core.SunDecText,
        'LBLDe = De =  ' + ref.mask(core.De, '0.0') + ' deg.',
        'LbLDist = Dist: ' + str_single(core.JupDist) + ' A.U.',
    ]
    raws = [None] * len(lines) + [None]
    lines.append('\t'.join(HEADINGS))
    row = 1
    while True:
        core.update_sidereal_time()
        core.update_positions()
        core.update_mag_lat()
        jha = window_hour_angle(core.LST, core.JupRA)
        sha = window_hour_angle(core.LST, core.SunRA)
        values = [None, None, core.JupAlt, core.JupAz, jha, core.CMLIII, core.IoPhase,
                  core.MagLat, core.SunAlt, core.SunAz, sha]
        cells = [hhnn(core.CurrentUT), hhnn(core.CurrentUT + core.ObsTZ / 24)]
        for c in range(2, 11):
            cells.append(plain_single(values[c]) if c == 5 else ref.mask(values[c], COLUMN_MASKS[c]))
        values[5] = core.CMLUnrounded
        lines.append('\t'.join(cells))
        raws.append(values)
        row += 1
        core.CurrentUT = core.CurrentUT + i / 1440
        if row > last:
            break
    return lines, raws


# ---------------------------------------------------------------- visibility

def year_from_text(text):
    return int(ref.round_half_even(ref.val(text)))


def visibility(observer, year_text, hires):
    """(lines, margins): the output of `visibility`, and for each day the smallest
    |altitude| met, to tell a letter decided at a hair from 0."""
    core = make_core(observer)
    year = year_from_text(year_text)
    if year < 1900 or year > 2100:
        return ['message: You must enter a year between 1900 and 2100'], []
    if hires:
        last_hour, hour_step, time_step = 23.983333, 0.01666666, 1 / 1440
    else:
        last_hour, hour_step, time_step = 23.67, 0.333333, 1 / 72
    d0 = date_serial(year, 1, 1)
    colour = 'N'
    lines, margins = [], []
    for d in range(365):
        core.CurrentUT = d0 + d - core.ObsTZ / 24
        core.update_sidereal_time()
        core.update_sun_jupiter_positions()
        letters = []
        margin = math.inf
        h = 0.0
        while h <= last_hour:
            core.update_sidereal_time()
            core.update_horizon_coords()
            j, s = core.JupAlt, core.SunAlt
            margin = min(margin, abs(j), abs(s))
            if j > 0 and s > 0:
                colour = 'B'
            elif j < 0 and s > 0:
                colour = 'S'
            elif j > 0 and s < 0:
                colour = 'J'
            elif j < 0 and s < 0:
                colour = 'N'
            letters.append(colour)
            core.CurrentUT = core.CurrentUT + time_step
            h += hour_step
        lines.append('%03d %s' % (d, ''.join(letters)))
        margins.append(margin)
    return lines, margins


# ---------------------------------------------------------------- De graph

def de_year(text):
    t = text.strip(' ')
    return t.isdigit() and t.isascii() and 100 <= int(t) <= 9999


def de_graph(from_text, to_text):
    """(lines, values): the output of `de` and the singles behind it."""
    if not de_year(from_text):
        return ['message: You must enter a valid year (YYYY)'], []
    if not de_year(to_text):
        return ['message: You must enter a valid year (YYYY)'], []
    y1, y2 = int(ref.val(from_text)), int(ref.val(to_text))
    step = 1 if y1 == y2 else 10
    if y1 > y2:
        y1, y2 = y2, y1
    start, end = date_serial(y1, 1, 1), date_serial(y2, 12, 31)
    core = ref.Core()
    x = 0
    lines, values = [], []

    def point():
        core.CurrentUT = start + 0.5 + x
        core.update_day_numbers()
        core.update_sun_jupiter_positions()
        core.update_de()
        lines.append('%d,%s' % (x, shortest_single(core.De)))
        values.append(core.De)

    point()
    while True:
        x += step
        point()
        if core.CurrentUT >= end:
            break
    return lines, values


# ---------------------------------------------------------------- Alt/Az table

def altaz_records(observer, start, end, step_text):
    """(records, raws): the 18-byte records of the table file and the four raw values
    of each, or (message, None) for a refusal."""
    step = ref.val(step_text)
    if not step > 0:
        return 'message: The time increment must be more than 0 minutes.', None
    core = make_core(observer)
    core.CurrentUT = date_serial(*(whole(t) for t in start))
    last = date_serial(*(whole(t) for t in end))
    per_day = 1440 / step
    records, raws = [], []
    while True:
        f = ref.calendar_fields(core.CurrentUT)
        if date_serial(f[0], f[1], f[2]) > last:
            break
        core.update_sidereal_time()
        core.update_sun_jupiter_positions()
        core.update_horizon_coords()
        text = ' '.join((ref.mask(core.JupAlt, '00'), ref.mask(core.JupAz, '000'),
                         ref.mask(core.SunAlt, '00'), ref.mask(core.SunAz, '000')))
        records.append((text.ljust(16)[:16] + '\r\n').encode('ascii'))
        raws.append((core.JupAlt, core.JupAz, core.SunAlt, core.SunAz))
        core.CurrentUT = core.CurrentUT + 1 / per_day
    return records, raws
