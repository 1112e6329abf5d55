#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""zorel-settings on a real desktop: an X server, a window manager, a screen reader's bus, keys and clicks.

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
PATIENCE = 15.0


def eventually(condition, patience=PATIENCE):
    deadline = time.monotonic() + patience
    while time.monotonic() < deadline:
        found = condition()
        if found:
            return found
        time.sleep(0.1)
    return condition()


class Desktop:
    """An X server without a screen, with a window manager."""

    def __init__(self):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writing), "-screen", "0", "1400x900x24", "-nolisten", "tcp"],
            pass_fds=[writing], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(writing)
        with os.fdopen(reading) as lines:
            number = lines.readline().strip()
        os.environ["DISPLAY"] = f":{number}"
        self.manager = subprocess.Popen(["openbox", "--sm-disable"], stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def key(*names):
    subprocess.run(["xdotool", "key", "--delay", "60", *names], check=True)


class DesktopTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop()
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi
        cls.Atspi = Atspi

    @classmethod
    def tearDownClass(cls):
        cls.desktop.close()

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        home = pathlib.Path(self.folder.name)
        os.chmod(home, 0o700)
        environment = {name: value for name, value in os.environ.items() if not name.startswith("QT_")}
        environment |= {"HOME": str(home), "LC_ALL": "C.UTF-8", "TZ": "Europe/Istanbul", "XDG_RUNTIME_DIR": str(home),
                        "QT_QPA_PLATFORM": "xcb", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1"}
        environment.pop("XDG_DATA_HOME", None)
        self.window = subprocess.Popen([PROGRAM], env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        found = eventually(lambda: subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Zorel$"],
                                                  capture_output=True, text=True).stdout.split())
        if not found:
            self.window.kill()
            self.fail("no window on the screen: " + self.window.communicate()[1].decode())
        self.number = found[0]
        subprocess.run(["xdotool", "windowactivate", "--sync", self.number], check=True, timeout=20)

    def tearDown(self):
        self.window.kill()
        self.window.communicate()
        self.folder.cleanup()

    def application(self):
        desktop = self.Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            if child is not None and "zorel" in (child.get_name() or "").lower():
                return child
        return None

    def tree(self):
        """(role, name, states) of all that is told to a screen reader."""
        lines = []

        def visit(part, depth):
            if part is None or depth > 30:
                return
            states = part.get_state_set()
            shown = states.contains(self.Atspi.StateType.VISIBLE) or depth < 2
            if part.get_name() and shown:
                lines.append((part.get_role_name(), part.get_name(), part, states))
            for index in range(part.get_child_count()):
                visit(part.get_child_at_index(index), depth + 1)

        try:
            application = self.application()
            if application is not None:
                application.clear_cache()
                visit(application, 0)
        except Exception:  # a part went away while the tree was read
            return []
        return lines

    def told(self, role, name):
        return next((part for found, called, part, _ in self.tree() if found == role and re.fullmatch(name, called)), None)

    def hears(self, role, name):
        if not eventually(lambda: self.told(role, name)):
            self.fail(f"{role}: {name} is not among\n" + "\n".join(f"{r}: {n}" for r, n, _, _ in self.tree()))
        return self.told(role, name)

    def press(self, role, name):
        self.assertTrue(self.hears(role, name).do_action(0))

    def test_a_screen_reader_sets_up_the_home_city_and_hears_why(self):
        self.hears("heading", "Where do you pray\\?")
        self.press("push button", "İstanbul, Türkiye")
        self.hears("push button", "Fajr, [0-9:]+.*")
        self.press("push button", "Maghrib, [0-9:]+.*")
        self.hears("heading", "Why Maghrib [0-9:]+\\?")
        self.press("push button", "Close")
        self.assertTrue(eventually(lambda: self.told("push button", "Close") is None))

    def test_keys_alone_do_it_too(self):
        self.hears("heading", "Where do you pray\\?")
        for _ in range(12):
            key("Tab")
            time.sleep(0.2)
            focused = [name for role, name, _, states in self.tree()
                       if role == "push button" and states.contains(self.Atspi.StateType.FOCUSED)]
            if focused == ["İstanbul, Türkiye"]:
                break
        self.assertEqual(focused, ["İstanbul, Türkiye"], "Tab reaches the button")
        key("Return")
        self.hears("push button", "Fajr, [0-9:]+.*")

    def test_the_window_is_resized_and_closed_by_its_manager(self):
        self.hears("heading", "Where do you pray\\?")
        subprocess.run(["xdotool", "windowsize", "--sync", self.number, "1100", "700"], check=True, timeout=20)
        self.hears("push button", "Search for another city")
        subprocess.run(["xdotool", "windowsize", "--sync", self.number, "320", "480"], check=True, timeout=20)
        self.hears("push button", "Search for another city")
        key("ctrl+q")
        self.assertEqual(self.window.wait(timeout=20), 0)

    def test_the_first_frame_in_x11_and_wayland(self):
        home = pathlib.Path(self.folder.name)
        compositor = subprocess.Popen(["weston", "--backend=headless-backend.so", "--socket=zorel", "--idle-time=0"],
                                      env=os.environ | {"XDG_RUNTIME_DIR": str(home)}, stdout=subprocess.DEVNULL,
                                      stderr=subprocess.DEVNULL)
        try:
            self.assertTrue(eventually(lambda: (home / "zorel").exists()), "a Wayland compositor")
            for platform in ("xcb", "wayland"):
                environment = {name: value for name, value in os.environ.items() if not name.startswith("QT_")}
                environment |= {"HOME": str(home), "LC_ALL": "C.UTF-8", "XDG_RUNTIME_DIR": str(home),
                                "WAYLAND_DISPLAY": "zorel", "QT_QPA_PLATFORM": platform,
                                # Qt 6.4 takes for granted that there is a keyboard; this compositor has none.
                                "QT_IM_MODULE": "compose"}
                started = subprocess.run([PROGRAM, "--data-dir", str(home / platform), "--time-start"], env=environment,
                                         capture_output=True, text=True, timeout=60)
                self.assertEqual((started.returncode, started.stderr), (0, ""))
                print(f"{platform}: {started.stdout.strip()}", file=sys.stderr)
                memory = int(re.search(r"(\d+) MB resident", started.stdout).group(1))
                self.assertLessEqual(memory, 60, platform)
        finally:
            compositor.terminate()
            compositor.wait()


if __name__ == "__main__":
    unittest.main()
