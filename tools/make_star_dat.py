#!/usr/bin/env python3
"""Writes data/star.dat, the sky map's bright stars, from the Bright Star Catalogue, 5th
Revised Ed. (Hoffleit & Warren 1991), as Debian's xplanet package ships it in
/usr/share/xplanet/stars/BSC (columns: Dec degrees, RA hours, V magnitude, "name", BSN, HD, SAO).

Each star becomes one record of 120 bytes, little-endian: single RA hours, single Dec degrees,
8 zero bytes, single magnitude, 100 bytes of name ("9Alp CMa  BSC 2491", blank-padded). The
catalogue's order (brightest first) is kept. Run from the repository root:

    python3 tools/make_star_dat.py [path to BSC]

The output is byte-identical for the same catalogue file.
"""
import shlex
import struct
import sys

SOURCE = sys.argv[1] if len(sys.argv) > 1 else "/usr/share/xplanet/stars/BSC"
TARGET = "data/star.dat"


def records(path):
    with open(path, encoding="latin-1") as f:
        for line in f:
            if not line.strip() or line.lstrip().startswith("#"):
                continue
            fields = shlex.split(line)
            dec, ra, mag = float(fields[0]), float(fields[1]), float(fields[2])
            name = " ".join(fields[3].split())
            bsn = fields[4] if len(fields) > 4 else ""
            label = f"{name}  BSC {bsn}".strip()
            assert 0.0 <= ra < 24.0 and -90.0 <= dec <= 90.0, line
            yield struct.pack("<ff8xf100s", ra, dec, mag, label.encode("ascii").ljust(100, b" "))


def main():
    data = b"".join(records(SOURCE))
    assert len(data) % 120 == 0
    with open(TARGET, "wb") as f:
        f.write(data)
    print(f"{TARGET}: {len(data) // 120} stars")


if __name__ == "__main__":
    main()
