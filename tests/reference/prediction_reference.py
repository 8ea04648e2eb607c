#!/usr/bin/env python3
"""Plain-Python reference of Tarvelle's daily prediction and event report.

Written apart from the C++ code, from the same rules, on top of the reference
core (core_reference.py). Standard library only.

- build_prediction_tables: the minute tables of a GMT date (rows 0 to 1440).
- mode_match, match_modes, compute_report_events: the activity by mode and
  minute (1 active, 0 not, -1 taken out by an exclusion), with the duration
  filter of a report.
- fill_grid: the prediction window's grid, rows of seven cell texts.
- report_header, day_block, event_report: the report file's text, CR LF line
  ends, byte for byte.

A mode is a tuple (name, cml1, cml2, io1, io2). Only the first six modes are
predicted.
"""

import math
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import core_reference as ref  # noqa: E402

MINUTES = 1440
PREDICTED_MODES = 6
BASE = 0.006944444                 # 00:10: the day's positions are taken there
LST_STEP = 0.016712298             # sidereal hours in one minute
CML_STEP = 0.6045389117618717      # degrees of CML III a minute
IO_STEP = 0.14132278123233466      # degrees of Io phase a minute
IO_MARGIN = 0.07066139061616733    # half of IO_STEP
CML_MARGIN = 0.30226945588093584   # half of CML_STEP
CRLF = '\r\n'
RULE = '_' * 31


# ---------------------------------------------------------------- minute tables

def _whole_degrees(x):
    v = math.floor(x)
    while v >= 361:
        v -= 360
    return v


class Tables:
    """Rows 0 to 1440 of one date; the unfloored values ride along for checks."""

    def __init__(self):
        n = MINUTES + 1
        self.MinuteCML = [0] * n
        self.MinuteIo = [0] * n
        self.MinuteSunAlt = [0] * n
        self.MinuteJupAlt = [0] * n
        self.MinuteJupHA = [0.0] * n
        self.raw_cml = [0.0] * n
        self.raw_io = [0.0] * n
        self.raw_sun_alt = [0.0] * n
        self.raw_jup_alt = [0.0] * n


def build_prediction_tables(core, date):
    t = Tables()
    kept_lst = core.LST
    core.CurrentUT = math.floor(date) + BASE
    core.update_sidereal_time()
    core.update_sun_jupiter_positions()
    core.update_cml_iii(core.CurrentUT)
    core.update_io_phase(core.DayNumber)
    core.update_rise_set()
    cml0, io0 = core.CMLIII, core.IoPhase
    for m in range(1, MINUTES + 1):
        core.LST = ref.f32(core.LST + LST_STEP)
        core.update_horizon_coords()
        ha = core.LST - core.JupRA
        if ha < -12:
            ha += 24
        if ha > 12:
            ha -= 24
        t.MinuteJupHA[m] = ref.f32(ha)
        t.raw_jup_alt[m], t.raw_sun_alt[m] = core.JupAlt, core.SunAlt
        t.MinuteJupAlt[m] = math.floor(core.JupAlt)
        t.MinuteSunAlt[m] = math.floor(core.SunAlt)
        t.raw_cml[m] = cml0 + (m - 1) * CML_STEP
        t.raw_io[m] = io0 + (m - 1) * IO_STEP
        t.MinuteCML[m] = _whole_degrees(t.raw_cml[m])
        t.MinuteIo[m] = _whole_degrees(t.raw_io[m])
    core.LST = kept_lst
    core.restore_current_time()
    return t


# ---------------------------------------------------------------- the match

def mode_match(cml, io, mode):
    _, cml1, cml2, io1, io2 = mode
    if io < io1 - IO_MARGIN or io > io2 + IO_MARGIN:
        return 0
    top = cml2 if cml2 >= cml1 else 360
    element = 1 if (cml1 - CML_MARGIN <= cml and cml <= top + CML_MARGIN) else 0
    if cml2 < cml1 and cml <= cml2 + CML_MARGIN:
        element = 1
    return element


def predicted(modes):
    return modes[:PREDICTED_MODES]


def match_modes(t, modes):
    """activity[i][m] for i = 0.. (mode i + 1) and m = 0..1440."""
    act = [[0] * (MINUTES + 1) for _ in predicted(modes)]
    for m in range(1, MINUTES + 1):
        for i, mode in enumerate(predicted(modes)):
            act[i][m] = mode_match(t.MinuteCML[m], t.MinuteIo[m], mode)
    return act


class Exclusions:
    def __init__(self, jup_alt_min='0', sun_alt_max='0', min_ha='-6', max_ha='6'):
        self.jup_alt_min = ref.f32(ref.val(jup_alt_min))
        self.sun_alt_max = ref.f32(ref.val(sun_alt_max))
        self.min_ha = ref.val(min_ha)
        self.max_ha = ref.val(max_ha)


def compute_report_events(t, modes, ex, in_report=False, min_duration=0.0):
    act = [[0] * (MINUTES + 1) for _ in predicted(modes)]
    for m in range(1, MINUTES + 1):
        for i, mode in enumerate(predicted(modes)):
            e = mode_match(t.MinuteCML[m], t.MinuteIo[m], mode)
            if e == 1 and (t.MinuteJupAlt[m] < ex.jup_alt_min
                           or t.MinuteSunAlt[m] > ex.sun_alt_max
                           or t.MinuteJupHA[m] < ex.min_ha
                           or t.MinuteJupHA[m] > ex.max_ha):
                e = -1
            act[i][m] = e
    if in_report and min_duration > 0:
        for row in act:
            s = 0
            while True:
                s += 1
                if row[s] == 1:
                    e = s
                    while e < MINUTES and row[e] == 1:
                        e += 1
                    if e - s < min_duration:
                        for k in range(s, e):
                            row[k] = 0
                    s = e
                if not s < MINUTES:
                    break
    return act


# ---------------------------------------------------------------- the grid

def minutes_to_hhmm(minutes):
    return '%02d:%02d' % (minutes // 60, minutes % 60)


def fill_grid(modes, act):
    """The grid of a fresh window after one prediction: rows of seven texts."""
    n = len(predicted(modes))
    grid = [[''] * 7 for _ in range(n + 1)]
    for c in range(1, n + 1):
        grid[0][c] = 'Begin' if c % 2 == 1 else ' End'
    for i in range(n):
        row, el = grid[i + 1], act[i]
        row[0] = modes[i][0]
        m = 0
        while not (el[m] == 1 or m == MINUTES):
            m += 1
        if m == MINUTES:
            row[1] = 'NONE'
            continue
        col = 1
        for _ in range(3):
            row[col] = minutes_to_hhmm(m - 1)
            while not (el[m] < 1 or m >= MINUTES):
                m += 1
            col += 1
            row[col] = minutes_to_hhmm(m - 1)
            if m >= MINUTES:
                break
            col += 1
            while not (el[m] == 1 or m >= MINUTES):
                m += 1
            if m >= MINUTES:
                break
    return grid


# ---------------------------------------------------------------- the report

class ReportOptions:
    def __init__(self, start, end, min_duration_text='0', header=True, include_ha=False,
                 io_only=False, no_none=False, jup_alt_min='0', sun_alt_max='0',
                 min_ha='-6', max_ha='6', date_format=0, version='3.8.2'):
        self.start, self.end = start, end
        minimum = ref.val(min_duration_text)
        self.min_duration = ref.f32(0.0 if minimum < 0 else minimum)
        self.header, self.include_ha = header, include_ha
        self.io_only, self.no_none = io_only, no_none
        self.jup_alt_min, self.sun_alt_max = jup_alt_min, sun_alt_max
        self.min_ha, self.max_ha = min_ha, max_ha
        self.date_format, self.version = date_format, version


def date_by_choice(t, choice):
    """(text, heading) of a date in the chosen order."""
    y, mo, d = ref.calendar_fields(t)[:3]
    if choice == 0:
        return '%04d/%02d/%02d' % (y, mo, d), 'YYYY  MM  DD'
    if choice == 1:
        return '%02d/%02d/%04d' % (mo, d, y), 'MM  DD YYYY'
    return '%02d/%02d/%04d' % (d, mo, y), 'DD  MM  YYYY'


def str_single(x):
    """The Str form of a single: a blank before a number that is not negative."""
    text = '%.7G' % ref.f32(x)
    return text if x < 0 else ' ' + text


def report_header(o, lat_text, lng_text, display_west='W'):
    start, _ = date_by_choice(o.start, o.date_format)
    end, heading = date_by_choice(o.end, o.date_format)
    writes = [
        'JUPITER EVENT PREDICTIONS' + CRLF,
        'Report Period  (GMT) ' + start + '  to  ' + end + '    ( '
        + heading.replace('/', '  ') + ' )',
        'Reference Coordinates:  Longitude ' + lng_text + ' ' + display_west
        + '     Latitude ' + lat_text,
        'Exclude times when Jupiter is below ' + o.jup_alt_min + ' deg.',
        'Exclude times when Sun is above ' + o.sun_alt_max + ' deg.',
        'Include only events that last at least ' + str_single(o.min_duration) + ' minutes.',
        'Tarvelle Software Version ' + o.version + CRLF,
    ]
    return ''.join(w + CRLF for w in writes)


def row_text(cells):
    out = ''
    for cell in cells:
        out += (cell + ' ').ljust(10) + (CRLF if cell == 'NONE' else '')
    return out


def hour_angle_row(cells, ha_table):
    out = ''
    for c, cell in enumerate(cells):
        if cell == '':
            continue
        if c == 0:
            out += ' Hr Ang    '
        elif cell == 'NONE':
            out += ' ' * 10
        else:
            hh, mm = int(cell[:2]), int(cell[3:5])
            out += ref.mask(ha_table[hh * 60 + mm], '00.0').ljust(10)
    return out


def day_block(day, grid, t, o):
    y, mo, d = ref.calendar_fields(day)[:3]
    block = '< Year %d   Month %d   Day %d >' % (y, mo, d) + CRLF + CRLF
    for r, cells in enumerate(grid):
        text = row_text(cells)
        ha = hour_angle_row(cells, t.MinuteJupHA) if (o.include_ha and r > 0) else ''
        if o.io_only and 'Begin' in text:
            text = text[:30]
        if o.io_only and 'Io' not in text and 'Begin' not in text and 'Month' not in text:
            continue
        if 'NONE' in text and o.no_none:
            continue
        block += text + CRLF
        if 'NONE' not in text and o.include_ha:
            block += ha + CRLF + CRLF
    return block + RULE + CRLF


def block_bytes(block):
    return block + CRLF if ':' in block else ''


def predict_day(core, modes, ex, date, in_report=False, min_duration=0.0):
    """(tables, activity, grid) of one date as the prediction window makes them."""
    core.save_current_time()
    t = build_prediction_tables(core, date)
    act = compute_report_events(t, modes, ex, in_report, min_duration)
    grid = fill_grid(modes, act)
    core.restore_current_time()
    return t, act, grid


def report_day_bytes(core, modes, o, day, tables=None):
    """What one day adds to the report; with tables given, those are used instead."""
    ex = Exclusions(o.jup_alt_min, o.sun_alt_max, o.min_ha, o.max_ha)
    if tables is None:
        tables, _, grid = predict_day(core, modes, ex, day, True, o.min_duration)
    else:
        grid = fill_grid(modes, compute_report_events(tables, modes, ex, True, o.min_duration))
    return block_bytes(day_block(day, grid, tables, o))


def event_report(core, modes, o, lat_text, lng_text):
    """The report file's text, and the per-day parts in order as (day, bytes)."""
    text = report_header(o, lat_text, lng_text) if o.header else ''
    days = []
    day = o.start
    while True:
        part = report_day_bytes(core, modes, o, day)
        days.append((day, part))
        text += part
        day += 1
        if day > o.end:
            break
    return text + 'End of Report' + CRLF + CRLF, days


# ---------------------------------------------------------------- mode files

def mode_file_text(modes):
    """Records of five CR LF lines: the name, then the four numbers with their blanks."""
    out = ''
    for name, *numbers in modes:
        out += name + CRLF
        for v in numbers:
            out += (' ' if v >= 0 else '') + str(v) + ' ' + CRLF
    return out
