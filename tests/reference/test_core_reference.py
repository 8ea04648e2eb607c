#!/usr/bin/env python3
"""Self-checks of the reference core: documented edge cases and almanac facts.

    python3 test_core_reference.py

Expected values come from the documented behaviour (text forms, parser
results, day-table steps) or from outside facts (Julian dates, sidereal time at
J2000, solstices); tolerances follow the accuracy of the two-ellipse model.
"""

import datetime
import math
import os
import random
import sys
import traceback

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import core_reference as ref  # noqa: E402

TESTS = []


def test(fn):
    TESTS.append(fn)
    return fn


def check(cond, what):
    if not cond:
        raise AssertionError(what)


def close(a, b, tol, what):
    check(abs(a - b) <= tol, '{}: {!r} vs {!r} (tol {})'.format(what, a, b, tol))


def at(y, mo, d, h=0, mi=0, s=0, lat='0', lng='0'):
    core = ref.Core()
    core.set_observer(lat, lng)
    core.positions(ref.date_value(y, mo, d, h, mi, s))
    return core


# ---------------------------------------------------------------- dates

@test
def day_numbers_at_j2000():
    core = at(2000, 1, 1, 12)
    check(core.DayNumber == 36524, 'DayNumber {}'.format(core.DayNumber))
    check(core.JD0 == 2451544.5, 'JD0 {}'.format(core.JD0))


@test
def julian_date_agrees_with_ordinal_days_in_every_month():
    rng = random.Random(3)
    for _ in range(600):
        day = datetime.date(1900, 1, 1) + datetime.timedelta(days=rng.randint(0, 73413))
        h, mi, s = rng.randint(0, 23), rng.randint(0, 59), rng.randint(0, 59)
        j, x = ref.Core.julian_from_fields(day.year, day.month, day.day, h, mi, s)
        expected = day.toordinal() + 1721424.5 + (h * 3600 + mi * 60 + s) / 86400
        close(j + x, expected, 1e-8, 'JD of {} {}:{}:{}'.format(day, h, mi, s))
        check(0 <= x < 1, 'X out of 0..1 at {}'.format(day))
    # Century years decide the Gregorian term; only January and February count
    # as the year before.
    for year in (1900, 2000, 2100):
        for month in range(1, 13):
            for day in (1, 28):
                j, x = ref.Core.julian_from_fields(year, month, day, 12, 0, 0)
                want = datetime.date(year, month, day).toordinal() + 1721425
                check(j + x == want, 'JD of {}-{}-{} gave {}'.format(year, month, day, j + x))
    j, x = ref.Core.julian_from_fields(2000, 1, 1, 12, 0, 0)
    check((j, x) == (2451545, 0.0), 'J2000 gives {} + {}'.format(j, x))


@test
def calendar_fields_round_to_the_second_and_carry():
    check(ref.calendar_fields(ref.date_value(2023, 12, 31, 23, 59, 59) + 0.6 / 86400)
          == (2024, 1, 1, 0, 0, 0), 'carry into the next year')
    check(ref.calendar_fields(ref.date_value(2000, 2, 28, 23, 59, 59) + 0.7 / 86400)
          == (2000, 2, 29, 0, 0, 0), '2000 is a leap year')
    check(ref.calendar_fields(ref.date_value(1900, 2, 28, 23, 59, 59) + 0.7 / 86400)
          == (1900, 3, 1, 0, 0, 0), '1900 is not')
    check(ref.calendar_fields(ref.date_value(2100, 12, 31, 12, 0, 0) + 0.4 / 86400)
          == (2100, 12, 31, 12, 0, 0), 'below half a second rounds down')
    check(ref.date_value(1899, 12, 30) == 0, 'epoch')


# ---------------------------------------------------------------- text forms

@test
def masks_round_halves_away_from_zero_on_the_binary_value():
    cases = [
        (2.5, '0', '3'), (-2.5, '0', '-3'), (7, '00', '07'), (123, '00', '123'),
        (12.25, '000.0', '012.3'), (0.05, '00.0', '00.1'), (0.15, '00.0', '00.1'),
        (1234.5, '000.00', '1234.50'), (59.5, '00', '60'), (0, '00', '00'),
    ]
    for value, picture, text in cases:
        got = ref.mask(value, picture)
        check(got == text, 'mask({!r}, {!r}) gave {!r}, want {!r}'.format(value, picture, got, text))


@test
def format_hours_and_degrees():
    cases = [
        (ref.format_hours, -1, '-01:00'), (ref.format_hours, 5.9999, '05:60'),
        (ref.format_hours, 23.5, '23:30'), (ref.format_hours, 0, '00:00'),
        (ref.format_degrees, -0.5, '-00:30'), (ref.format_degrees, 12.75, '12:45'),
        (ref.format_degrees, -12.99, '-12:59'), (ref.format_degrees, 0.999, '00:59'),
        (ref.format_degrees, -23.5, '-23:30'),
    ]
    for fn, value, text in cases:
        got = fn(value)
        check(got == text, '{}({!r}) gave {!r}, want {!r}'.format(fn.__name__, value, got, text))


@test
def observer_texts():
    close(ref.parse_latitude('-33:52:00'), -33.8667, 5e-5, '-33:52:00')
    cases = [
        (ref.parse_latitude, '95:00:00', -999), (ref.parse_latitude, '95', -999),
        (ref.parse_latitude, '12,5', 12.5), (ref.parse_latitude, ' -0:30 ', -0.5),
        (ref.parse_latitude, '90:00:00', 90), (ref.parse_latitude, '-90', -90),
        (ref.parse_longitude, '-75:00:00', 285), (ref.parse_longitude, '-75', -75),
        (ref.parse_longitude, '+120:15', 120.25), (ref.parse_longitude, '4,5', 4),
        (ref.parse_longitude, '361:00', -999), (ref.parse_longitude, '-0:00:00', 360),
        (ref.parse_longitude, '76:30:00.0', 76.5), (ref.parse_longitude, '10:30,5', 10 + 30.5 / 60),
    ]
    for fn, text, want in cases:
        got = fn(text)
        check(got == want, '{}({!r}) gave {!r}, want {!r}'.format(fn.__name__, text, got, want))
    check(ref.val('&H1F') == 31 and ref.val('  12abc') == 12 and ref.val('abc') == 0,
          'value of a text')


# ---------------------------------------------------------------- helpers

@test
def arcsin_and_arccos_limits():
    check(ref.arc_sin(1) == 1.570796326794895, 'ArcSin(1)')
    check(ref.arc_sin(-2) == -1.570796326794895, 'ArcSin(-2)')
    close(ref.arc_sin(0.5), math.pi / 6, 1e-15, 'ArcSin(0.5)')
    close(ref.arc_cos(-1), 1.570796327 + 1.570796326794895, 1e-15, 'ArcCos(-1)')
    for x in (-7.0, -1e-9, 0.0, 3.0, 1e6):
        y = ref.mod_2pi(x)
        check(0 <= y < 6.28318530717958, 'Mod2Pi({}) = {}'.format(x, y))


# ---------------------------------------------------------------- sidereal time

@test
def greenwich_sidereal_time_at_j2000():
    core = at(2000, 1, 1, 12)
    close(core.LST, 18.697374558, 2e-6, 'GMST at J2000.0')     # IAU 1982 value
    close(core.LST0, 6.6645195, 2e-6, 'GMST at 0h 2000-01-01')


@test
def longitude_shifts_local_sidereal_time_westward():
    rng = random.Random(5)
    for _ in range(100):
        y, mo, d = rng.randint(1900, 2100), rng.randint(1, 12), rng.randint(1, 28)
        h, mi, s = rng.randint(0, 23), rng.randint(0, 59), rng.randint(0, 59)
        green = at(y, mo, d, h, mi, s)
        west = at(y, mo, d, h, mi, s, lng='359')
        diff = (green.LST - west.LST) % 24
        close(diff, 359 / 15, 1e-5, 'LST shift for 359 W at {}-{}-{}'.format(y, mo, d))
        check(0 <= west.LST <= 24 and 0 <= west.LST0 <= 24, 'LST range')


# ---------------------------------------------------------------- Sun and Jupiter

@test
def sun_at_solstices_and_equinox():
    june, december, march = at(2023, 6, 21, 12), at(2023, 12, 22, 12), at(2023, 3, 20, 21)
    close(june.SunDec, 23.44, 0.6, 'June solstice declination')
    close(december.SunDec, -23.44, 0.6, 'December solstice declination')
    ra = march.SunRA if march.SunRA < 12 else march.SunRA - 24
    close(ra, 0.0, 0.2, 'March equinox right ascension')
    close(abs(march.SunDec), 0.0, 1.0, 'March equinox declination')


@test
def jupiter_at_j2000_and_distance_range():
    core = at(2000, 1, 1, 12)
    close(core.JupRA, 1.59, 0.1, 'Jupiter RA at J2000 (almanac 1h35m)')
    close(core.JupDec, 8.6, 1.0, 'Jupiter Dec at J2000 (almanac +8.6)')
    rng = random.Random(11)
    for _ in range(400):
        t = ref.date_value(1900, 1, 1) + rng.uniform(0, 73413)
        core = ref.Core()
        core.positions(t)
        where = '{}'.format(ref.calendar_fields(t))
        check(3.9 <= core.JupDist <= 6.5, 'JupDist {} at {}'.format(core.JupDist, where))
        check(0 <= core.JupRA < 24 and 0 <= core.SunRA < 24, 'RA range at ' + where)
        check(0 <= core.IoPhase <= 360 and 0 <= core.CMLIII <= 360, 'CML/Io range at ' + where)
        check(abs(core.De) <= 3.45, 'De {} at {}'.format(core.De, where))
        check(core.SunRAText == ref.format_hours(core.SunRA), 'SunRAText at ' + where)


# ---------------------------------------------------------------- Jovian longitudes

@test
def cml_and_io_rates():
    a, b = at(2010, 5, 5, 3), at(2010, 5, 5, 4)
    # System III turns 870.536 deg/day, i.e. 36.27 deg an hour, less a little geometry.
    close((b.CMLIII - a.CMLIII) % 360, 36.27, 0.05, 'CML III in one hour')
    c = at(2010, 5, 6, 3)
    # Io's synodic period is 1.769861 days: 203.4 deg a day.
    close((c.IoPhase - a.IoPhase) % 360, 360 / 1.769861, 1.5, 'Io phase in one day')
    check(abs(a.CMLIII * 100 - round(a.CMLIII * 100)) < 1e-3, 'CML III in steps of 0.01')


@test
def cml_rounds_up_to_360_without_folding():
    core = ref.Core()
    start = ref.date_value(2001, 7, 1)
    found = False
    minute = 1 / 1440
    for k in range(6 * 1440):
        core.update_cml_iii(start + k * minute)
        before = core.CMLUnrounded
        core.update_cml_iii(start + (k + 1) * minute)
        if core.CMLUnrounded >= before:
            continue
        for sec in range(61):
            core.update_cml_iii(start + k * minute + sec / 86400)
            check(core.CMLIII <= 360, 'CMLIII above 360')
            found = found or core.CMLIII == 360
        if found:
            break
    check(found, 'no instant gave CMLIII 360.00')


@test
def magnetic_latitude_follows_cml():
    core = ref.Core()
    for cml, want in ((200, 10), (20, -10), (290, 0), (110, 0)):
        core.CMLIII = cml
        core.update_mag_lat()
        close(core.MagLat, want, 1e-5, 'MagLat at CML {}'.format(cml))


# ---------------------------------------------------------------- local sky

@test
def horizon_round_trip_and_poles():
    rng = random.Random(17)
    for _ in range(300):
        lat = rng.uniform(-89, 89)
        lst, ra, dec = rng.uniform(0, 24), rng.uniform(0, 24), rng.uniform(-80, 80)
        alt, az = ref.Core.to_horizontal(lat, lst, ra, dec)
        check(0 <= az <= 360, 'azimuth {}'.format(az))
        ra2, dec2 = ref.Core.to_equatorial(lat, lst, alt, az)
        dra = (ra2 - ra + 12) % 24 - 12
        close(dra, 0, 1e-6, 'round trip RA lat {} dec {}'.format(lat, dec))
        close(dec2, dec, 1e-6, 'round trip dec')
    for lat in (90.0, -90.0):
        alt, az = ref.Core.to_horizontal(lat, 5.0, 3.0, 20.0)
        close(alt, math.copysign(20.0, lat), 1e-6, 'altitude at pole {}'.format(lat))
        check(math.isfinite(az), 'azimuth finite at pole')
    alt, az = ref.Core.to_horizontal(40.0, 6.0, 6.0, 10.0)   # on the meridian, south
    close(alt, 60.0, 1e-6, 'meridian altitude')
    close(az, 180.0, 1e-6, 'meridian azimuth')
    alt, az = ref.Core.to_horizontal(40.0, 0.0, 6.0, 0.0)      # six hours before transit
    close(alt, 0.0, 1e-6, 'rising altitude')
    close(az, 90.0, 1e-6, 'rises due east')
    alt, az = ref.Core.to_horizontal(40.0, 12.0, 6.0, 0.0)     # six hours after
    close(az, 270.0, 1e-6, 'sets due west')
    alt, _ = ref.Core.to_horizontal(40.0, 6.0, 6.0, 40.0)     # zenith
    close(alt, 90.0, 1e-6, 'zenith altitude')


@test
def angular_separation():
    for ra1, dec1, ra2, dec2, want in ((0, 0, 6, 0, 90), (0, 0, 0, 90, 90), (23, 10, 1, 10, 29.5),
                                        (5, -20, 5, -20, 0), (12, 45, 0, 45, 90)):
        got = ref.Core.angular_separation(ra1, dec1, ra2, dec2)
        close(got, want, 0.05, 'separation of ({}, {}) and ({}, {})'.format(ra1, dec1, ra2, dec2))


@test
def rise_and_set():
    rise, sett = ref.Core.rise_set(80.0, 3.0, 6.0, 23.0)
    check((rise, sett) == (-1, -1), 'midnight Sun gives -1, -1')
    rise, sett = ref.Core.rise_set(70.0, 3.0, 6.0, 23.0)
    check((rise, sett) == (-1, -1), 'just inside the circumpolar limit')
    rise, sett = ref.Core.rise_set(-70.0, 3.0, 6.0, 23.0)
    check((rise, sett) == (-1, -1), 'never rising in the south')
    rise, sett = ref.Core.rise_set(0.0, 3.0, 6.0, 23.0)
    close((sett - rise) % 24, 12.0, 1e-9, 'equator: 12 hours above the horizon')
    rise, sett = ref.Core.rise_set(52.0, 10.0, 4.0, 23.4)     # London, June: about 16.4 h
    close((sett - rise) % 24, 16.4, 0.3, 'long summer day at 52 N')
    check(0 <= rise < 24 and 0 <= sett <= 24, 'rise and set range')


# ---------------------------------------------------------------- day tables

@test
def day_tables_steps_and_ranges():
    core = ref.Core()
    core.set_observer('-33:52:00', '-151:12:30')
    core.CurrentUT, core.LST, core.DayNumber = 123.25, 7.5, 99.0
    day = ref.date_value(2024, 2, 29)
    core.build_day_tables(day + 0.7)
    check(core.DayMinuteTime[0] == day, 'entry 0 is 00:00 of the date')
    before = (day + 1 - core.DayMinuteTime[1440]) * 86400
    check(0.5 < before < 0.6, 'entry 1440 is {} s before midnight'.format(before))
    check((core.CurrentUT, core.LST, core.DayNumber) == (123.25, 7.5, 99.0), 'state restored')
    for k in range(ref.DAY_STEPS):
        check(-12 <= core.DayJupHA[k] <= 12 and -12 <= core.DaySunHA[k] <= 12,
              'hour angle range at {}'.format(k))
    for k in (1, 700, 1800):
        step = (core.DayLST[k] - core.DayLST[k - 1]) % 24
        close(step, 0.016712298, 1e-5, 'LST step at {}'.format(k))
    # The tables hold what a full recompute gives at each entry's instant.
    check_core = ref.Core()
    check_core.set_observer('-33:52:00', '-151:12:30')
    check_core.positions(core.DayMinuteTime[600])
    check(check_core.CMLIII == core.DayCML[600], 'DayCML matches UpdateCMLIII')
    close(check_core.SunAlt, core.DaySunAlt[600], 0.01, 'DaySunAlt matches a recompute')


def main():
    passed = failed = 0
    for fn in TESTS:
        try:
            fn()
        except Exception:   # report every failing group, then go on
            failed += 1
            print('FAIL', fn.__name__)
            traceback.print_exc(limit=1)
        else:
            passed += 1
            print('ok  ', fn.__name__)
    print('{} passed, {} failed'.format(passed, failed))
    return 1 if failed else 0


if __name__ == '__main__':
    sys.exit(main())
