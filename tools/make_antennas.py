#!/usr/bin/env python3
"""Writes the sample antennas of data/Antennas from their computed far-field patterns.

Each antenna is a set of thin half-wave elements with given currents. The far field in the
direction u (unit vector: x east, y north, z up) is the sum over the elements of

    I_n * f(u . w_n) * exp(j k r_n . u),   f(c) = cos(pi/2 * c) / sqrt(1 - c^2)

the half-wave dipole's pattern (w_n the element's axis, r_n its centre), the array factor of
antenna arrays. A horizontal element over perfectly conducting ground gets its image at the
mirrored height with the opposite current. Driven currents are given; the currents of the
Yagi's parasitic elements follow from Z I = V with the induced-EMF mutual impedance of
parallel side-by-side half-wave dipoles,

    R12 = 30 [2 Ci(u0) - Ci(u1) - Ci(u2)],  X12 = -30 [2 Si(u0) - Si(u1) - Si(u2)],
    u0 = k d, u1 = k (sqrt(d^2 + l^2) + l), u2 = k (sqrt(d^2 + l^2) - l), l = lambda / 2,

and the self impedance 73.1 + j42.5 ohms. From the power pattern the script finds the main
lobe's direction, the half-power beam widths in the vertical plane through it (NSBW) and
across it (EWBW), and the directivity 4 pi Pmax / (integral of P over the sphere, or over
the upper half above ground), written as the gain in dBi of a lossless antenna.

As checks it asserts the free-space half-wave dipole's textbook figures (a half-power width
of 78 degrees and a directivity of 1.64, 2.15 dBi) and that the closed-form mutual impedance
agrees with a numerical integration of the induced-EMF integral. Run from the repository root:

    python3 tools/make_antennas.py

Standard library only; the output is byte-identical on every run.
"""
import cmath
import math

FREQ_MHZ = 20.1
WAVELENGTH = 299.792458 / FREQ_MHZ  # metres
K = 2 * math.pi  # lengths below are in wavelengths
EULER = 0.5772156649015329


def si_ci(x):
    """Sine and cosine integrals by their power series (fine for x below about 20)."""
    si, ci, term = 0.0, EULER + math.log(x), 1.0
    for n in range(0, 60):
        # term = x^(2n) / (2n)! with its sign
        if n > 0:
            term *= -x * x / ((2 * n - 1) * (2 * n))
            ci += term / (2 * n)
        si += term * x / ((2 * n + 1) * (2 * n + 1))
    return si, ci


def mutual(d):
    l = 0.5
    u0, u1, u2 = K * d, K * (math.hypot(d, l) + l), K * (math.hypot(d, l) - l)
    s0, c0 = si_ci(u0)
    s1, c1 = si_ci(u1)
    s2, c2 = si_ci(u2)
    return complex(30 * (2 * c0 - c1 - c2), -30 * (2 * s0 - s1 - s2))


def mutual_by_integration(d, steps=4000):
    """The same by the induced-EMF integral itself: the field of one half-wave dipole's
    sinusoidal current along the other, j30 * integral of (exp(-jkR1)/R1 + exp(-jkR2)/R2) cos(kz),
    R1 and R2 the distances to the first dipole's ends. A check of the closed form."""
    total, h = 0j, 0.5 / steps
    for i in range(steps):
        z = -0.25 + (i + 0.5) * h
        r1, r2 = math.hypot(d, z - 0.25), math.hypot(d, z + 0.25)
        total += (cmath.exp(-1j * K * r1) / r1 + cmath.exp(-1j * K * r2) / r2) * math.cos(K * z) * h
    return 1j * 30 * total


def solve(z, v):
    """Gaussian elimination for the small complex system z i = v."""
    n = len(v)
    a = [row[:] + [v[i]] for i, row in enumerate(z)]
    for c in range(n):
        p = max(range(c, n), key=lambda r: abs(a[r][c]))
        a[c], a[p] = a[p], a[c]
        for r in range(n):
            if r != c:
                f = a[r][c] / a[c][c]
                a[r] = [x - f * y for x, y in zip(a[r], a[c])]
    return [a[i][n] / a[i][i] for i in range(n)]


def direction(alt, az):
    a, z = math.radians(alt), math.radians(az)
    return (math.cos(a) * math.sin(z), math.cos(a) * math.cos(z), math.sin(a))


def field(elements, u):
    total = 0j
    for current, centre, axis in elements:
        c = sum(p * q for p, q in zip(u, axis))
        s = math.sqrt(max(0.0, 1 - c * c))
        f = 0.0 if s < 1e-12 else math.cos(math.pi / 2 * c) / s
        total += current * f * cmath.exp(1j * K * sum(p * q for p, q in zip(centre, u)))
    return total


def power(elements, u):
    return abs(field(elements, u)) ** 2


def with_ground(elements):
    """Horizontal elements over perfect ground: each gets its image with the opposite current."""
    images = [(-i, (c[0], c[1], -c[2]), w) for i, c, w in elements]
    return elements + images


def rotate(u, alt, az):
    """The vector u given in a frame whose z points at (alt, az) and whose x points east."""
    zt = direction(alt, az)
    xt = (math.cos(math.radians(az)), -math.sin(math.radians(az)), 0.0)
    yt = (zt[1] * xt[2] - zt[2] * xt[1], zt[2] * xt[0] - zt[0] * xt[2], zt[0] * xt[1] - zt[1] * xt[0])
    return tuple(u[0] * xt[i] + u[1] * yt[i] + u[2] * zt[i] for i in range(3))


def analyse(elements, ground, zenith_az=0.0, step=0.25):
    # The main lobe, on a grid over the sky (or the whole sphere in free space).
    best = (0.0, 90.0, 0.0)
    lowest = 0 if ground else -90
    for ialt in range(int(lowest / step), int(90 / step) + 1):
        alt = ialt * step
        for iaz in range(0, int(360 / 1.0)):
            az = iaz * 1.0
            p = power(elements, direction(alt, az))
            if p > best[0] + 1e-12:
                best = (p, alt, az)
    pmax, alt0, az0 = best
    if alt0 >= 90.0 - 1e-9:
        alt0, az0 = 90.0, zenith_az

    def width(tilt):
        """Half-power width along the great circle through the peak, tilted from the vertical."""
        sides = []
        for sign in (1, -1):
            a = 0.0
            while a < 180:
                a += 0.01
                t = math.radians(sign * a)
                local = (math.sin(t) * math.sin(tilt), math.sin(t) * math.cos(tilt), math.cos(t))
                if power(elements, rotate(local, alt0, az0)) < pmax / 2:
                    break
            sides.append(a)
        return sum(sides)

    nsbw = width(0.0)            # along the vertical plane through the lobe
    ewbw = width(math.pi / 2)    # across it
    # Directivity by the midpoint rule on 0.5-degree cells.
    total, cell = 0.0, math.radians(0.5)
    top = 180 if not ground else 90
    for i in range(int(top / 0.5)):
        theta = (i + 0.5) * cell  # from the zenith
        ring = 0.0
        for j in range(720):
            phi = (j + 0.5) * cell
            ring += power(elements, (math.sin(theta) * math.sin(phi), math.sin(theta) * math.cos(phi), math.cos(theta)))
        total += ring * math.sin(theta) * cell * cell
    gain = 10 * math.log10(4 * math.pi * pmax / total)
    return alt0, az0, nsbw, ewbw, gain


EAST, NORTH, UP = (1.0, 0.0, 0.0), (0.0, 1.0, 0.0), (0.0, 0.0, 1.0)


def check_free_dipole():
    alt, az, ns, ew, gain = analyse([(1.0, (0, 0, 0), UP)], ground=False, step=0.25)
    assert abs(alt) < 0.3 and abs(ns - 78.1) < 0.2 and abs(gain - 2.15) < 0.02, (alt, ns, gain)


def write(name, title, pic, height, lobe):
    alt, az, ns, ew, gain = lobe
    path = f"data/Antennas/{name}"
    lines = ["ANTENNA FILE", f"NAME = {title}", f"PIC = {pic}", f"HEIGHT = {height}", "LOBES = 1",
             "START LOBE 1", f"ALT = {alt:g}", f"AZ = {az:g}", f"NSBW = {round(ns):d}", f"EWBW = {round(ew):d}",
             f"GAIN = {gain:.1f}", "END LOBE 1"]
    with open(path, "w", newline="") as f:
        f.write("".join(line + "\r\n" for line in lines))
    print(f"{path}: ALT {alt:g} AZ {az:g} NSBW {ns:.1f} EWBW {ew:.1f} gain {gain:.2f} dBi")


def main():
    check_free_dipole()
    for d in (0.1, 0.2, 0.5):
        assert abs(mutual(d) - mutual_by_integration(d)) < 0.05, (d, mutual(d), mutual_by_integration(d))
    h = 0.25  # a quarter wave above ground
    metres = f"{h * WAVELENGTH:.1f} m"

    # One horizontal dipole, its wire north to south.
    dipole = with_ground([(1.0, (0, 0, h), NORTH)])
    write("dipole.ant", "Half-wave dipole N-S at 20.1 MHz", "D1NS", metres, analyse(dipole, True))

    # Two east-west dipoles half a wave apart north to south, the northern one lagging so that
    # the beam leans south, toward where Jupiter crosses the meridian from mid-northern sites.
    d, lean = 0.5, 50.0
    beta = K * d * math.cos(math.radians(lean))
    pair = with_ground([(cmath.exp(1j * beta / 2), (0, d / 2, h), EAST), (cmath.exp(-1j * beta / 2), (0, -d / 2, h), EAST)])
    write("dipole_pair.ant", "Phased dipole pair E-W toward the south", "DAEW", metres, analyse(pair, True))

    # A three-element Yagi: reflector, driven element and director 0.2 wave apart on a boom
    # pointed at altitude 45 toward the south, elements horizontal east to west, free space.
    spacing, xr, xd = 0.2, 35.0, -35.0
    z_self = complex(73.1, 42.5)
    pos = [-spacing, 0.0, spacing]
    z = [[z_self if i == j else mutual(abs(pos[i] - pos[j])) for j in range(3)] for i in range(3)]
    z[0][0] += complex(0, xr)
    z[2][2] += complex(0, xd)
    currents = solve(z, [0, 1, 0])
    yagi = [(currents[i], rotate((0, 0, pos[i]), 45.0, 180.0), EAST) for i in range(3)]
    write("yagi3.ant", "Three-element Yagi at 45 deg south", "YAGI", "on a tilted boom", analyse(yagi, False))


if __name__ == "__main__":
    main()
