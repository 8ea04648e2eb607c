#!/usr/bin/env python3
"""Check tarvelle-cli's `ephemeris`, `visibility`, `de` and `altaz-table` against
the Python reference of tables_reference.py.

    compare_tables.py CLI_PATH

Runs a fixed set of dates, observers, intervals, years and spans, refusals
included (invalid dates, intervals and years out of range, 29 February, an end
date before the start), and compares every line and every byte.

A text that differs is accepted only as a tie: the reference's unrounded value
lies within a hair of the point where its mask rounds (1e-7 of the last shown
unit; CML III within 1e-6 degree of a 0.01 rounding point), so that the two
cores, which agree to about 1e-12, may round apart there. A visibility letter
may differ only on a day where an altitude came within 1e-7 degree of 0. De
points are singles and must agree to 2 units in the last place.

Exit status 1 on any mismatch or failed run.
"""

import os
import struct
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import tables_reference as tab  # noqa: E402

MASK_TIE = 1e-7
CML_TIE = 1e-6
ALT_TIE = 1e-7
ULP_TOL = 2

# (latitude text, longitude text west, time zone hours)
OBSERVERS = [
    ('39:15:00', '76:30:00', '-5'),
    ('-33:52:00', '-151:12:00', '10'),
    ('51:28:40', '0:00:05', '0'),
    ('64:50:00', '147:43:00', '-9'),
    ('0', '180', '12'),
    ('-45.5', '290.25', '4.5'),
    ('78:13:00', '344:25:00', '1'),
]

EPHEMERIS_CASES = [
    (('2024', '2', '29'), '30'),
    (('2000', '2', '29'), '360'),
    (('1900', '2', '29'), '60'),      # no such day: carried into March
    (('2023', '2', '31'), '45'),
    (('1900', '1', '1'), '7'),
    (('2300', '12', '31'), '120'),
    (('2026', '11', '23'), '1'),
    (('1999', '12', '31'), '2.5'),
    (('2010', '6', '15'), ' 15min'),
    (('2012', '07', '04'), '359.9'),
    (('1899', '12', '31'), '30'),      # refused
    (('2301', '1', '1'), '30'),
    (('2024', '13', '1'), '30'),
    (('2024', '0', '10'), '30'),
    (('2024', '1', '32'), '30'),
    (('2024', '1', '0'), '30'),
    (('2024', '5', '5'), '0'),
    (('2024', '5', '5'), '361'),
    (('2024', '5', '5'), 'abc'),
    (('abc', '5', '5'), '60'),
]

VISIBILITY_CASES = [('2024', False), ('1900', False), ('2100', False), (' 2001', False),
                    ('1987.4', False), ('1899', False), ('2101', False), ('abc', False),
                    ('2023', True)]

DE_CASES = [('2000', '2000'), ('1999', '2000'), ('2005', '2001'), (' 2010 ', '2012'),
            ('100', '100'), ('1900', '2100'), ('abc', '2000'), ('2000', '20x0'),
            ('99', '2000'), ('2000', '10000'), ('', '2000'), ('2000.5', '2001')]

ALTAZ_CASES = [
    (('2024', '2', '29'), ('2024', '2', '29'), '60'),
    (('2024', '2', '28'), ('2024', '3', '1'), '10'),
    (('2000', '2', '29'), ('2000', '3', '2'), '7'),
    (('2023', '12', '31'), ('2024', '1', '1'), '240'),
    (('2024', '13', '1'), ('2025', '1', '2'), '90'),    # month 13 carries into January
    (('2024', '5', '10'), ('2024', '5', '9'), '60'),    # end before start: empty file
    (('2024', '5', '10'), ('2024', '5', '10'), '0'),    # refused
    (('2024', '5', '10'), ('2024', '5', '10'), '1'),
    (('2024', '1', '31'), ('2024', '2', '1'), '0.7'),
]


def f32_bits(x):
    (i,) = struct.unpack('<i', struct.pack('<f', x))
    return i if i >= 0 else -(i & 0x7fffffff)


def near_rounding_point(raw, decimals):
    scaled = abs(raw) * 10 ** decimals
    return abs(scaled - int(scaled) - 0.5) <= MASK_TIE * 10 ** decimals


def decimals_of(mask):
    return len(mask.partition('.')[2])


class Run:
    def __init__(self, cli):
        self.cli = cli
        self.compared = 0
        self.ties = []
        self.mismatches = []

    def start(self, args):
        """The tool runs while the reference computes."""
        return args, subprocess.Popen([self.cli] + args, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                      text=True)

    @staticmethod
    def finish(started):
        args, p = started
        out, err = p.communicate()
        if p.returncode != 0:
            raise RuntimeError('%s: exit %d: %s' % (' '.join(args), p.returncode, err.strip()))
        return out.split('\n')[:-1]

    def tool(self, args):
        return self.finish(self.start(args))

    def fail(self, text):
        self.mismatches.append(text)

    # -- ephemeris

    def ephemeris_cell(self, where, c, mine, theirs, raw):
        if raw is None:
            return False
        if c == 5:
            return abs(float(mine) - float(theirs)) <= 0.0100001 and (
                abs(100 * raw[5] + 0.5 - round(100 * raw[5] + 0.5)) <= 100 * CML_TIE)
        mask = tab.COLUMN_MASKS[c]
        return mask is not None and near_rounding_point(raw[c], decimals_of(mask))

    def paired_lines(self, where, args, reference):
        """The reference's result and the tool's lines side by side, counted; None when
        the numbers of lines differ. The tool runs while the reference computes."""
        started = self.start(args)
        result = reference()
        theirs = self.finish(started)
        mine = result[0]
        if len(mine) != len(theirs):
            self.fail('%s: %d lines, tool %d' % (where, len(mine), len(theirs)))
            return None, result
        self.compared += len(mine)
        return list(enumerate(zip(mine, theirs))), result

    def ephemeris(self, observer, date, interval):
        lat, lng, tz = observer
        where = 'ephemeris %s-%s-%s i=%r at %s' % (date + (interval, lat))
        args = ['ephemeris', '--date', '-'.join(date), '--interval', interval,
                '--lat', lat, '--lng', lng, '--tz', tz]
        pairs, (_, raws) = self.paired_lines(where, args, lambda: tab.ephemeris(observer, *date, interval))
        for n, (a, b) in pairs or []:
            if a == b:
                continue
            ca, cb = a.split('\t'), b.split('\t')
            bad = len(ca) != len(cb) or any(
                x != y and not self.ephemeris_cell(where, c, x, y, raws[n])
                for c, (x, y) in enumerate(zip(ca, cb)))
            (self.fail if bad else self.ties.append)('%s line %d: %r vs %r' % (where, n, a, b))

    # -- visibility

    def visibility(self, observer, year, hires):
        lat, lng, tz = observer
        where = 'visibility %r%s at %s' % (year, ' hires' if hires else '', lat)
        args = ['visibility', '--year', year, '--lat', lat, '--lng', lng, '--tz', tz]
        pairs, (_, margins) = self.paired_lines(where, args + (['--hires'] if hires else []),
                                                lambda: tab.visibility(observer, year, hires))
        tie_seen = False
        for n, (a, b) in pairs or []:
            tie_seen = tie_seen or (n < len(margins) and margins[n] <= ALT_TIE)
            if a != b:
                (self.ties.append if tie_seen else self.fail)('%s day %d differs' % (where, n))

    # -- De

    def de(self, y1, y2):
        where = 'de %r %r' % (y1, y2)
        pairs, (_, values) = self.paired_lines(where, ['de', '--from-year', y1, '--to-year', y2],
                                               lambda: tab.de_graph(y1, y2))
        for n, (a, b) in pairs or []:
            if a == b:
                continue
            xa, _, va = a.partition(',')
            xb, _, vb = b.partition(',')
            close = bool(values) and xa == xb and abs(f32_bits(float(va)) - f32_bits(float(vb))) <= ULP_TOL
            (self.ties.append if close else self.fail)('%s point %d: %r vs %r' % (where, n, a, b))

    # -- Alt/Az table

    def altaz(self, folder, observer, start, end, step):
        lat, lng, tz = observer
        where = 'altaz-table %s..%s step %r at %s' % ('-'.join(start), '-'.join(end), step, lat)
        path = os.path.join(folder, 'table.dat')
        if os.path.exists(path):
            os.remove(path)
        args = ['altaz-table', '--from', '-'.join(start), '--to', '-'.join(end), '--step', step,
                '--out', path, '--lat', lat, '--lng', lng, '--tz', tz]
        out = self.tool(args)
        records, raws = tab.altaz_records(observer, start, end, step)
        self.compared += 1
        if raws is None:
            if out != [records] or os.path.exists(path):
                self.fail('%s: %r, tool %r' % (where, records, out))
            return
        with open(path, 'rb') as f:
            data = f.read()
        if len(data) != 18 * len(records):
            self.fail('%s: %d bytes, tool %d' % (where, 18 * len(records), len(data)))
            return
        for k, rec in enumerate(records):
            got = data[18 * k:18 * k + 18]
            self.compared += 1
            if got != rec:
                tie = any(near_rounding_point(v, 0) for v in raws[k])
                (self.ties.append if tie else self.fail)('%s record %d: %r vs %r' % (where, k, rec, got))
        # A second run appends, as a binary open at the end of the file does.
        self.tool(args)
        with open(path, 'rb') as f:
            if f.read() != data + data:
                self.fail('%s: a second run does not append' % where)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    run = Run(sys.argv[1])
    try:
        for k, (date, interval) in enumerate(EPHEMERIS_CASES):
            for observer in (OBSERVERS[k % len(OBSERVERS)], OBSERVERS[(k + 3) % len(OBSERVERS)]):
                run.ephemeris(observer, date, interval)
        for k, (year, hires) in enumerate(VISIBILITY_CASES):
            run.visibility(OBSERVERS[(3 * k + 1) % len(OBSERVERS)], year, hires)
        for y1, y2 in DE_CASES:
            run.de(y1, y2)
        with tempfile.TemporaryDirectory() as folder:
            for k, (start, end, step) in enumerate(ALTAZ_CASES):
                run.altaz(folder, OBSERVERS[k % len(OBSERVERS)], start, end, step)
    except RuntimeError as e:
        print('FAILED RUN:', e)
        return 1
    print('compared %d lines and records; %d ties; %d mismatches'
          % (run.compared, len(run.ties), len(run.mismatches)))
    for t in run.ties[:20]:
        print('tie:', t)
    for m in run.mismatches[:40]:
        print('MISMATCH:', m)
    return 1 if run.mismatches else 0


if __name__ == '__main__':
    sys.exit(main())
