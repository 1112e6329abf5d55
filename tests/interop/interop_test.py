#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Sets alarms with place_alarm and looks at them through khal, vdirsyncer and a Radicale server on the loopback address.

usage: interop_test.py PLACE_ALARM
Needs khal, vdirsyncer and radicale (Debian packages of these names); without one of them it is skipped and says so.
"""
import contextlib
import datetime
import os
import pathlib
import re
import shutil
import socket
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.error
import urllib.request
import zoneinfo

PLACE_ALARM = pathlib.Path(sys.argv.pop()).resolve() if len(sys.argv) > 1 else None
SLOWEST_PROGRAM = 60  # [s]
SERVER_PATIENCE = 30  # [s]
SKIPPED = 77  # exit status, known to ctest
DAV = {"Depth": "1", "Content-Type": "application/xml"}

KHAL = """
[calendars]
[[alarms]]
path = {calendar}
[locale]
local_timezone = {zone}
default_timezone = {zone}
timeformat = %H:%M
dateformat = %Y-%m-%d
longdateformat = %Y-%m-%d
datetimeformat = %Y-%m-%d %H:%M
longdatetimeformat = %Y-%m-%d %H:%M
[sqlite]
path = {home}/khal.db
[default]
default_calendar = alarms
"""

RADICALE = """
[server]
hosts = 127.0.0.1:{port}
[auth]
type = none
[rights]
type = authenticated
[storage]
filesystem_folder = {home}/collections
[logging]
level = warning
"""

VDIRSYNCER = """
[general]
status_path = "{home}/status/"
[pair alarms]
a = "here"
b = "server"
collections = null
conflict_resolution = "a wins"
metadata = ["displayname", "color"]
[storage here]
type = "filesystem"
path = "{calendar}"
fileext = ".ics"
[storage server]
type = "caldav"
url = "{url}"
username = "user"
password = "none"
"""


def run(command, zone="UTC", home=None):
    """Output of a program; a failure shows everything it said."""
    environment = {"PATH": "/usr/local/bin:/usr/bin:/bin", "HOME": str(home or "/nonexistent"), "TZ": zone,
                   "LC_ALL": "C.UTF-8"}
    result = subprocess.run([str(part) for part in command], env=environment, stdin=subprocess.DEVNULL,
                            capture_output=True, text=True, timeout=SLOWEST_PROGRAM, check=False)
    if result.returncode != 0:
        raise AssertionError(f"{command[0]} ended with {result.returncode}\n{result.stdout}\n{result.stderr}")
    return result.stdout


def content_lines(text):
    """Unfolded content lines in an order of their own, for programs may store them in any order."""
    return sorted(re.sub(r"\r?\n[ \t]", "", text).split("\r\n") if "\r\n" in text
                  else re.sub(r"\n[ \t]", "", text).split("\n"))


class Place:
    """A data directory in a time zone."""

    def __init__(self, zone, home):
        self.zone = zone
        self.home = pathlib.Path(home)
        self.data = self.home / "data"
        self.calendar = self.data / "calendar"
        self.data.mkdir()

    def now(self):
        return datetime.datetime.now(zoneinfo.ZoneInfo(self.zone))

    def alarm(self, prayer_id, hours, offset):
        return run([PLACE_ALARM, self.data, prayer_id, hours, offset], self.zone).strip()

    def switch_off(self, prayer_id):
        run([PLACE_ALARM, self.data, prayer_id, "off"], self.zone)

    def events(self):
        return sorted(self.calendar.glob("*.ics"))

    def khal(self):
        """The lines that khal shows of today and the next two days."""
        config = self.home / "khal.conf"
        config.write_text(KHAL.format(calendar=self.calendar, zone=self.zone, home=self.home), encoding="utf-8")
        form = ("{start-date} {start-time} {end-date} {end-time}|{title}|{location}|{alarm-symbol}|{description}|"
                "{repeat-symbol}")
        output = run(["khal", "-c", config, "list", "--day-format", "", "--once", "--format", form,
                      self.now().strftime("%Y-%m-%d"), "3d"], self.zone, self.home)
        return [line for line in output.splitlines() if line.strip()]


class KhalShowsTheAlarms(unittest.TestCase):
    ZONES = ["UTC", "Europe/Berlin", "America/New_York", "Australia/Sydney", "Africa/Cairo", "Pacific/Kiritimati"]

    def expected(self, place, minute_of_day):
        """An alarm rings at its next occurrence that is at least five minutes away."""
        before = place.now()
        moment = before.replace(hour=0, minute=0, second=0, microsecond=0) + datetime.timedelta(minutes=minute_of_day)
        margin = before.replace(second=0, microsecond=0) + datetime.timedelta(minutes=5)
        return moment if moment >= margin else moment + datetime.timedelta(days=1)

    def test_at_the_right_local_minute(self):
        for zone in self.ZONES:
            with self.subTest(zone=zone), tempfile.TemporaryDirectory() as home:
                place = Place(zone, home)
                minute_of_day = (place.now().hour * 60 + place.now().minute + 90) % 1440
                place.alarm(202, minute_of_day / 60 + 0.001, 0)
                start = self.expected(place, minute_of_day)
                end = start + datetime.timedelta(minutes=1)
                times = f"{start:%Y-%m-%d %H:%M} {end:%Y-%m-%d %H:%M}"
                self.assertEqual(place.khal(), [times + "|Prayer Alarm|Zorel| \N{ALARM CLOCK}||"])

    def test_the_last_minute_of_the_day_is_there(self):
        with tempfile.TemporaryDirectory() as home:
            place = Place("Europe/Berlin", home)
            place.alarm(205, 23.0, 59)
            lines = place.khal()
            self.assertEqual(len(lines), 1, lines)
            self.assertRegex(lines[0], r"^\S+ 23:59 \S+ 00:00\|Prayer Alarm\|")

    def test_an_alarm_that_is_off_is_gone(self):
        with tempfile.TemporaryDirectory() as home:
            place = Place("Europe/Berlin", home)
            place.alarm(204, 18.0, 0)
            place.alarm(205, 20.0, 0)
            self.assertEqual(len(place.khal()), 2)
            place.switch_off(204)
            self.assertEqual(len(place.khal()), 1)


class Server:
    """A Radicale server with one empty calendar."""

    def __init__(self, home):
        self.home = pathlib.Path(home)
        for _ in range(3):  # another program may take the port before the server does
            if self.start():
                return
        raise AssertionError("radicale did not start:\n" + (self.home / "radicale.log").read_text(encoding="utf-8"))

    def start(self):
        with socket.socket() as probe:
            probe.bind(("127.0.0.1", 0))
            self.port = probe.getsockname()[1]
        self.url = f"http://127.0.0.1:{self.port}/user/alarms/"
        config = self.home / "radicale.conf"
        config.write_text(RADICALE.format(port=self.port, home=self.home), encoding="utf-8")
        with open(self.home / "radicale.log", "wb") as log:
            self.process = subprocess.Popen(["/usr/bin/env", "PATH=/usr/bin:/bin", "radicale", "--config", str(config)],
                                            stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        deadline = time.monotonic() + SERVER_PATIENCE
        while time.monotonic() < deadline and self.process.poll() is None:
            try:
                self.request("MKCALENDAR", self.url)
                return True
            except (urllib.error.URLError, OSError):
                time.sleep(0.1)
        self.stop()
        return False

    def stop(self):
        if self.process.poll() is None:
            self.process.terminate()
            try:
                self.process.wait(10)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()

    def request(self, method, url, headers=None):
        user = {"Authorization": "Basic dXNlcjpub25l"}  # user:none; the server asks for a name only
        request = urllib.request.Request(url, method=method, headers={**user, **(headers or {})})
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        with opener.open(request, timeout=SERVER_PATIENCE) as answer:
            return answer.read().decode("utf-8")

    def hrefs(self):
        listing = self.request("PROPFIND", self.url, DAV)
        return sorted(f"http://127.0.0.1:{self.port}{href}"
                      for href in re.findall(r"<(?:\w+:)?href>([^<]+\.ics)</", listing))


class ServerHoldsTheAlarms(unittest.TestCase):
    def setUp(self):
        self.home = tempfile.TemporaryDirectory()
        self.addCleanup(self.home.cleanup)
        self.place = Place("Europe/Berlin", self.home.name)
        self.server = Server(self.home.name)
        self.addCleanup(self.server.stop)

    def vdirsyncer(self, *arguments):
        config = self.place.home / "vdirsyncer.conf"
        config.write_text(VDIRSYNCER.format(home=self.place.home, calendar=self.place.calendar, url=self.server.url),
                          encoding="utf-8")
        run(["vdirsyncer", "-c", config, *arguments], self.place.zone, self.place.home)

    def assert_server_equals_folder(self):
        ours = sorted(content_lines(path.read_bytes().decode("utf-8")) for path in self.place.events())
        theirs = sorted(content_lines(self.server.request("GET", href)) for href in self.server.hrefs())
        self.assertEqual(theirs, ours)

    def test_a_whole_story(self):
        place = self.place
        far = (place.now().hour + 6) % 24 + 0.5  # not due while the test runs
        for index in range(6):
            place.alarm(200 + index, 5.25 + 2.5 * index, index * 3 - 5)
        self.vdirsyncer("discover")
        self.vdirsyncer("sync")
        self.vdirsyncer("metasync")
        self.assertEqual(len(self.server.hrefs()), 6)
        self.assert_server_equals_folder()
        self.assertIn("Prayer alarms", self.server.request("PROPFIND", self.server.url, DAV))

        # Moved, switched off, nothing changed.
        place.alarm(203, far, 0)
        place.switch_off(201)
        self.vdirsyncer("sync")
        self.assertEqual(len(self.server.hrefs()), 5)
        self.assert_server_equals_folder()
        before = [path.stat().st_mtime_ns for path in place.events()]
        place.alarm(203, far, 0)
        self.vdirsyncer("sync")
        self.assertEqual([path.stat().st_mtime_ns for path in place.events()], before)

        # The user deletes an alarm's event on the phone; the next computation makes another.
        identifier = place.alarm(203, far, 0)
        self.server.request("DELETE", next(href for href in self.server.hrefs() if identifier in href))
        self.vdirsyncer("sync")
        self.assertEqual(len(place.events()), 4)
        self.assertNotEqual(place.alarm(203, far, 0), identifier)
        self.vdirsyncer("sync")
        self.assertEqual(len(self.server.hrefs()), 5)
        self.assert_server_equals_folder()


class TwoMachinesShareTheServer(unittest.TestCase):
    """Both have the same identity (they are this one) and, each while it runs, the same path."""

    def setUp(self):
        self.home = tempfile.TemporaryDirectory()
        self.addCleanup(self.home.cleanup)
        self.server = Server(self.home.name)
        self.addCleanup(self.server.stop)
        self.machines = {}
        for name in ("desk", "lap"):
            with self.turn(name):
                self.here.mkdir(exist_ok=True)
                self.machines[name] = Place("Europe/Berlin", self.here)

    @property
    def here(self):
        return pathlib.Path(self.home.name) / "machine"

    @contextlib.contextmanager
    def turn(self, name):
        """The folder of the machine lies in the one place while it is its turn."""
        away = pathlib.Path(self.home.name) / name
        if away.exists():
            away.rename(self.here)
        try:
            yield self.machines.get(name)
        finally:
            self.here.rename(away)

    def sync(self, place):
        config = place.home / "vdirsyncer.conf"
        config.write_text(VDIRSYNCER.format(home=place.home, calendar=place.calendar, url=self.server.url),
                          encoding="utf-8")
        place.calendar.mkdir(exist_ok=True)
        for word in ("discover", "sync"):
            run(["vdirsyncer", "-c", config, word], place.zone, place.home)

    def stems(self, place):
        return {path.stem for path in place.events()}

    def far(self, place, hours):
        return (place.now().hour + hours) % 24 + 0.5

    def test_neither_removes_the_alarms_of_the_other(self):
        events = {}
        for name in ("desk", "lap", "desk"):
            with self.turn(name) as place:
                self.sync(place)
                events[name] = {place.alarm(200 + index, self.far(place, 5 + index), 0) for index in range(3)}
                self.sync(place)
        self.assertEqual(len(self.server.hrefs()), 6)
        # Every action sweeps what a machine takes for its own leftovers.
        with self.turn("lap") as place:
            self.sync(place)
            self.assertEqual(self.stems(place), events["desk"] | events["lap"])
            place.switch_off(200)
            place.alarm(201, self.far(place, 9), 0)
            self.assertTrue(events["desk"] <= self.stems(place))
            self.assertEqual(len(self.stems(place)), 5)
            self.sync(place)
        with self.turn("desk") as place:
            self.sync(place)
            for prayer in range(200, 203):
                place.switch_off(prayer)
            self.assertEqual(len(self.stems(place)), 2, "those of the other machine")
            self.sync(place)
        self.assertEqual(len(self.server.hrefs()), 2)

    def test_a_copied_folder_on_another_machine_is_another_owner(self):
        with self.turn("desk") as place:
            mine = place.alarm(200, self.far(place, 6), 0)
            identity = place.home / "machine-id"
            identity.write_text("0123456789abcdef0123456789abcdef\n", encoding="utf-8")
            elsewhere = ["unshare", "--map-root-user", "--mount", "sh", "-c",
                         'mount --bind "$0" /etc/machine-id && exec "$@"', identity]
            try:
                run([*elsewhere, "true"])
            except (AssertionError, OSError) as reason:
                self.skipTest(f"no other machine can be played here: {reason}")
            copy = place.home / "copy"
            shutil.copytree(place.data, copy)
            theirs = run([*elsewhere, PLACE_ALARM, copy, "201", "12.5", "0"], place.zone).strip()
            self.assertNotEqual(theirs.rsplit("-", 1)[0], mine.rsplit("-", 1)[0])

    def test_events_of_an_earlier_version_are_adopted(self):
        with self.turn("desk") as place:
            (place.data / "user.sqlite.owner").mkdir()  # no identifier can be kept: the former name serves
            first, second = (place.alarm(prayer, self.far(place, 6), 0) for prayer in (200, 201))
            former = first.rsplit("-", 1)[0]
            self.assertEqual(second.rsplit("-", 1)[0], former)
            leftover = place.calendar / f"{former}-00000000000000000000000000000000.ics"
            leftover.write_text((place.calendar / f"{first}.ics").read_text(encoding="utf-8").replace(
                first, leftover.stem), encoding="utf-8")
            (place.data / "user.sqlite.owner").rmdir()
            third = place.alarm(202, self.far(place, 7), 0)
            self.assertNotEqual(third.rsplit("-", 1)[0], former)
            self.assertEqual(self.stems(place), {first, second, third}, "the leftover is gone, the alarms stay")
            self.assertEqual(place.alarm(200, self.far(place, 8), 0), first, "an event keeps its identifier for life")


def main():
    programs = ("khal", "vdirsyncer", "radicale")
    missing = [program for program in programs if shutil.which(program, path="/usr/bin:/bin") is None]
    if PLACE_ALARM is None:
        sys.exit(__doc__)
    if missing:
        print(f"{__file__}: Skipped\nnot installed: {' '.join(missing)}")
        sys.exit(SKIPPED)
    unittest.main(verbosity=2)


if __name__ == "__main__":
    main()
