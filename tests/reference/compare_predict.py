#!/usr/bin/env python3
"""Check tarvelle-cli's `predict` and `report` against the Python reference.

    compare_predict.py CLI_PATH [--seed S] [--count N]

Runs `predict --tables` on a deterministic set of dates, observers, mode sets
and exclusion texts, and `report` over spans that cross months, years, leap
days and a century that is not a leap year, with every report option.

- The minute tables are compared minute for minute. Whole degrees must agree
  exactly, except where the reference's unfloored value lies within a hair of a
  whole degree (a tie: the two cores may round their last bits apart there);
  hour angles are singles and must agree to 2 units in the last place.
- The activity and the grid are recomputed by the reference from the tool's
  own tables and must agree exactly.
- Report files must agree byte for byte. A day that differs only because its
  tables differ at a tie is recomputed from the tool's tables for that day
  (`predict --tables`); then it must agree byte for byte.

Exit status 1 on any mismatch or failed run.
"""

import argparse
import os
import random
import struct
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import core_reference as ref  # noqa: E402
import prediction_reference as pred  # noqa: E402

ALT_TIE = 1e-6     # degrees
LONG_TIE = 1e-3    # degrees; CML III and Io phase are singles of about 360
ULP_TOL = 2

OBSERVERS = [
    ('39:15:00', '76:30:00'),
    ('-33:52:00', '-151:12:00'),
    ('51:28:40', '0:00:05'),
    ('64:50:00', '147:43:00'),
    ('0', '180'),
    ('-45.5', '290.25'),
    ('78:13:00', '344:25:00'),
    ('19:49:00', '155:28:00'),
]

MODE_SETS = {
    'classic': [('Io-A', 200, 270, 195, 265), ('Io-B', 105, 185, 55, 110),
                ('Io-C', 280, 20, 225, 260), ('Io-D', 0, 200, 95, 130),
                ('non-Io-A', 200, 260, 0, 360), ('non-Io-B', 330, 60, 0, 360)],
    'edges': [('full', 0, 360, 0, 360), ('reversed', 0, 360, 200, 100),
              ('wrap-rev', 300, 30, 90, 80), ('one', 42, 42, 0, 360),
              ('wrap', 350, 5, 0, 360), ('Io-low', 0, 360, 0, 1)],
    'many': [('Io-1', 0, 120, 0, 180), ('Io-2', 100, 260, 170, 360),
             ('radio-3', 250, 30, 0, 360), ('Io-4', 359, 0, 0, 360),
             ('Io-5', 360, 360, 0, 360), ('non-6', 90, 100, 60, 61),
             ('seven', 0, 360, 0, 360), ('eight', 0, 360, 0, 360)],
    'few': [('Io-A', 200, 270, 195, 265), ('Io-C', 280, 20, 225, 260)],
}

EXCLUSIONS = [
    None,                                   # the window's defaults
    ('-90', '90', '-48', '48'),             # nothing taken out
    ('5.5', '-6', '-3.25', '4'),
    ('.5x', '-12deg', '&H2', '11.9'),
]

FIXED_DATES = [(2024, 2, 29), (2000, 2, 29), (1900, 3, 1), (2100, 2, 28), (1999, 12, 31),
               (2026, 11, 22)]


def f32_bits(x):
    (i,) = struct.unpack('<i', struct.pack('<f', x))
    return i if i >= 0 else -(i & 0x7fffffff)


def date_text(t):
    y, m, d = ref.calendar_fields(t)[:3]
    return '%04d-%02d-%02d' % (y, m, d)


def reference_core(observer):
    core = ref.Core()
    core.set_observer(*observer)
    return core


class Run:
    """The tool, a folder for its mode files and reports, and the tally."""

    def __init__(self, cli, folder):
        self.cli, self.folder = cli, folder
        self.mode_files = {}
        self.tables_compared = 0
        self.ties = []
        self.cascades = []
        self.mismatches = []

    def mode_file(self, name):
        if name not in self.mode_files:
            path = os.path.join(self.folder, name + '.jmf')
            with open(path, 'w', newline='') as f:
                f.write(pred.mode_file_text(MODE_SETS[name]))
            self.mode_files[name] = path
        return self.mode_files[name]

    def tool(self, args):
        p = subprocess.run([self.cli] + args, capture_output=True, text=True)
        if p.returncode != 0:
            raise RuntimeError('%s: exit %d: %s' % (' '.join(args), p.returncode, p.stderr.strip()))
        return p.stdout

    def predict(self, date, observer, modes, exclusions):
        args = ['predict', '--date', date_text(date), '--modes', self.mode_file(modes),
                '--lat', observer[0], '--lng', observer[1], '--tables']
        if exclusions:
            for key, text in zip(('--jup-alt-min', '--sun-alt-max', '--min-ha', '--max-ha'), exclusions):
                args += [key, text]
        return parse_predict(self.tool(args))

    # -- comparisons

    def compare_tables(self, where, mine, theirs):
        """True when the tables agree, ties apart."""
        ok = True
        for m in range(1, pred.MINUTES + 1):
            self.tables_compared += 1
            for name, raw, tie in (('MinuteCML', mine.raw_cml, LONG_TIE), ('MinuteIo', mine.raw_io, LONG_TIE),
                                   ('MinuteSunAlt', mine.raw_sun_alt, ALT_TIE),
                                   ('MinuteJupAlt', mine.raw_jup_alt, ALT_TIE)):
                a, b = getattr(mine, name)[m], getattr(theirs, name)[m]
                if a == b:
                    continue
                if abs(raw[m] - round(raw[m])) <= tie and abs(a - b) in (1, 359, 360):
                    self.ties.append('%s %s[%d]: %d vs %d' % (where, name, m, a, b))
                else:
                    self.mismatches.append('%s %s[%d]: reference %d, tool %d' % (where, name, m, a, b))
                    ok = False
            a, b = mine.MinuteJupHA[m], theirs.MinuteJupHA[m]
            if a != b:
                if abs(f32_bits(a) - f32_bits(b)) <= ULP_TOL:
                    self.ties.append('%s MinuteJupHA[%d]: %.9g vs %.9g' % (where, m, a, b))
                else:
                    self.mismatches.append('%s MinuteJupHA[%d]: reference %.9g, tool %.9g' % (where, m, a, b))
                    ok = False
        return ok

    def check_predict(self, date, observer, modes, exclusions):
        where = '%s %s %s %s' % (date_text(date), '/'.join(observer), modes, exclusions or 'defaults')
        grid, tables, activity = self.predict(date, observer, modes, exclusions)
        core = reference_core(observer)
        mine = pred.build_prediction_tables(core, date)
        self.compare_tables(where, mine, tables)
        ex = pred.Exclusions(*(exclusions or ()))
        act = pred.compute_report_events(tables, MODE_SETS[modes], ex)
        if act != activity:
            bad = [(i + 1, m) for i in range(len(act)) for m in range(pred.MINUTES + 1)
                   if act[i][m] != activity[i][m]]
            self.mismatches.append('%s ModeActivity differs at %d places, first mode %d minute %d'
                                   % (where, len(bad), *bad[0]))
        expected = pred.fill_grid(MODE_SETS[modes], act)
        if expected != grid:
            self.mismatches.append('%s grid: reference %r, tool %r' % (where, expected, grid))

    def check_report(self, job):
        observer, modes, o, flags = job['observer'], job['modes'], job['options'], job['flags']
        path = os.path.join(self.folder, 'report.txt')
        args = ['report', '--from', date_text(o.start), '--to', date_text(o.end), '--out', path,
                '--modes', self.mode_file(modes), '--lat', observer[0], '--lng', observer[1]] + flags
        self.tool(args)
        with open(path, 'rb') as f:
            theirs = f.read().decode('latin-1')
        core = reference_core(observer)
        mine, days = pred.event_report(core, MODE_SETS[modes], o, observer[0], observer[1])
        where = 'report %s..%s %s' % (date_text(o.start), date_text(o.end), ' '.join(flags))
        if mine == theirs:
            return
        # Walk the days, recomputing a differing day from the tool's own tables.
        pos = 0
        if o.header:
            header = pred.report_header(o, observer[0], observer[1])
            if not theirs.startswith(header):
                self.mismatches.append('%s header: reference %r, tool %r'
                                       % (where, header, theirs[:len(header)]))
                return
            pos = len(header)
        for day, part in days:
            if theirs.startswith(part, pos):
                pos += len(part)
                continue
            _, tables, _ = self.predict(day, observer, modes, None)
            if not self.compare_tables('%s %s' % (where, date_text(day)),
                                       pred.build_prediction_tables(reference_core(observer), day), tables):
                return
            again = pred.report_day_bytes(core, MODE_SETS[modes], o, day, tables)
            if theirs.startswith(again, pos):
                self.cascades.append('%s %s' % (where, date_text(day)))
                pos += len(again)
                continue
            self.mismatches.append('%s %s: first difference %s' % (where, date_text(day),
                                                                   first_difference(again, theirs[pos:])))
            return
        if theirs[pos:] != 'End of Report\r\n\r\n':
            self.mismatches.append('%s ending: %r' % (where, theirs[pos:pos + 80]))


def first_difference(a, b):
    la, lb = a.split('\r\n'), b.split('\r\n')
    for i, (x, y) in enumerate(zip(la, lb)):
        if x != y:
            return 'line %d: reference %r, tool %r' % (i + 1, x, y)
    return 'lengths %d and %d' % (len(a), len(b))


def parse_predict(text):
    """(grid rows, Tables, activity by mode) from `predict --tables` output."""
    lines = text.split('\n')
    blank = lines.index('')
    grid = [line.split('\t') for line in lines[:blank]]
    header = lines[blank + 1].split(',')
    modes = sum(1 for h in header if h.startswith('ModeActivity'))
    t = pred.Tables()
    activity = [[0] * (pred.MINUTES + 1) for _ in range(modes)]
    for line in lines[blank + 2:blank + 2 + pred.MINUTES + 1]:
        v = line.split(',')
        m = int(v[0])
        t.MinuteCML[m], t.MinuteIo[m] = int(v[1]), int(v[2])
        t.MinuteSunAlt[m], t.MinuteJupAlt[m] = int(v[3]), int(v[4])
        t.MinuteJupHA[m] = ref.f32(float(v[5]))
        for i in range(modes):
            activity[i][m] = int(v[6 + i])
    return grid, t, activity


def predict_cases(count, seed):
    rng = random.Random(seed)
    cases = []
    for i, (y, m, d) in enumerate(FIXED_DATES):
        cases.append((ref.date_value(y, m, d), OBSERVERS[i % len(OBSERVERS)],
                      list(MODE_SETS)[i % len(MODE_SETS)], EXCLUSIONS[i % len(EXCLUSIONS)]))
    for _ in range(count):
        day = ref.date_value(1950, 1, 1) + rng.randrange(0, 110 * 365)
        cases.append((day, rng.choice(OBSERVERS), rng.choice(list(MODE_SETS)), rng.choice(EXCLUSIONS)))
    return cases


def report_cases():
    dv = ref.date_value

    def case(observer, modes, start, end, flags, **options):
        o = pred.ReportOptions(dv(*start), dv(*end), **options)
        return {'observer': OBSERVERS[observer], 'modes': modes, 'options': o, 'flags': flags}

    return [
        case(0, 'classic', (2023, 12, 25), (2024, 1, 5), []),
        case(1, 'edges', (2024, 2, 20), (2024, 3, 5), ['--hour-angle', '--min-duration', '7', '--date-format', '1'],
             include_ha=True, min_duration_text='7', date_format=1),
        case(2, 'classic', (2100, 2, 22), (2100, 3, 3),
             ['--io-only', '--no-none', '--min-ha', '-3', '--max-ha', '7.5', '--sun-alt-max', '-6'],
             io_only=True, no_none=True, min_ha='-3', max_ha='7.5', sun_alt_max='-6'),
        case(3, 'few', (1999, 12, 30), (2000, 1, 2), ['--no-header', '--date-format', '2', '--hour-angle'],
             header=False, date_format=2, include_ha=True),
        case(4, 'many', (2000, 2, 27), (2000, 3, 2),
             ['--jup-alt-min', '-90', '--sun-alt-max', '90', '--min-ha', '-48', '--max-ha', '48',
              '--min-duration', '30.5', '--no-none', '--hour-angle', '--io-only'],
             jup_alt_min='-90', sun_alt_max='90', min_ha='-48', max_ha='48', min_duration_text='30.5',
             no_none=True, include_ha=True, io_only=True),
        case(5, 'classic', (1900, 1, 1), (1900, 1, 1), ['--jup-alt-min', '10deg'], jup_alt_min='10deg'),
        case(3, 'edges', (2031, 7, 15), (2031, 8, 15), ['--hour-angle', '--min-duration', '-4', '--sun-alt-max', '25'],
             include_ha=True, min_duration_text='-4', sun_alt_max='25'),
        # Jupiter never rises here: every day is all NONE, and no day leaves a block.
        case(6, 'edges', (2031, 7, 1), (2031, 7, 3), []),
        case(7, 'classic', (2026, 1, 1), (2026, 1, 20), ['--io-only', '--hour-angle', '--min-duration', '12'],
             io_only=True, include_ha=True, min_duration_text='12'),
    ]


def main(argv=None):
    ap = argparse.ArgumentParser(description=__doc__.split('\n\n')[0])
    ap.add_argument('cli')
    ap.add_argument('--seed', type=int, default=20260301)
    ap.add_argument('--count', type=int, default=30, help='random predict cases beyond the fixed ones')
    args = ap.parse_args(argv)

    started = time.time()
    failures = []
    with tempfile.TemporaryDirectory() as folder:
        run = Run(args.cli, folder)
        predicts = predict_cases(args.count, args.seed)
        for case in predicts:
            try:
                run.check_predict(*case)
            except RuntimeError as e:
                failures.append(str(e))
        reports = report_cases()
        report_days = 0
        for job in reports:
            report_days += int(job['options'].end - job['options'].start) + 1
            try:
                run.check_report(job)
            except RuntimeError as e:
                failures.append(str(e))

    print('predict: %d days, %d minutes of tables compared; report: %d reports, %d days; %.1f s'
          % (len(predicts), run.tables_compared, len(reports), report_days, time.time() - started))
    print('ties: %d, days recomputed from the tool\'s tables: %d' % (len(run.ties), len(run.cascades)))
    for line in run.ties[:10] + run.cascades[:10]:
        print('  ' + line)
    for line in failures:
        print('FAILED RUN: ' + line)
    for line in run.mismatches[:30]:
        print('MISMATCH: ' + line)
    if failures or run.mismatches:
        print('%d mismatches, %d failed runs' % (len(run.mismatches), len(failures)))
        return 1
    print('all agree')
    return 0


if __name__ == '__main__':
    sys.exit(main())
