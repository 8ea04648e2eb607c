#!/usr/bin/env python3
"""Plain-Python reference of Tarvelle's astronomy core.

Written apart from the C++ core so that the two can be checked against each
other (see compare_cli.py). Standard library only.

Arithmetic is double throughout. A value is narrowed to IEEE single only where
it is stored into one of the core's single variables (ObsLatitude,
ObsLongitude, LST, LST0, JupDist, CMLIII, IoPhase, De, MagLat, JupHA, SunHA and
the single day tables), and every such store goes through f32().

A statement that would divide by zero or take the square root of a negative
number is dropped and its target keeps its previous value; _keep() does that.
"""

import datetime
import decimal
import math
import struct
from fractions import Fraction

DEG2RAD = 0.017453292519943278
RAD2DEG = 57.29577951308238
PI = 3.14159265358979
TWO_PI = 6.28318530717958
HALF_PI_ASIN = 1.570796326794895   # what ArcSin gives at |x| >= 1
HALF_PI_SHORT = 1.570796327        # ArcCos and the zenith guard use this one
JD_OFFSET = 2415018.5              # Julian date of date value 0
EPOCH = datetime.date(1899, 12, 30)

# Elements: P (days), e, a (AU), w, n, i (radians), t0 (days)
EARTH = (365.2564, 0.016719, 1.0, 1.789792, 0.0, 0.0, 101.9)
JUPITER = (4332.0446, 0.0479528, 5.202168, 0.244685, 1.748931, 0.022786, 2875.5)
OBLIQUITY = 0.40928

DAY_STEPS = 1801
DAY_STEP = 0.00069444
LST_STEP = 0.016712298

NO_CROSSING = -1.0
REJECTED = -999.0


def f32(x):
    """Round a double to the nearest IEEE single, as a store into a single does."""
    return struct.unpack('f', struct.pack('f', x))[0]


def _keep(old, compute):
    """Run one statement; on a fault the target keeps its old value."""
    try:
        v = compute()
    except (ZeroDivisionError, ValueError, OverflowError):
        return old
    if math.isnan(v) or math.isinf(v):
        return old
    return v


def sgn(x):
    return (x > 0) - (x < 0)


# ---------------------------------------------------------------- numbers as text

def mask(x, picture):
    """Format x with a picture such as "00", "000.0" or "0".

    Halves go away from zero, judged on the exact binary value of x; a negative
    value takes a leading minus; a longer whole part shows in full.
    """
    whole, _, frac = picture.partition('.')
    exact = decimal.Decimal(x)
    quantum = decimal.Decimal(1).scaleb(-len(frac))
    r = abs(exact).quantize(quantum, rounding=decimal.ROUND_HALF_UP)
    text = '{:f}'.format(r)
    ipart, _, fpart = text.partition('.')
    ipart = ipart.lstrip('0')
    min_digits = whole.count('0')
    ipart = ipart.rjust(min_digits, '0')
    out = ipart + ('.' + fpart if frac else '')
    return ('-' if x < 0 else '') + out


def val(text):
    """Value of a text: its leading number, 0 when there is none."""
    s = ''.join(ch for ch in text if ch not in ' \t\r\n')
    up = s.upper()
    if up.startswith('&H') or up.startswith('&O'):
        base = 16 if up[1] == 'H' else 8
        digits = '0123456789ABCDEF'[:base]
        n = 0
        for ch in up[2:]:
            if ch not in digits:
                break
            n = n * base + digits.index(ch)
        return float(n)
    i = 0
    if i < len(s) and s[i] in '+-':
        i += 1
    start_digits = i
    while i < len(s) and s[i].isdigit():
        i += 1
    if i < len(s) and s[i] == '.':
        i += 1
        while i < len(s) and s[i].isdigit():
            i += 1
    mantissa = s[:i]
    if not any(ch.isdigit() for ch in mantissa[start_digits:]):
        return 0.0
    j = i
    if j < len(s) and s[j] in 'eEdD':
        k = j + 1
        if k < len(s) and s[k] in '+-':
            k += 1
        if k < len(s) and s[k].isdigit():
            while k < len(s) and s[k].isdigit():
                k += 1
            return float(mantissa + 'e' + s[j + 1:k])
    return float(mantissa)


def round_half_even(x):
    return float(round(x))


def parse_number_comma(text):
    text = text.replace(',', '.')
    if text == '':
        return 0.0
    return val(text)


def _colon_value(body):
    """d, d:m or d:m:s with whole degrees (and whole minutes in d:m:s)."""
    parts = body.split(':', 2)
    if len(parts) == 2:
        d = round_half_even(val(parts[0]))
        return d + parse_number_comma(parts[1]) / 60
    d = round_half_even(val(parts[0]))
    m = round_half_even(val(parts[1]))
    return d + m / 60 + parse_number_comma(parts[2]) / 3600


def parse_latitude(text):
    text = text.strip()
    sign = 1
    if text.startswith('-'):
        sign = -1
        text = text[1:]
    if ':' not in text:
        plain = sign * parse_number_comma(text)
        return plain if math.isfinite(plain) and abs(plain) <= 90 else REJECTED
    result = sign * _colon_value(text)
    if result < -90 or result > 90:
        return REJECTED
    return result


def parse_longitude(text):
    text = text.strip()
    sign = 1
    if text.startswith('-'):
        sign = -1
        text = text[1:]
    if text.startswith('+'):
        text = text[1:]
    if ':' not in text:
        plain = val(text) * sign
        return plain if math.isfinite(plain) and abs(plain) <= 360 else REJECTED
    value = _colon_value(text)
    if sign == -1:
        value = 360 - value
    if value < 0 or value > 360:
        return REJECTED
    return value


# ---------------------------------------------------------------- date values

def date_value(year, month, day, hour=0, minute=0, second=0):
    days = (datetime.date(year, month, day) - EPOCH).days
    return days + (hour * 3600 + minute * 60 + second) / 86400.0


def calendar_fields(t):
    """(year, month, day, hour, minute, second) of a date value, to the nearest second."""
    exact = Fraction(t)
    days = math.floor(exact)
    secs = round((exact - days) * 86400)   # Fraction rounds halves to even
    if secs >= 86400:
        days += 1
        secs -= 86400
    date = EPOCH + datetime.timedelta(days=days)
    return (date.year, date.month, date.day, secs // 3600, secs // 60 % 60, secs % 60)


# ---------------------------------------------------------------- common routines

def arc_sin(x):
    if abs(x) >= 1:
        return sgn(x) * HALF_PI_ASIN
    return math.atan(x / math.sqrt(1 - x * x))


def arc_cos(x):
    return HALF_PI_SHORT - arc_sin(x)


def mod_2pi(x):
    return x - TWO_PI * math.floor(x / TWO_PI)


def format_hours(x):
    ax = abs(x)
    h = math.trunc(ax)
    m = 60 * (ax - h)
    text = mask(h, '00') + ':' + mask(m, '00')
    return '-' + text if x < 0 else text


def format_degrees(x):
    ip = math.trunc(x)
    minutes = math.floor(abs((abs(x) - abs(ip)) * 60))
    head = mask(abs(ip), '00')
    if x < 0:
        head = '-' + head
    return head + ':' + mask(minutes, '00')


# ---------------------------------------------------------------- the core

class Core:
    """The module-wide state of the astronomy core and its routines."""

    def __init__(self):
        self.CurrentUT = 0.0
        self.SavedUT = 0.0
        self.DayNumber = 0.0
        self.JD0 = 0.0
        self.LST = 0.0
        self.LST0 = 0.0
        self.ObsLatitude = 0.0
        self.ObsLongitude = 0.0
        self.ObsTZ = 0.0
        self.SunRA = self.SunDec = self.JupRA = self.JupDec = 0.0
        self.SunRAText = self.SunDecText = self.JupRAText = self.JupDecText = ''
        self.JupDist = 0.0
        self.CMLIII = 0.0
        self.CMLUnrounded = 0.0   # C before rounding; lets a comparison see rounding ties
        self.IoPhase = 0.0
        self.De = 0.0
        self.MagLat = 0.0
        self.JupAlt = self.JupAz = self.SunAlt = self.SunAz = 0.0
        self.JupHA = self.SunHA = 0.0
        self.JupRise = self.JupSet = self.SunRise = self.SunSet = 0.0
        self.ShuttingDown = False
        self.DayMinuteTime = [0.0] * DAY_STEPS
        self.DayLST = [0.0] * DAY_STEPS
        self.DayJupAlt = [0.0] * DAY_STEPS
        self.DayJupAz = [0.0] * DAY_STEPS
        self.DaySunAlt = [0.0] * DAY_STEPS
        self.DaySunAz = [0.0] * DAY_STEPS
        self.DayJupHA = [0.0] * DAY_STEPS
        self.DaySunHA = [0.0] * DAY_STEPS
        self.DayCML = [0.0] * DAY_STEPS
        self.DayIoPhase = [0.0] * DAY_STEPS

    # -- observer and clock

    def set_observer(self, lat_text, lng_text, tz=0.0):
        self.ObsLatitude = f32(parse_latitude(lat_text))
        self.ObsLongitude = f32(parse_longitude(lng_text))
        self.ObsTZ = float(tz)

    def save_current_time(self):
        self.SavedUT = self.CurrentUT

    def restore_current_time(self):
        self.CurrentUT = self.SavedUT

    def update_day_numbers(self):
        self.JD0 = math.floor(self.CurrentUT) + JD_OFFSET
        self.DayNumber = self.CurrentUT - 2.5

    def update_sidereal_time(self):
        _, _, _, hh, nn, ss = calendar_fields(self.CurrentUT)
        s = hh * 3600 + nn * 60 + ss
        self.update_day_numbers()
        t = (self.JD0 - 2451545.0) / 36525.0
        g = 8640184.812866 * t + 0.093104 * (t * t) - 6.2e-06 * (t * t * t)
        while g < 0:
            g += 86400
        b = 24110.54841 + g
        lst0 = f32(b / 3600)
        while lst0 > 24:
            lst0 = f32(lst0 - 24)
        lst0 = f32(lst0 - self.ObsLongitude / 15)
        while lst0 < 0:
            lst0 = f32(lst0 + 24)
        self.LST0 = lst0
        y = (s * 1.002737908 + b) / 3600
        while y > 24:
            y -= 24
        while y < 0:
            y += 24
        lst = f32(y - self.ObsLongitude / 15)
        while lst < 0:
            lst = f32(lst + 24)
        self.LST = lst

    def update_positions(self):
        self.update_sun_jupiter_positions()
        self.update_cml_iii(self.CurrentUT)
        self.update_io_phase(self.DayNumber)
        self.update_horizon_coords()
        self.update_rise_set()

    # -- Sun and Jupiter from the two-ellipse model

    def _heliocentric(self, elements):
        p, e, a, w, n, inc, t0 = elements
        big_l = ((self.DayNumber + t0) / p) * TWO_PI
        k = (1 + e) / (1 - e)
        m = big_l - w
        v = 2 * math.atan(math.tan(m / 2) * k)
        if v < 0:
            v += TWO_PI
        r = a * (1 - e * e) / (1 + e * math.cos(v))
        lon = v + w
        b = inc * math.sin(lon - n)
        return (r * math.cos(lon) * math.cos(b),
                r * math.sin(lon) * math.cos(b),
                r * math.sin(b))

    @staticmethod
    def _equatorial(x, y, z):
        """Ecliptic rectangular to (ra hours, dec degrees, distance)."""
        q = math.sqrt(y * y + z * z)
        if z == 0:
            z = 1e-30
        g = _keep(0.0, lambda: math.atan(z / y))
        if g < 0:
            g += PI
        if z < 0:
            g += PI
        g = g + OBLIQUITY
        z = q * math.sin(g)
        y = q * math.cos(g)
        r = math.sqrt(x * x + y * y + z * z)
        a = _keep(0.0, lambda: math.atan(y / x))
        if a < 0:
            a = PI + a
        if y < 0:
            a = PI + a
        ra = (a / 15) * RAD2DEG
        s = _keep(0.0, lambda: z / r)
        d = _keep(0.0, lambda: math.atan(s / math.sqrt(1 - s * s)))
        return ra, d * RAD2DEG, r

    def update_sun_jupiter_positions(self):
        xe, ye, _ = self._heliocentric(EARTH)
        ra, dec, _ = self._equatorial(-xe, -ye, 0.0)
        self.SunRA, self.SunDec = ra, dec
        self.SunRAText, self.SunDecText = format_hours(ra), format_degrees(dec)
        xj, yj, zj = self._heliocentric(JUPITER)
        ra, dec, dist = self._equatorial(xj - xe, yj - ye, zj)
        self.JupRA, self.JupDec = ra, dec
        self.JupRAText, self.JupDecText = format_hours(ra), format_degrees(dec)
        self.JupDist = f32(dist)

    # -- CML III, with its own calendar and Jupiter series

    @staticmethod
    def julian_from_fields(yy, mm, dd, hh, nn, ss):
        """(J, X) with the Julian date J + X; X in 0..1."""
        f = dd + hh / 24 + nn / 1440 + ss / 86400
        g = 0 if yy < 1582 else 1
        i = math.floor(f)
        x = f - i - 0.5
        j = -math.floor(7 * (math.floor((mm + 9) / 12) + yy) / 4)
        b = 0
        if g != 0:
            b = math.floor(yy + sgn(mm - 9) * math.floor(abs(mm - 9) / 7))
            b = -math.floor((math.floor(b / 100) + 1) * 3 / 4)
        j = j + math.floor(275 * mm / 9) + i + g * b
        j = j + 1721027 + 2 * g + 367 * yy
        if x < 0:
            x = x + 1
            j = j - 1
        return j, x

    @staticmethod
    def _revs(base, rate, d):
        v = base + rate * d
        return (v - math.floor(v)) * TWO_PI

    def update_cml_iii(self, t):
        j, x = self.julian_from_fields(*calendar_fields(t))
        d = (j - 2451545) + x
        t1 = d / 36525 + 1
        ls = self._revs(0.779072, 0.00273790931, d)
        ms = self._revs(0.993126, 0.0027377785, d)
        lj = self._revs(0.089608, 0.00023080893, d)
        mj = self._revs(0.056531, 0.00023080893, d)
        ma = self._revs(0.882987, 9.294371e-05, d)

        corr = (6910 * math.sin(ms) + 72 * math.sin(2 * ms)
                - 17 * t1 * math.sin(ms) - 7 * math.cos(ms - mj))
        ls2 = ls + corr / 206265
        big_r = 1.00014 - 0.01675 * math.cos(ms) - 0.00014 * math.cos(2 * ms)

        lon = (19934 * math.sin(mj) + 5023 * t1 + 2511
               + 1093 * math.cos(2 * mj - 5 * ma) + 601 * math.sin(2 * mj)
               - 479 * math.sin(2 * mj - 5 * ma) - 185 * math.sin(2 * mj - 2 * ma)
               + 137 * math.sin(3 * mj - 5 * ma) - 131 * math.sin(mj - 2 * ma))
        lat = -4692 * math.cos(mj) + 227 - 227 * math.cos(2 * mj) + 30 * t1 * math.sin(mj)
        r = (5.20883 - 0.25122 * math.cos(mj) - 0.00604 * math.cos(2 * mj)
             + 0.0026 * math.cos(2 * mj - 2 * ma) - 0.0017 * math.cos(3 * mj - 5 * ma)
             - 0.00106 * math.sin(2 * mj - 2 * ma) - 0.00091 * t1 * math.sin(mj)
             - 0.00084 * t1 * math.cos(mj))

        lj2 = lj + lon / 206265
        b = lat / 206265
        y = r * math.cos(b) * math.sin(lj2 - ls2)
        x = r * math.cos(b) * math.cos(lj2 - ls2) + big_r
        a = _keep(0.0, lambda: math.atan(y / x))
        if x < 0:
            a += PI
        lon_geo = a + ls2
        z = r * math.sin(b)
        dist = math.sqrt(y * y + x * x + z * z)
        s = _keep(0.0, lambda: r * math.sin(b) / dist)
        be = _keep(0.0, lambda: math.atan(s / math.sqrt(1 - s * s)))
        e = (84428 - 47 * t1) / 206265
        y2 = math.sin(lon_geo) * math.cos(e) - math.tan(be) * math.sin(e)
        x2 = math.cos(lon_geo)
        ra = _keep(0.0, lambda: math.atan(y2 / x2))
        if x2 < 0:
            ra += PI
        s = math.sin(be) * math.cos(e) + math.cos(be) * math.sin(e) * math.sin(lon_geo)
        de = _keep(0.0, lambda: math.atan(s / math.sqrt(1 - s * s)))

        tt = t1 - 1
        pa = 268.05 + 0.107 * tt
        pd = 64.49 - 0.015 * tt
        pa = (pa / 360 - math.floor(pa / 360)) * 360 * DEG2RAD
        pd = (pd / 360 - math.floor(pd / 360)) * 360 * DEG2RAD
        ax = math.cos(de) * math.sin(pa - ra)
        ay = math.sin(pd) * math.cos(de) * math.cos(pa - ra) - math.cos(pd) * math.sin(de)
        ang = _keep(0.0, lambda: RAD2DEG * math.atan(ay / ax))
        if ax < 0:
            ang += 180
        w = 284.894 + 870.536 * (d - 0.0057755 * dist) + 1.291 * tt
        c = w - ang
        c = (c / 360 - math.floor(c / 360)) * 360
        self.CMLUnrounded = c
        self.CMLIII = f32(math.floor(100 * c + 0.5) / 100)

    # -- Io

    def update_io_phase(self, a):
        d = 1 + a
        v = mod_2pi(2.34974 + 1.94756e-05 * d)
        m = mod_2pi(6.256586 + 0.01720197 * d)
        n = mod_2pi(3.93272126 + 0.0014501127 * d + 0.00576 * math.sin(v))
        j = mod_2pi(3.8684699 + 0.015751909 * d - 0.00576 * math.sin(v))
        aa = mod_2pi(0.0334405 * math.sin(m) + 0.000349 * math.sin(2 * m))
        bb = mod_2pi(0.0969007 * math.sin(n) + 0.0029147 * math.sin(2 * n))
        k = mod_2pi(j + aa - bb)
        big_r = 1.00014 - 0.01672 * math.cos(m) - 0.0014 * math.cos(2 * m)
        r = 5.20867 - 0.25192 * math.cos(n) - 0.0061 * math.cos(2 * n)
        dist = _keep(0.0, lambda: math.sqrt(big_r * big_r + r * r - 2 * big_r * r * math.cos(k)))
        psi = _keep(0.0, lambda: arc_sin(big_r * math.sin(k) / dist))
        d2 = d - dist / 173.1446
        u1 = mod_2pi(1.475686 + 3.550102027 * d2 + psi - bb)
        u2 = mod_2pi(0.724338 + 1.767872488 * d2 + psi - bb)
        u = mod_2pi(u1 + 0.0082296 * math.sin(2 * (u1 - u2)))
        phase = f32(u * RAD2DEG + 180)
        if phase > 360:
            phase = f32(phase - 360)
        self.IoPhase = phase

    # -- small quantities for the ephemeris

    def update_de(self):
        pole_ra = 4.678180527045597
        pole_dec = 1.125562834611142
        ra = 15 * self.JupRA * DEG2RAD
        de = self.JupDec * DEG2RAD
        x = (-math.sin(pole_dec) * math.sin(de)
             - math.cos(de) * math.cos(pole_dec) * math.cos(pole_ra - ra))
        self.De = f32(math.sin(x) * RAD2DEG)

    def update_mag_lat(self):
        self.MagLat = f32(RAD2DEG * 0.17453292519943278
                          * math.cos((self.CMLIII - 200) * DEG2RAD))

    # -- local sky

    @staticmethod
    def _kernel(p, q, lat):
        """(r, m) of the spherical kernel; p, q and the latitude in radians."""
        sin_p, cos_p, sin_q, cos_q = math.sin(p), math.cos(p), math.sin(q), math.cos(q)
        w = sin_p * math.sin(lat) + cos_p * math.cos(lat) * cos_q
        r = HALF_PI_SHORT if w == 1.0 else arc_sin(w)
        c = math.cos(lat) * math.cos(r)
        if c < 1e-20:
            c = 1e-20
        k = (sin_p - math.sin(lat) * w) / c
        m = arc_cos(k)
        if sin_q > 0:
            m = 6.283185308 - m
        return r, m

    @classmethod
    def to_horizontal(cls, lat, lst, ra, dec):
        """(alt, az) in degrees for an observer latitude in degrees."""
        h = lst - ra
        while h < 0:
            h += 24
        r, m = cls._kernel(dec * DEG2RAD, h * 15 * DEG2RAD, lat * DEG2RAD)
        az = m * RAD2DEG
        while az > 360:
            az -= 360
        return r * RAD2DEG, az

    @classmethod
    def to_equatorial(cls, lat, lst, alt, az):
        """(ra hours, dec degrees) for an altitude and azimuth in degrees."""
        r, m = cls._kernel(alt * DEG2RAD, az * DEG2RAD, lat * DEG2RAD)
        h = m * RAD2DEG / 15
        ra = lst - h
        while ra < 0:
            ra += 24
        while ra > 24:
            ra -= 24
        return ra, r * RAD2DEG

    def convert_equatorial_horizontal(self, lat, lng, lst, ra, dec, alt, az, to_equatorial):
        """By-reference form: returns (ra, dec, alt, az) after the call."""
        if to_equatorial:
            ra, dec = self.to_equatorial(lat, lst, alt, az)
        else:
            alt, az = self.to_horizontal(lat, lst, ra, dec)
        return ra, dec, alt, az

    def update_horizon_coords(self):
        self.JupAlt, self.JupAz = self.to_horizontal(self.ObsLatitude, self.LST,
                                                     self.JupRA, self.JupDec)
        self.SunAlt, self.SunAz = self.to_horizontal(self.ObsLatitude, self.LST,
                                                     self.SunRA, self.SunDec)

    @staticmethod
    def rise_set(lat, lst0, ra, dec):
        """(rise, set) in hours of GMT, or (-1, -1) without a crossing."""
        ra, dec = f32(ra), f32(dec)
        a = ra - lst0
        if a < 0:
            a += 24
        v = -math.tan(lat * DEG2RAD) * math.tan(dec * DEG2RAD)
        if abs(v) > 1:
            return NO_CROSSING, NO_CROSSING
        asin_v = 2 * math.atan(v / (1 + math.sqrt(1 - v * v) + 1e-20))
        h = ((2 * math.atan(1)) - asin_v) * RAD2DEG / 15
        rise = a - h
        while rise < 0:
            rise += 24
        sett = a + h
        while sett > 24:
            sett -= 24
        return rise, sett

    def update_rise_set(self):
        self.JupRise, self.JupSet = self.rise_set(self.ObsLatitude, self.LST0,
                                                  self.JupRA, self.JupDec)
        self.SunRise, self.SunSet = self.rise_set(self.ObsLatitude, self.LST0,
                                                  self.SunRA, self.SunDec)

    @staticmethod
    def angular_separation(ra1, dec1, ra2, dec2):
        ra1, ra2 = ra1 * 15 * DEG2RAD, ra2 * 15 * DEG2RAD
        dec1, dec2 = dec1 * DEG2RAD, dec2 * DEG2RAD
        a = math.sin((dec1 - dec2) / 2)
        b = math.sin((ra1 - ra2) / 2)
        h = a * a + math.cos(dec1) * math.cos(dec2) * b * b
        g = math.sqrt(h)
        n = math.sqrt(1 - g * g)
        return _keep(0.0, lambda: 2 * math.atan(g / n) / DEG2RAD)

    @staticmethod
    def jup_hour_angle(lst, ra):
        ha = f32(lst - ra)
        if ha > 12:
            ha = f32(ha - 24)
        if ha < -12:
            ha = f32(ha + 24)
        return ha

    @staticmethod
    def sun_hour_angle(lst, ra):
        ha = f32(lst - ra)
        if ha < -12:
            ha = f32(ha + 24)
        if ha > 12:
            ha = f32(ha - 24)
        return ha

    def build_day_tables(self, t, record=None):
        """Fill the day tables for the date of t.

        When record is a list, each entry also appends (JupRA, JupDec, SunRA,
        SunDec, CMLUnrounded) there, for callers that check against another
        implementation.
        """
        if self.ShuttingDown:
            return
        self.save_current_time()
        kept_lst, kept_day = self.LST, self.DayNumber
        self.CurrentUT = float(math.floor(t))
        u = self.CurrentUT
        self.update_sidereal_time()
        for k in range(DAY_STEPS):
            self.update_sun_jupiter_positions()
            self.update_cml_iii(u)
            self.update_io_phase(self.DayNumber)
            self.JupHA = self.jup_hour_angle(self.LST, self.JupRA)
            self.JupAlt, self.JupAz = self.to_horizontal(self.ObsLatitude, self.LST,
                                                         self.JupRA, self.JupDec)
            self.SunHA = self.sun_hour_angle(self.LST, self.SunRA)
            self.SunAlt, self.SunAz = self.to_horizontal(self.ObsLatitude, self.LST,
                                                         self.SunRA, self.SunDec)
            self.DayMinuteTime[k] = u
            self.DayLST[k] = self.LST
            self.DayJupAlt[k], self.DayJupAz[k] = self.JupAlt, self.JupAz
            self.DaySunAlt[k], self.DaySunAz[k] = self.SunAlt, self.SunAz
            self.DayJupHA[k], self.DaySunHA[k] = self.JupHA, self.SunHA
            self.DayCML[k] = self.CMLIII
            self.DayIoPhase[k] = self.IoPhase
            if record is not None:
                record.append((self.JupRA, self.JupDec, self.SunRA, self.SunDec,
                               self.CMLUnrounded))
            lst = f32(self.LST + LST_STEP)
            if lst > 24:
                lst = f32(lst - 24)
            self.LST = lst
            self.DayNumber = self.DayNumber + DAY_STEP
            u = u + DAY_STEP
        self.restore_current_time()
        self.LST, self.DayNumber = kept_lst, kept_day

    # -- what the command-line tool prints

    def positions(self, ut):
        """All live values for one GMT instant, as `positions` lists them."""
        self.CurrentUT = ut
        self.update_sidereal_time()
        self.update_positions()
        self.update_de()
        self.update_mag_lat()
        return {name: getattr(self, name) for name, _ in POSITION_FIELDS}


# Name and kind of every `positions` line, in output order.
POSITION_FIELDS = [
    ('DayNumber', 'double'), ('JD0', 'double'), ('LST', 'single'), ('LST0', 'single'),
    ('SunRA', 'double'), ('SunDec', 'double'), ('SunRAText', 'text'), ('SunDecText', 'text'),
    ('JupRA', 'double'), ('JupDec', 'double'), ('JupRAText', 'text'), ('JupDecText', 'text'),
    ('JupDist', 'single'), ('CMLIII', 'single'), ('IoPhase', 'single'), ('De', 'single'),
    ('MagLat', 'single'), ('JupAlt', 'double'), ('JupAz', 'double'), ('SunAlt', 'double'),
    ('SunAz', 'double'), ('JupRise', 'double'), ('JupSet', 'double'), ('SunRise', 'double'),
    ('SunSet', 'double'),
]

# Column name, kind and table attribute of every `daytables` column after the index.
DAY_COLUMNS = [
    ('DayMinuteTime', 'double'), ('DayLST', 'single'), ('DayJupAlt', 'double'),
    ('DayJupAz', 'double'), ('DaySunAlt', 'double'), ('DaySunAz', 'double'),
    ('DayJupHA', 'single'), ('DaySunHA', 'single'), ('DayCML', 'single'),
    ('DayIoPhase', 'single'),
]


def parse_ut(text):
    """"YYYY-MM-DD HH:MM:SS" to a date value."""
    date_part, time_part = text.split()
    y, mo, d = (int(v) for v in date_part.split('-'))
    h, mi, s = (int(v) for v in time_part.split(':'))
    return date_value(y, mo, d, h, mi, s)


if __name__ == '__main__':
    import sys
    if len(sys.argv) != 4:
        sys.exit('usage: core_reference.py "YYYY-MM-DD HH:MM:SS" LAT LNG')
    core = Core()
    core.set_observer(sys.argv[2], sys.argv[3])
    values = core.positions(parse_ut(sys.argv[1]))
    for name, kind in POSITION_FIELDS:
        v = values[name]
        if kind == 'text':
            print(f'{name} = {v}')
        else:
            print(f'{name} = {v:.17g}' if kind == 'double' else f'{name} = {v:.9g}')
