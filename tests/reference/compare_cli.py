#!/usr/bin/env python3
"""Check tarvelle-cli against the Python reference core.

    compare_cli.py CLI_PATH [--count N] [--seed S] [--days N] [--jobs J] [--skip-odd]

Runs `positions` on a deterministic set of instants and observers and
`daytables` on a few dates, and compares every value:

- texts exactly;
- doubles to a relative 1e-9 (absolute 1e-9 near zero), angles modulo their
  turn; date values (DayNumber, JD0, DayMinuteTime) to 1e-8 day;
- singles to 2 units in the last place of IEEE single. CMLIII may be off by
  one step of 0.01 only where the unrounded longitude lies within 1e-6 degree
  of a rounding point (or of the 0/360 fold).

A value that differs only because an input it is built from (a single such as
LST, or an RA a bit away in the last digits) differs within tolerance is
recomputed from the tool's own inputs; if that agrees it counts as a cascade,
not a mismatch. Exit status 1 on any mismatch or failed run.
"""

import argparse
import concurrent.futures
import math
import os
import random
import struct
import subprocess
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import core_reference as ref  # noqa: E402

REL_TOL = 1e-9
ABS_TOL = 1e-9
DATE_TOL = 1e-8          # days
ULP_TOL = 2
CML_TIE_TOL = 1e-6       # degrees

# Period of the fields that wrap; everything else compares straight.
WRAP = {
    'SunRA': 24.0, 'JupRA': 24.0, 'JupAz': 360.0, 'SunAz': 360.0,
    'JupRise': 24.0, 'JupSet': 24.0, 'SunRise': 24.0, 'SunSet': 24.0,
    'DayJupAz': 360.0, 'DaySunAz': 360.0,
}
DATE_FIELDS = {'DayNumber', 'JD0', 'DayMinuteTime'}


# ---------------------------------------------------------------- value checks

def f32_bits(x):
    """Bits of a single as an integer that is monotonic in the value."""
    (i,) = struct.unpack('<i', struct.pack('<f', x))
    return i if i >= 0 else -(i & 0x7fffffff)


def ulp_distance(a, b):
    if math.isnan(a) or math.isnan(b):
        return math.inf
    return abs(f32_bits(a) - f32_bits(b))


def double_error(name, a, b):
    """(error, allowed) for two doubles of the named field."""
    d = a - b
    period = WRAP.get(name)
    if period is not None:
        d -= period * round(d / period)
    d = abs(d)
    if name in DATE_FIELDS:
        return d, DATE_TOL
    return d, max(REL_TOL * max(abs(a), abs(b)), ABS_TOL)


def cml_tie(unrounded):
    """True when the unrounded CML III sits on a rounding point or the fold."""
    frac = 100 * unrounded + 0.5
    near_round = abs(frac - round(frac)) <= 100 * CML_TIE_TOL
    near_fold = min(unrounded, 360 - unrounded) <= CML_TIE_TOL
    return near_round or near_fold


class Tally:
    """Counts, worst errors and the mismatches of one run."""

    def __init__(self):
        self.compared = 0
        self.identical = 0
        self.within = 0
        self.cascades = []
        self.ties = []
        self.mismatches = []
        self.failures = []
        self.worst_double = {}   # field -> (relative error, where)
        self.worst_ulp = {}      # field -> (ulps, where)

    def note_double(self, name, err, scale, where):
        rel = err / max(scale, 1.0)
        if rel > self.worst_double.get(name, (-1.0, ''))[0]:
            self.worst_double[name] = (rel, where)

    def note_ulp(self, name, ulps, where):
        if ulps > self.worst_ulp.get(name, (-1, ''))[0]:
            self.worst_ulp[name] = (ulps, where)


def check_value(tally, name, kind, mine, theirs, where, recompute=None, cml_unrounded=None):
    """Compare one value; recompute(theirs_inputs) gives the cascade value."""
    tally.compared += 1
    if kind == 'text':
        ok = mine == theirs
        if ok:
            tally.identical += 1
            return
    elif kind == 'double':
        if mine == theirs:
            tally.identical += 1
            return
        err, allowed = double_error(name, mine, theirs)
        tally.note_double(name, err, max(abs(mine), abs(theirs)), where)
        if err <= allowed:
            tally.within += 1
            return
    else:
        mine32 = ref.f32(mine)
        if mine32 == theirs:
            tally.identical += 1
            return
        ulps = ulp_distance(mine32, theirs)
        tally.note_ulp(name, ulps, where)
        if ulps <= ULP_TOL:
            tally.within += 1
            return
        if cml_unrounded is not None and abs(abs(mine32 - theirs) - 0.01) < 1e-4 \
                and cml_tie(cml_unrounded):
            tally.ties.append((where, name, mine32, theirs, cml_unrounded))
            return
        if cml_unrounded is not None and {round(mine32, 2), round(theirs, 2)} == {0.0, 360.0} \
                and cml_tie(cml_unrounded):
            tally.ties.append((where, name, mine32, theirs, cml_unrounded))
            return
    if recompute is not None:
        try:
            again = recompute()
        except (ValueError, ZeroDivisionError, OverflowError):
            again = None
        if again is not None and again == mine:
            again = None          # the tool's inputs equal ours: no cascade to speak of
        if again is not None:
            if kind == 'text':
                agrees = again == theirs
            elif kind == 'double':
                err, allowed = double_error(name, again, theirs)
                agrees = err <= allowed
            else:
                agrees = ulp_distance(ref.f32(again), theirs) <= ULP_TOL
            if agrees:
                tally.cascades.append((where, name, mine, theirs))
                return
    tally.mismatches.append((where, name, mine, theirs))


# ---------------------------------------------------------------- cases

HAND_INSTANTS = [
    '2000-01-01 12:00:00', '2000-01-01 00:00:00', '1999-12-31 23:59:59',
    '1900-01-01 00:00:00', '1900-01-01 12:00:00', '1900-01-01 23:59:59',
    '2100-12-31 00:00:00', '2100-12-31 23:59:59', '2100-12-31 12:00:00',
    '1900-02-28 23:59:59', '1900-03-01 00:00:00', '1904-02-29 00:00:00',
    '2000-02-29 12:34:56', '2000-02-29 23:59:59', '2024-02-29 00:00:00',
    '2096-02-29 11:59:59', '2100-02-28 23:59:59', '2100-03-01 00:00:00',
    '1970-01-01 00:00:00', '1999-12-31 12:00:00', '2000-12-31 23:59:59',
    '2023-06-21 12:00:00', '2023-12-22 00:00:00', '1950-03-20 23:59:59',
    '2012-06-30 23:59:59', '2038-01-19 03:14:08', '1999-03-01 00:00:01',
]

# Texts as an observer file may hold them: (latitude, longitude).
HAND_OBSERVERS = [
    ('0', '0'), ('90', '0'), ('-90', '0'), ('90:00:00', '180:00:00'),
    ('-90:00', '-0:00:00'), ('0:00:00', '360'), ('-0:30', '359:59:59'),
    ('-33:52:00', '-151:12:30'), ('39:15:00.0', '76:30:00.0'),
    ('51:28:38', '0:00:00'), ('89.9999', '0.0001'), ('-89:59:59.9', '90:00'),
    ('12,5', '-75:00:00'), ('+45:30', '+120:15'), (' 45:00 ', ' 100 '),
    ('-45:30:30,5', '-0:00:01'), ('66:33:44', '200:30,5'),
]

# Plain numbers keep their sign: a plain negative longitude stays negative
# (LST may then exceed 24). Odd, but what an observer file gives, so both sides
# must agree. --skip-odd leaves them out.
ODD_OBSERVERS = [('45', '-75'), ('-20', '-179.5'), ('60', '4,5')]

# Places past a pole, beyond one turn or beyond any number: refused with a
# message naming the field, never taken as they are.
REFUSED_OBSERVERS = [('95', '10', 'latitude'), ('-100', '200', 'latitude'), ('10', '400', 'longitude'),
                     ('1e309', '10', 'latitude'), ('10', '1e12', 'longitude')]

HAND_DAYS = [
    ('2000-01-01', '0', '0'), ('1900-01-01', '90', '0'),
    ('2100-12-31', '-90', '180:00:00'), ('2024-02-29', '-33:52:00', '-151:12:30'),
    ('1999-12-31', '39:15:00.0', '76:30:00.0'), ('2000-02-29', '-0:30', '359:59:59'),
]

TZ_CHOICES = ['0', '5.5', '-3.5', '14', '-12', '5.75', '-9.5', '1', '-5', '12.75', '3']


def _decimal_text(rng, value):
    return '{:.{}f}'.format(value, rng.randint(0, 5))


def _colon_text(rng, value, with_seconds):
    """d:m or d:m:s text of a non-negative value, minutes or seconds with decimals."""
    d = int(value)
    rest = (value - d) * 60
    pad = rng.random() < 0.3
    head = '{:02d}'.format(d) if pad else str(d)
    if not with_seconds:
        places = rng.randint(0, 2)
        m = round(rest, places)
        if m >= 60:
            m = 59.0
        return '{}:{:0{}.{}f}'.format(head, m, 3 + places if places else 2, places)
    m = int(rest)
    places = rng.randint(0, 2)
    s = round((rest - m) * 60, places)
    if s >= 60:
        s = 59.0
    return '{}:{:02d}:{:0{}.{}f}'.format(head, m, s, 3 + places if places else 2, places)


def random_latitude(rng):
    roll = rng.random()
    if roll < 0.04:
        value = rng.choice([90.0, -90.0, 0.0])
    else:
        value = rng.uniform(-90, 90)
    form = rng.choice(['dec', 'dm', 'dms'])
    if form == 'dec':
        return _decimal_text(rng, value)
    text = _colon_text(rng, abs(value), form == 'dms')
    if ref.parse_latitude(text) > 90 or ref.parse_latitude(text) == ref.REJECTED:
        text = '90:00:00'
    return ('-' + text) if value < 0 else text


def random_longitude(rng):
    roll = rng.random()
    if roll < 0.04:
        return rng.choice(['0', '360', '180', '0:00:00', '-0:00:00', '359:59:59'])
    if roll < 0.35:
        east = rng.uniform(0, 180)
        return '-' + _colon_text(rng, east, rng.random() < 0.7)
    value = rng.uniform(0, 360)
    form = rng.choice(['dec', 'dm', 'dms'])
    if form == 'dec':
        return _decimal_text(rng, value)
    text = _colon_text(rng, value, form == 'dms')
    if ref.parse_longitude(text) == ref.REJECTED:
        text = '359:59:59'
    return text


def random_instant(rng):
    first = ref.date_value(1900, 1, 1)
    last = ref.date_value(2100, 12, 31, 23, 59, 59)
    secs = rng.randint(0, round((last - first) * 86400))
    y, mo, d, h, mi, s = ref.calendar_fields(first + secs / 86400)
    return '{:04d}-{:02d}-{:02d} {:02d}:{:02d}:{:02d}'.format(y, mo, d, h, mi, s)


def make_cases(count, seed, odd=True):
    rng = random.Random(seed)
    cases = []
    for ut in HAND_INSTANTS:
        lat, lng = rng.choice(HAND_OBSERVERS)
        cases.append(('hand', ut, lat, lng, rng.choice(TZ_CHOICES)))
    for lat, lng in HAND_OBSERVERS:
        cases.append(('hand', '2000-01-01 12:00:00', lat, lng, '0'))
        cases.append(('hand', random_instant(rng), lat, lng, rng.choice(TZ_CHOICES)))
    for lat, lng in ODD_OBSERVERS if odd else []:
        for _ in range(3):
            cases.append(('odd', random_instant(rng), lat, lng, rng.choice(TZ_CHOICES)))
    while len(cases) < count:
        tz = rng.choice(TZ_CHOICES) if rng.random() < 0.5 else str(rng.randint(-24, 28) / 2)
        cases.append(('random', random_instant(rng), random_latitude(rng),
                      random_longitude(rng), tz))
    return cases


def make_days(count, seed):
    rng = random.Random(seed + 7919)
    days = list(HAND_DAYS[:count])
    while len(days) < count:
        y, mo, d = random_instant(rng).split()[0].split('-')
        days.append(('{}-{}-{}'.format(y, mo, d), random_latitude(rng), random_longitude(rng)))
    return days


# ---------------------------------------------------------------- running the tool

def run_tool(argv):
    try:
        done = subprocess.run(argv, capture_output=True, text=True, timeout=60)
    except (OSError, subprocess.TimeoutExpired) as exc:
        return None, str(exc)
    if done.returncode != 0:
        return None, 'exit {}: {}'.format(done.returncode, done.stderr.strip()[:300])
    return done.stdout, None


def parse_positions(text):
    values = {}
    for line in text.splitlines():
        name, sep, value = line.partition(' = ')
        if sep:
            values[name.strip()] = value
    return values


# ---------------------------------------------------------------- comparisons

def compare_positions(tally, case, output):
    group, ut, lat, lng, tz = case
    where = '{} ut="{}" lat="{}" lng="{}" tz={}'.format(group, ut, lat, lng, tz)
    core = ref.Core()
    core.set_observer(lat, lng, float(tz))
    mine = core.positions(ref.parse_ut(ut))
    theirs = parse_positions(output)
    got = {}
    for name, kind in ref.POSITION_FIELDS:
        if name not in theirs:
            tally.mismatches.append((where, name, mine[name], '<missing>'))
            continue
        if kind == 'text':
            got[name] = theirs[name]
        else:
            try:
                got[name] = float(theirs[name])
                if kind == 'single':
                    got[name] = ref.f32(got[name])
            except (ValueError, OverflowError):
                tally.mismatches.append((where, name, mine[name], theirs[name]))
    if len(got) != len(ref.POSITION_FIELDS):
        return

    lat32 = core.ObsLatitude
    recompute = {
        'SunRAText': lambda: ref.format_hours(got['SunRA']),
        'JupRAText': lambda: ref.format_hours(got['JupRA']),
        'SunDecText': lambda: ref.format_degrees(got['SunDec']),
        'JupDecText': lambda: ref.format_degrees(got['JupDec']),
        'MagLat': lambda: _mag_lat(got['CMLIII']),
        'De': lambda: _de(got['JupRA'], got['JupDec']),
        'JupAlt': lambda: ref.Core.to_horizontal(lat32, got['LST'], got['JupRA'], got['JupDec'])[0],
        'JupAz': lambda: ref.Core.to_horizontal(lat32, got['LST'], got['JupRA'], got['JupDec'])[1],
        'SunAlt': lambda: ref.Core.to_horizontal(lat32, got['LST'], got['SunRA'], got['SunDec'])[0],
        'SunAz': lambda: ref.Core.to_horizontal(lat32, got['LST'], got['SunRA'], got['SunDec'])[1],
        'JupRise': lambda: ref.Core.rise_set(lat32, got['LST0'], got['JupRA'], got['JupDec'])[0],
        'JupSet': lambda: ref.Core.rise_set(lat32, got['LST0'], got['JupRA'], got['JupDec'])[1],
        'SunRise': lambda: ref.Core.rise_set(lat32, got['LST0'], got['SunRA'], got['SunDec'])[0],
        'SunSet': lambda: ref.Core.rise_set(lat32, got['LST0'], got['SunRA'], got['SunDec'])[1],
    }
    for name, kind in ref.POSITION_FIELDS:
        check_value(tally, name, kind, mine[name], got[name], where,
                    recompute=recompute.get(name),
                    cml_unrounded=core.CMLUnrounded if name == 'CMLIII' else None)


def _mag_lat(cml):
    c = ref.Core()
    c.CMLIII = cml
    c.update_mag_lat()
    return c.MagLat


def _de(ra, dec):
    c = ref.Core()
    c.JupRA, c.JupDec = ra, dec
    c.update_de()
    return c.De


def compare_day(tally, day, output):
    date, lat, lng = day
    y, mo, d = (int(v) for v in date.split('-'))
    core = ref.Core()
    core.set_observer(lat, lng)
    record = []
    core.build_day_tables(ref.date_value(y, mo, d), record)
    lines = output.splitlines()
    header = 'index,' + ','.join(name for name, _ in ref.DAY_COLUMNS)
    base = 'daytables date={} lat="{}" lng="{}"'.format(date, lat, lng)
    if not lines or lines[0].strip() != header:
        tally.mismatches.append((base, 'header', header, lines[0] if lines else '<empty>'))
        return
    rows = [line for line in lines[1:] if line.strip()]
    if len(rows) != ref.DAY_STEPS:
        tally.mismatches.append((base, 'rows', ref.DAY_STEPS, len(rows)))
        return
    lat32 = core.ObsLatitude
    for k, line in enumerate(rows):
        cells = line.split(',')
        where = '{} index={}'.format(base, k)
        if len(cells) != len(ref.DAY_COLUMNS) + 1 or cells[0].strip() != str(k):
            tally.mismatches.append((where, 'row', '{} cells'.format(len(ref.DAY_COLUMNS) + 1), line))
            continue
        try:
            got = {name: float(cell) if kind == 'double' else ref.f32(float(cell))
                   for (name, kind), cell in zip(ref.DAY_COLUMNS, cells[1:])}
        except (ValueError, OverflowError):
            tally.mismatches.append((where, 'row', 'numbers', line))
            continue
        jra, jdec, sra, sdec, cml_c = record[k]
        lst = got['DayLST']
        recompute = {
            'DayJupAlt': lambda: ref.Core.to_horizontal(lat32, lst, jra, jdec)[0],
            'DayJupAz': lambda: ref.Core.to_horizontal(lat32, lst, jra, jdec)[1],
            'DaySunAlt': lambda: ref.Core.to_horizontal(lat32, lst, sra, sdec)[0],
            'DaySunAz': lambda: ref.Core.to_horizontal(lat32, lst, sra, sdec)[1],
            'DayJupHA': lambda: ref.Core.jup_hour_angle(lst, jra),
            'DaySunHA': lambda: ref.Core.sun_hour_angle(lst, sra),
        }
        for name, kind in ref.DAY_COLUMNS:
            check_value(tally, name, kind, getattr(core, name)[k], got[name], where,
                        recompute=recompute.get(name),
                        cml_unrounded=cml_c if name == 'DayCML' else None)


# ---------------------------------------------------------------- report

def show(v):
    if isinstance(v, float):
        return '{:.17g}'.format(v)
    return repr(v)


def report(tally, cases, days, seconds, shown):
    print('tarvelle-cli against the reference: {} positions cases, {} daytables dates, {:.1f} s'
          .format(cases, days, seconds))
    print('  values compared: {}  identical: {}  within tolerance: {}  cascades: {}  '
          'CML ties: {}  mismatches: {}  failed runs: {}'.format(
              tally.compared, tally.identical, tally.within, len(tally.cascades),
              len(tally.ties), len(tally.mismatches), len(tally.failures)))
    if tally.worst_double:
        print('  worst double errors, cascades included (relative to max(|value|, 1)):')
        for name, (rel, where) in sorted(tally.worst_double.items(), key=lambda kv: -kv[1][0]):
            print('    {:14s} {:.3g}  at {}'.format(name, rel, where))
    if tally.worst_ulp:
        print('  worst single errors, cascades included (ulps):')
        for name, (ulps, where) in sorted(tally.worst_ulp.items(), key=lambda kv: -kv[1][0]):
            print('    {:14s} {}  at {}'.format(name, ulps, where))
    for title, items in (('CML ties', tally.ties), ('cascades', tally.cascades)):
        for item in items[:shown]:
            print('  {}: {} {}: reference {} tool {}'.format(
                title[:-1], item[0], item[1], show(item[2]), show(item[3])))
    for where, why in tally.failures[:shown]:
        print('  FAILED RUN {}: {}'.format(where, why))
    for where, name, mine, theirs in tally.mismatches[:shown]:
        print('  MISMATCH {} {}: reference {} tool {}'.format(where, name, show(mine), show(theirs)))
    if len(tally.mismatches) > shown:
        by_field = {}
        for _, name, _, _ in tally.mismatches:
            by_field[name] = by_field.get(name, 0) + 1
        print('  mismatches by field: ' + ', '.join(
            '{} {}'.format(k, v) for k, v in sorted(by_field.items(), key=lambda kv: -kv[1])))


def main(argv=None):
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument('cli')
    parser.add_argument('--count', type=int, default=400, help='positions cases, at least the hand-picked ones (default 400)')
    parser.add_argument('--seed', type=int, default=1)
    parser.add_argument('--days', type=int, default=12, help='daytables dates (default 12)')
    parser.add_argument('--jobs', type=int, default=os.cpu_count() or 2)
    parser.add_argument('--show', type=int, default=8, help='mismatches to print')
    parser.add_argument('--skip-odd', action='store_true',
                        help='leave out observers outside 0..360 / -90..90 as plain numbers')
    args = parser.parse_args(argv)

    start = time.time()
    cases = make_cases(args.count, args.seed, odd=not args.skip_odd)
    days = make_days(args.days, args.seed)
    tally = Tally()
    with concurrent.futures.ThreadPoolExecutor(max_workers=max(1, args.jobs)) as pool:
        pos_jobs = [pool.submit(run_tool, [args.cli, 'positions', '--ut', ut, '--lat', lat,
                                           '--lng', lng, '--tz', tz])
                    for _, ut, lat, lng, tz in cases]
        day_jobs = [pool.submit(run_tool, [args.cli, 'daytables', '--date', date, '--lat', lat,
                                           '--lng', lng, '--tz', '0'])
                    for date, lat, lng in days]
        for case, job in zip(cases, pos_jobs):
            output, error = job.result()
            if error:
                tally.failures.append(('positions ' + repr(case), error))
            else:
                compare_positions(tally, case, output)
        for day, job in zip(days, day_jobs):
            output, error = job.result()
            if error:
                tally.failures.append(('daytables ' + repr(day), error))
            else:
                compare_day(tally, day, output)
    for lat, lng, field in REFUSED_OBSERVERS:
        done = subprocess.run([args.cli, 'positions', '--ut', '2000-01-01 00:00:00', '--lat', lat, '--lng', lng],
                              capture_output=True, text=True, timeout=60)
        if done.returncode != 2 or field not in done.stderr:
            tally.failures.append((f'refusal of --lat {lat} --lng {lng}',
                                   f'exit {done.returncode}: {done.stderr.strip()}'))
    report(tally, len(cases), len(days), time.time() - start, args.show)
    return 1 if tally.mismatches or tally.failures else 0


if __name__ == '__main__':
    sys.exit(main())
