#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""zorel-settings on real desktops: X11 with a window manager, a Wayland compositor, a screen reader's bus, keys, clicks.

usage: desktop_test.py PATH-OF-ZOREL-SETTINGS
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time
import unittest

if "ZOREL_DESKTOP_TEST" not in os.environ:  # a session bus of its own
    os.environ["ZOREL_DESKTOP_TEST"] = "1"
    os.execvp("dbus-run-session", ["dbus-run-session", "--", sys.executable, *sys.argv])

PROGRAM = os.path.abspath(sys.argv.pop(1))

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import displays  # noqa: E402
import reader  # noqa: E402
from displays import eventually  # noqa: E402


class WindowCase(unittest.TestCase):
    """A window with a data folder of its own, seen by a screen reader."""

    settings = {}

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.home = pathlib.Path(self.folder.name)
        os.chmod(self.home, 0o700)
        self.window = None

    def tearDown(self):
        if self.window is not None:
            self.window.kill()
            self.window.communicate()
        self.folder.cleanup()

    def environment(self, **more):
        return displays.plain_environment() | {
            "HOME": str(self.home), "LC_ALL": "C.UTF-8", "TZ": "Europe/Istanbul", "XDG_RUNTIME_DIR": str(self.home),
            "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_QPA_PLATFORM": self.display.platform,
            # Qt 6.4 takes for granted that there is a keyboard from the beginning.
            "QT_IM_MODULE": "compose"} | self.display.environment() | more

    def open(self, *options, **more):
        self.window = subprocess.Popen([PROGRAM, *options], env=self.environment(**more), stdout=subprocess.DEVNULL,
                                       stderr=subprocess.PIPE)
        if not self.display.await_window():
            self.window.kill()
            self.fail("no window on the screen: " + self.window.communicate()[1].decode())

    def finds(self, role, name):
        if not eventually(lambda: reader.find(role, name)):
            self.fail(f"{role}: {name} is not among\n" + "\n".join(f"{r}: {n}" for r, n, _, _ in reader.tree()))
        return reader.find(role, name)

    def has_gone(self, role, name):
        self.assertTrue(eventually(lambda: reader.find(role, name) is None), f"{role}: {name} is still there")

    def is_checked(self, role, name):
        found = reader.find(role, name)
        return found is not None and reader.is_checked(found[1])

    def press(self, role, name):
        self.assertTrue(self.finds(role, name)[0].do_action(0))

    def click(self, role, name):
        """A click of the mouse on the middle of what the screen reader calls so."""
        place = [None]

        def rests():  # nothing slides any more
            before, place[0] = place[0], reader.centre(self.finds(role, name)[0])
            return before == place[0]

        self.assertTrue(eventually(rests))
        self.display.click(*place[0])

    def focused(self):
        return [name for role, name, _, states in reader.tree()
                if role in ("push button", "check box", "radio button") and reader.is_focused(states)]

    def tab_to(self, name):
        for _ in range(20):
            self.display.key("Tab")
            if eventually(lambda: name in self.focused(), 1.0):
                return
        self.fail(f"Tab does not reach {name}, but {self.focused()}")


class Story:
    """What holds under X11 and Wayland alike."""

    def test_clicks_set_up_the_home_city_an_alarm_and_ask_why(self):
        self.open()
        self.finds("heading", "Where do you pray\\?")
        self.click("push button", "İstanbul, Türkiye")
        self.finds("push button", "Fajr, [0-9:]+.*")
        self.assertTrue(self.ears.hears("İstanbul is your home city now"), self.ears.heard)
        self.click("push button", "Maghrib, [0-9:]+.*")
        self.finds("heading", "Why Maghrib [0-9:]+\\?")
        self.click("push button", "Close")
        self.has_gone("push button", "Close")

    def test_keys_alone_do_it_too(self):
        self.open()
        self.finds("heading", "Where do you pray\\?")
        self.tab_to("Search for another city")
        self.display.key("Return")
        self.finds("heading", "City Search")
        self.ears.forget()
        self.display.type("konya")
        self.assertTrue(self.ears.hears("[0-9]+ places found"), self.ears.heard)
        self.display.key("Return")
        self.display.key("Down")
        self.display.key("Return")
        self.finds("push button", "Add city")
        self.display.key("Return")
        self.finds("push button", "Fajr, [0-9:]+.*")
        self.assertTrue(self.ears.hears("Konya is your home city now"), self.ears.heard)

    def test_escape_closes_and_the_keyboard_quits(self):
        self.open()
        self.press("push button", "İstanbul, Türkiye")
        self.press("push button", "Isha, [0-9:]+.*")
        self.finds("push button", "Close")
        self.display.key("Escape")
        self.has_gone("push button", "Close")
        self.display.key("ctrl+q")
        self.assertEqual(self.window.wait(timeout=20), 0)


class X11Test(Story, WindowCase):
    @classmethod
    def setUpClass(cls):
        cls.display = displays.XDisplay()
        cls.ears = EARS

    @classmethod
    def tearDownClass(cls):
        cls.display.close()

    def test_the_window_is_resized_by_its_manager(self):
        self.open()
        self.finds("heading", "Where do you pray\\?")
        for size in ((1100, 700), (320, 480)):
            self.display.resize(*size)
            self.finds("push button", "Search for another city")

    def test_an_alarm_is_edited_by_ear(self):
        self.open("--width", "1000")
        self.press("push button", "İstanbul, Türkiye")
        self.click("check box", "Alarm Asr")
        self.assertTrue(eventually(lambda: self.is_checked("check box", "Alarm Asr")))
        self.assertTrue(self.ears.hears("rings (today|tomorrow) [0-9:]+"), self.ears.heard)
        self.click("list item", "Asr, [0-9:]+, rings .*")
        self.finds("heading", "Asr +[0-9:]+")
        self.press("radio button", "15 min before")
        self.assertTrue(eventually(lambda: self.is_checked("radio button", "15 min before")))
        self.finds("combo box", ".*, 15 min before")
        self.display.key("alt+Left")
        self.finds("push button", "Maghrib, [0-9:]+.*")

    def test_a_calendar_that_cannot_be_written_is_said(self):
        self.open("--width", "1000")
        self.press("push button", "İstanbul, Türkiye")
        calendar = self.home / ".local/share/zorel/calendar"
        self.finds("check box", "Alarm Asr")
        if calendar.exists():
            calendar.rmdir()
        calendar.write_text("in the way")
        self.ears.forget()
        self.click("check box", "Alarm Asr")
        self.assertTrue(self.ears.hears(".*calendar.*"), self.ears.heard)
        self.assertFalse(self.is_checked("check box", "Alarm Asr"))


class WaylandTest(Story, WindowCase):
    @classmethod
    def setUpClass(cls):
        cls.display = displays.WaylandDisplay()
        cls.ears = EARS

    @classmethod
    def tearDownClass(cls):
        cls.display.close()


class StartTest(unittest.TestCase):
    def test_the_first_frame_in_x11_and_wayland(self):
        for made in (displays.XDisplay, displays.WaylandDisplay):
            display = made()
            try:
                with tempfile.TemporaryDirectory() as home:
                    environment = displays.plain_environment() | display.environment() | {
                        "HOME": home, "LC_ALL": "C.UTF-8", "XDG_RUNTIME_DIR": home, "QT_IM_MODULE": "compose",
                        "QT_QPA_PLATFORM": display.platform}
                    started = subprocess.run([PROGRAM, "--data-dir", home, "--time-start"], env=environment,
                                             capture_output=True, text=True, timeout=60)
                self.assertEqual((started.returncode, started.stderr), (0, ""))
                print(f"{display.platform}: {started.stdout.strip()}", file=sys.stderr)
                memory = int(re.search(r"(\d+) MB resident", started.stdout).group(1))
                self.assertLessEqual(memory, 60, display.platform)
            finally:
                display.close()


if __name__ == "__main__":
    EARS = reader.Ears()
    unittest.main()
