#!/usr/bin/env python3
"""Build data/latlng.txt, the city list of the observer window, from the tz database.

Every zone of zone1970.tab and zone.tab becomes one city: its name is the last
part of the zone name, its country the zone's first country code looked up in
iso3166.tab, its place the zone's principal location. The tz database is in
the public domain; Debian ships these tables in the tzdata package.

    python3 tools/make_latlng.py                  # writes data/latlng.txt
    python3 tools/make_latlng.py OUT [ZONEINFO]   # another output or table folder

The file holds "*" + region lines, each followed by its cities in name order,
three lines a city: "City, Country", latitude (north positive) and longitude
in degrees west, 0 to 360. The output is the same on every run.
"""

import os
import sys

ZONEINFO = "/usr/share/zoneinfo"

# America is too long for one list: it is split by country into these three.
SOUTH_AMERICA = {"AR", "BO", "BR", "CL", "CO", "EC", "FK", "GF", "GY", "PE", "PY", "SR", "UY", "VE"}
NORTH_AMERICA = {"US", "CA", "MX", "GL", "PM", "BM"}

# In the order the region list shows them.
REGIONS = [
    "Africa",
    "North America",
    "Central America and Caribbean",
    "South America",
    "Antarctica",
    "Asia",
    "Atlantic",
    "Australia",
    "Europe",
    "Indian",
    "Pacific",
]


def read_table(path):
    """The rows of a tab-separated tz table, comments left out."""
    with open(path, encoding="utf-8") as f:
        return [line.rstrip("\n").split("\t") for line in f if line.strip() and not line.startswith("#")]


def sexagesimal(text):
    """A signed ISO 6709 field (+DDMM, +DDDMM, +DDMMSS or +DDDMMSS) in degrees."""
    sign = -1.0 if text[0] == "-" else 1.0
    digits = text[1:]
    width = 2 if len(digits) in (4, 6) else 3  # degrees of latitude have 2 digits, of longitude 3
    degrees = int(digits[:width])
    minutes = int(digits[width:width + 2])
    seconds = int(digits[width + 2:width + 4] or 0)
    return sign * (degrees + minutes / 60.0 + seconds / 3600.0)


def coordinates(text):
    """Latitude (north positive) and longitude (east positive) of a coordinates column."""
    split = max(text.rfind("+"), text.rfind("-"))
    return sexagesimal(text[:split]), sexagesimal(text[split:])


def number(x):
    """Four decimals (about 10 m), trailing zeros dropped."""
    s = "%.4f" % x
    s = s.rstrip("0").rstrip(".")
    return "0" if s in ("-0", "") else s


def region_of(zone, country):
    area = zone.split("/")[0]
    if area == "Arctic":  # Longyearbyen, Svalbard
        return "Europe"
    if area == "America":
        if country in SOUTH_AMERICA:
            return "South America"
        if country in NORTH_AMERICA:
            return "North America"
        return "Central America and Caribbean"
    return area


def build(zoneinfo):
    countries = {row[0]: row[1] for row in read_table(os.path.join(zoneinfo, "iso3166.tab"))}
    zones = {}  # zone name -> (country code, coordinates)
    for row in read_table(os.path.join(zoneinfo, "zone1970.tab")):
        zones[row[2]] = (row[0].split(",")[0], row[1])
    # zone.tab names one country per zone: it adds the zones that are links in zone1970.tab
    # and names the country of the city itself where a zone spans several.
    for row in read_table(os.path.join(zoneinfo, "zone.tab")):
        zones[row[2]] = (row[0], row[1])

    regions = {name: [] for name in REGIONS}
    for zone, (code, coords) in zones.items():
        city = zone.split("/")[-1].replace("_", " ")
        lat, lon_east = coordinates(coords)
        lon_west = -lon_east if lon_east <= 0 else 360.0 - lon_east
        region = region_of(zone, code)
        if region not in regions:
            raise SystemExit("make_latlng: zone %s falls in no region" % zone)
        regions[region].append(("%s, %s" % (city, countries[code]), lat, lon_west))

    lines = []
    seen = set()
    for name in REGIONS:
        lines.append("*" + name)
        for city, lat, lon_west in sorted(regions[name]):
            # The window finds a city by the first line equal to its name in the whole file.
            if city in seen:
                raise SystemExit("make_latlng: %s is listed twice" % city)
            seen.add(city)
            lines += [city, number(lat), number(lon_west)]
    return lines, len(seen)


def main():
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    out = sys.argv[1] if len(sys.argv) > 1 else os.path.join(root, "data", "latlng.txt")
    zoneinfo = sys.argv[2] if len(sys.argv) > 2 else ZONEINFO
    lines, cities = build(zoneinfo)
    with open(out, "w", encoding="utf-8", newline="\n") as f:
        f.write("".join(line + "\n" for line in lines))
    print("%s: %d cities in %d regions" % (out, cities, len(REGIONS)))


if __name__ == "__main__":
    main()
