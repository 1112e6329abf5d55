# SPDX-License-Identifier: Apache-2.0
"""GNOME's own calendar service and its alarm service notify for our alarms while they are connected.

usage: gnome_test.py BIN
Needs evolution-data-server, dbus-run-session, Xvfb and the Python modules dbus and gi; exit status 77 without them. The alarms
are placed for the next two full minutes: the test takes two to three.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
from datetime import datetime, timedelta, timezone
from pathlib import Path

SKIPPED = 77
NOTIFY = Path("/usr/libexec/evolution-data-server/evolution-alarm-notify")
INSIDE = "ZOREL_GNOME_TEST"  # set where the session's own environment is in force
NOTIFICATIONS = "org.freedesktop.Notifications"


def run_inside(folder):
    """What the bus starts has the environment that the bus was started with: folders of a test of its own."""
    home = Path(folder)
    environment = os.environ | {
        INSIDE: folder, "HOME": folder, "XDG_DATA_HOME": f"{home}/share", "XDG_CONFIG_HOME": f"{home}/config",
        "XDG_CACHE_HOME": f"{home}/cache", "XDG_RUNTIME_DIR": f"{home}/run", "GSETTINGS_BACKEND": "memory", "TZ": "UTC",
        "LC_ALL": "C.UTF-8"}
    for name in ("share", "config", "cache", "run"):
        (home / name).mkdir(mode=0o700)
    words = ["xvfb-run", "-a", "dbus-run-session", "--", sys.executable, *sys.argv]
    return subprocess.run(words, env=environment, check=False).returncode


def missing():
    for program in ("xvfb-run", "xauth", "dbus-run-session", NOTIFY):
        if not shutil.which(program):
            return str(program)
    try:
        import dbus.mainloop.glib
        from gi.repository import GLib
    except ImportError as error:
        return error.name
    return None


def make_server():
    import dbus.mainloop.glib
    import dbus.service

    class Server(dbus.service.Object):
        """A notification server that keeps what it was told."""

        def __init__(self, bus):
            super().__init__(bus, "/org/freedesktop/Notifications")
            self.shown = []

        @dbus.service.method(NOTIFICATIONS, in_signature="susssasa{sv}i", out_signature="u")
        def Notify(self, application, replaces, icon, title, body, actions, hints, timeout):
            self.shown.append((time.time(), f"{title} {body}"))
            print(f"  {datetime.now(timezone.utc):%H:%M:%S.%f} {title} | {body}", flush=True)
            return len(self.shown)

        @dbus.service.method(NOTIFICATIONS, in_signature="u")
        def CloseNotification(self, number):
            pass

        @dbus.service.method(NOTIFICATIONS, out_signature="as")
        def GetCapabilities(self):
            return ["actions", "body"]

        @dbus.service.method(NOTIFICATIONS, out_signature="ssss")
        def GetServerInformation(self):
            return "test", "test", "1", "1.2"

    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    bus.request_name(NOTIFICATIONS)
    return Server(bus)


class Gnome(unittest.TestCase):
    def setUp(self):
        from gi.repository import GLib
        self.context = GLib.MainContext.default()
        self.server = make_server()

    def zorel(self, *words):
        result = subprocess.run([BIN / "zorel", *words], capture_output=True, text=True, check=False)
        self.assertEqual(result.returncode, 0, result.stderr)
        return result.stdout

    def serve_until(self, instant):
        while time.time() < instant:
            while self.context.iteration(False):
                pass
            time.sleep(0.01)

    def place(self, minute):
        """Moves the alarm of the home city's Dhuhr to a full minute; a pretended morning is before every alarm of the day."""
        prayer = self.home_dhuhr()
        offset = int((minute - prayer).total_seconds() // 60)
        self.zorel("--now", (minute - timedelta(minutes=20)).isoformat(), "alarms", "offset", "dhuhr", str(offset))
        # What the ring service runs after every change.
        subprocess.run([BIN / "zorel-ring-plan"], check=True, capture_output=True)

    def home_dhuhr(self):
        import json
        return datetime.fromisoformat(json.loads(self.zorel("today", "--json"))["times"]["dhuhr"])

    def choose_home(self, minute):
        """A city whose Dhuhr is within an hour of the minute: one for each hour around the world."""
        import json
        for city in ("Auckland", "Noumea", "Sydney", "Tokyo", "Shanghai", "Bangkok", "Dhaka", "Delhi", "Karachi", "Dubai", "Istanbul",
                     "Berlin", "London", "Ponta Delgada", "São Paulo", "Buenos Aires", "New York", "Chicago", "Denver",
                     "Los Angeles", "Anchorage", "Honolulu"):
            day = json.loads(self.zorel("today", city, "--json", "--now", minute.isoformat()))
            offset = (minute - datetime.fromisoformat(day["times"]["dhuhr"])).total_seconds() / 60
            if -55 <= offset <= 50:
                return city
        raise RuntimeError("no city has its noon within an hour of this minute")

    def test_it_follows_a_change_notifies_and_stops(self):
        minute = (datetime.now(timezone.utc) + timedelta(seconds=110)).replace(second=0, microsecond=0)
        later = minute + timedelta(minutes=1)
        earlier = ("--now", (minute - timedelta(minutes=20)).isoformat())
        self.zorel("cities", "add", self.choose_home(minute))
        self.zorel(*earlier, "alarms", "on", "dhuhr")
        self.place(later)
        self.zorel("alarms", "connect", "gnome")
        service = subprocess.Popen([NOTIFY], stderr=subprocess.DEVNULL)
        self.addCleanup(service.wait)
        self.addCleanup(service.terminate)

        self.serve_until(time.time() + 10)  # GNOME knows the later minute by then, and has to learn the earlier one
        self.place(minute)
        self.serve_until(minute.timestamp() + 5)
        self.assertEqual(len(self.server.shown), 1)
        self.assertGreaterEqual(self.server.shown[0][0], minute.timestamp())
        self.assertLess(self.server.shown[0][0], minute.timestamp() + 3)
        self.assertIn("Prayer Alarm", self.server.shown[0][1])

        self.place(later)
        self.serve_until(time.time() + 10)  # GNOME knows it by then, and has to forget it again
        self.zorel("alarms", "connect", "none")
        self.serve_until(later.timestamp() + 5)
        self.assertEqual(len(self.server.shown), 1)


if __name__ == "__main__":
    lacking = missing()
    if lacking:
        print(f"{__file__}: Skipped\nnot installed: {lacking}")
        sys.exit(SKIPPED)
    if INSIDE not in os.environ:
        with tempfile.TemporaryDirectory(prefix="zorel-gnome-", ignore_cleanup_errors=True) as own:
            sys.exit(run_inside(own))
    BIN = Path(sys.argv.pop(1)).resolve()
    unittest.main(verbosity=2)
