#!/usr/bin/env python3
"""Draws data/altaz_chart.bmp, the chart behind the Alt/Az display: 360 x 200 pixels, one pixel
a degree of azimuth from north at the left edge through east, south and west, two pixels a
degree of altitude from 90 at the top to -10 at the foot, so the horizon is the row y = 180.

A sky that darkens upwards, a green strip of ground below the horizon, pale lines every 10
degrees of altitude and at the azimuths of east, south and west, and the labels of both axes
in the small bitmap font of the plane pictures. Run from the repository root:

    python3 tools/make_altaz_chart.py

Python 3, standard library only; the output is byte-identical on every run.
"""
import os
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import make_plane_pictures as plane  # noqa: E402  (the canvas, BMP writer and font)

WIDTH, HEIGHT = 360, 200
HORIZON_Y = 180

LETTERS = {
    "N": ["10001", "11001", "10101", "10011", "10001", "10001", "10001"],
    "E": ["11111", "10000", "10000", "11110", "10000", "10000", "11111"],
    "S": ["01111", "10000", "10000", "01110", "00001", "00001", "11110"],
    "W": ["10001", "10001", "10001", "10101", "10101", "10101", "01010"],
}
plane.FONT.update(LETTERS)


def y_of(alt):
    return int(round((90 - alt) * 2))


def mix(a, b, f):
    return tuple(int(round(p + (q - p) * f)) for p, q in zip(a, b))


def main():
    cv = plane.Canvas(WIDTH, HEIGHT)
    top, low = (8, 16, 52), (58, 112, 196)
    for y in range(HEIGHT):
        if y < HORIZON_Y:
            colour = mix(top, low, (y / HORIZON_Y) ** 1.4)
        else:
            colour = mix((40, 120, 40), (22, 70, 24), (y - HORIZON_Y) / (HEIGHT - HORIZON_Y))
        for x in range(WIDTH):
            cv.set(x, y, colour)
    grid = (150, 170, 215)
    for alt in range(10, 90, 10):
        y = y_of(alt)
        for x in range(0, WIDTH, 2):
            cv.set(x, y, grid)
    for az in (90, 180, 270):
        for y in range(0, HORIZON_Y, 2):
            cv.set(az, y, grid)
    for x in range(WIDTH):
        cv.set(x, HORIZON_Y, (235, 235, 235))
    for alt in range(10, 90, 10):
        cv.text(3, y_of(alt) - 8, str(alt), ink=(225, 232, 250), halo=None)
    for az, letter in ((0, "N"), (90, "E"), (180, "S"), (270, "W"), (360, "N")):
        x = min(max(az - 2, 2), WIDTH - 8)
        cv.text(x, HORIZON_Y + 7, letter, ink=(255, 255, 255), halo=None)
    cv.write_bmp(os.path.join("data", "altaz_chart.bmp"))
    print("wrote data/altaz_chart.bmp")


if __name__ == "__main__":
    main()
