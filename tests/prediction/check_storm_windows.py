#!/usr/bin/env python3
"""tarvelle-cli's JSON events and calendar events checked against the prediction grid and the
text report, over 30 days and several observers; the calendar read by python3-icalendar, with
its line ends and folding checked octet by octet."""
import datetime
import json
import os
import re
import subprocess
import sys
import tempfile

import icalendar

CLI = sys.argv[1]
START = datetime.date(2026, 11, 1)
DAYS = 30
# (latitude, longitude west, zone, exclusions): north, south and far north, with the defaults
# and with every minute allowed.
OBSERVERS = [
    ("39:15:00.0", "76:30:00.0", "-5", []),
    ("-33:52:00", "208:47:00", "10", ["--sun-alt-max", "90", "--jup-alt-min", "-90", "--min-ha", "-12", "--max-ha", "12"]),
    ("64:50:00", "147:43:00", "-9", ["--sun-alt-max", "-6", "--jup-alt-min", "10"]),
]
failures = []


def fail(message):
    failures.append(message)


def run(*args):
    r = subprocess.run([CLI, *args], capture_output=True)
    if r.returncode != 0:
        raise SystemExit(f"tarvelle-cli {' '.join(args)} failed: {r.stderr.decode(errors='replace')}")
    return r.stdout


def observer_args(lat, lng, tz):
    return ["--lat", lat, "--lng", lng, "--tz", tz]


def grid_events(day, grid_text):
    """The begin/end pairs of the grid as tarvelle-cli prints it (tab-separated cells)."""
    events = []
    for row in grid_text.decode("latin-1").splitlines()[1:]:
        cells = row.split("\t")
        for c in range(1, 7, 2):
            if c + 1 >= len(cells) or not re.fullmatch(r"\d\d:\d\d", cells[c]):
                break
            events.append((cells[0], f"{day}T{cells[c]}Z", f"{day}T{cells[c + 1]}Z"))
    return events


def check_json():
    for lat, lng, tz, ex in OBSERVERS:
        for k in range(DAYS):
            day = (START + datetime.timedelta(days=k)).isoformat()
            args = ["--date", day, *ex, *observer_args(lat, lng, tz)]
            expected = grid_events(day, run("predict", *args))
            got = json.loads(run("predict", "--format", "json", *args))
            events = [(e["mode"], e["begin"], e["end"]) for e in got["events"]]
            if events != expected:
                fail(f"JSON events of {day} at {lat} {lng}: {events} != grid {expected}")
            if got["date"] != day or not isinstance(got["latitude"], (int, float)):
                fail(f"JSON head of {day}: {got}")
            exclusions = got["exclusions"]
            named = dict(zip(ex[::2], ex[1::2]))
            for key, option, default in [("sun_altitude_max", "--sun-alt-max", 0), ("jupiter_altitude_min", "--jup-alt-min", 0),
                                         ("hour_angle_min", "--min-ha", -6), ("hour_angle_max", "--max-ha", 6)]:
                if exclusions[key] != float(named.get(option, default)):
                    fail(f"JSON exclusion {key} {exclusions[key]} for {named}")


def report_events(text):
    """(mode, begin, end) of each event the text report lists, day by day."""
    events, day = [], None
    for line in text.decode("latin-1").split("\r\n"):
        m = re.match(r"< Year (\d+)   Month (\d+)   Day (\d+) >", line)
        if m:
            day = datetime.date(*map(int, m.groups())).isoformat()
            continue
        cells = line.split()
        if day and len(cells) >= 3 and re.fullmatch(r"\d\d:\d\d", cells[1]):
            for b, e in zip(cells[1::2], cells[2::2]):
                events.append((cells[0], f"{day}T{b}Z", f"{day}T{e}Z"))
    return events


def check_octets(data, where):
    if re.search(rb"\r(?!\n)|(?<!\r)\n", data):
        fail(f"{where}: a line end that is not CR LF")
    for n, line in enumerate(data.split(b"\r\n")[:-1], 1):
        if len(line) > 75:
            fail(f"{where}: line {n} has {len(line)} octets")
        line.decode("utf-8")  # a fold never cuts a character
    if not data.endswith(b"END:VCALENDAR\r\n"):
        fail(f"{where}: does not end with END:VCALENDAR CR LF")


def vevents(data):
    calendar = icalendar.Calendar.from_ical(data.decode("utf-8"))
    for key, value in [("VERSION", "2.0"), ("CALSCALE", "GREGORIAN")]:
        if str(calendar.get(key)) != value:
            fail(f"{key} is {calendar.get(key)}")
    if "Tarvelle" not in str(calendar.get("PRODID")):
        fail(f"PRODID {calendar.get('PRODID')}")
    found = []
    for e in calendar.walk("VEVENT"):
        for key in ["UID", "DTSTAMP", "DTSTART", "DTEND", "SUMMARY", "DESCRIPTION"]:
            if key not in e:
                fail(f"VEVENT without {key}")
        start, end = e.decoded("DTSTART"), e.decoded("DTEND")
        if start.tzinfo is None or start.utcoffset() != datetime.timedelta(0) or start.second:
            fail(f"DTSTART {start} not in whole UTC minutes")
        summary = str(e["SUMMARY"])
        mode = re.fullmatch(r"Jupiter (.+) storm possible", summary)
        found.append((mode.group(1) if mode else summary, start.strftime("%Y-%m-%dT%H:%MZ"),
                      end.strftime("%Y-%m-%dT%H:%MZ"), str(e["UID"]), str(e["DESCRIPTION"])))
    return found


def check_calendar(workdir):
    end = (START + datetime.timedelta(days=DAYS - 1)).isoformat()
    choices = [[], ["--min-duration", "25", "--io-only"], ["--no-none", "--hour-angle"]]
    for lat, lng, tz, ex in OBSERVERS:
        for extra in choices:
            args = ["--from", START.isoformat(), "--to", end, *ex, *extra, *observer_args(lat, lng, tz)]
            text_path = os.path.join(workdir, "r.txt")
            ics_path = os.path.join(workdir, "r.ics")
            run("report", "--out", text_path, *args)
            run("report", "--format", "ics", "--out", ics_path, *args)
            with open(text_path, "rb") as f:
                expected = report_events(f.read())
            with open(ics_path, "rb") as f:
                data = f.read()
            check_octets(data, f"calendar {lat} {extra}")
            events = vevents(data)
            if [e[:3] for e in events] != expected:
                fail(f"VEVENTs at {lat} {extra}: {[e[:3] for e in events]} != report {expected}")
            if len({e[3] for e in events}) != len(events):
                fail(f"UIDs not unique at {lat} {extra}")
            for e in events:
                if not re.search(r"Begin \d\d:\d\d GMT: CML III \d+ deg, Io phase \d+ deg, Jupiter altitude -?\d+ deg", e[4]):
                    fail(f"DESCRIPTION {e[4]!r}")
            if not extra:
                run("report", "--format", "ics", "--out", ics_path, *args)
                with open(ics_path, "rb") as f:
                    again = vevents(f.read())
                if [e[3] for e in again] != [e[3] for e in events]:
                    fail("UIDs differ between two runs")


def check_latin1_names(workdir):
    """A Latin-1 mode name long enough that its SUMMARY folds, with a two-octet character at the fold."""
    name = "Io-S\xfcd-" + "x" * 38 + "\xe9\xe9\xe9-wide"
    path = os.path.join(workdir, "latin.jmf")
    with open(path, "wb") as f:
        f.write((name + "\r\n 0 \r\n 360 \r\n 0 \r\n 360 \r\n").encode("latin-1"))
    day = START.isoformat()
    ex = ["--sun-alt-max", "90", "--jup-alt-min", "-90", "--min-ha", "-12", "--max-ha", "12"]
    got = json.loads(run("predict", "--format", "json", "--date", day, "--modes", path, *ex))
    if [e["mode"] for e in got["events"]] != [name]:
        fail(f"JSON name {got['events']}")
    ics, text = os.path.join(workdir, "latin.ics"), os.path.join(workdir, "latin.txt")
    args = ["--from", day, "--to", day, "--modes", path, *ex]
    run("report", "--format", "ics", "--out", ics, *args)
    run("report", "--out", text, *args)
    with open(ics, "rb") as f:
        data = f.read()
    with open(text, "rb") as f:
        expected = report_events(f.read())
    check_octets(data, "Latin-1 calendar")
    if b"\r\n " not in data:
        fail("the long SUMMARY was not folded")
    events = vevents(data)
    if not expected or [e[:3] for e in events] != expected:
        fail(f"Latin-1 VEVENT {[e[:3] for e in events]} != report {expected}")


with tempfile.TemporaryDirectory() as workdir:
    check_json()
    check_calendar(workdir)
    check_latin1_names(workdir)
for f in failures[:20]:
    print(f)
print(f"{len(failures)} failures")
sys.exit(1 if failures else 0)
