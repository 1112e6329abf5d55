#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""zorel-settings as a person starts it: help, pictures, a second start, and what it says when something is missing.

usage: program_test.py PATH-OF-ZOREL-SETTINGS
"""
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

PROGRAM = os.path.abspath(sys.argv.pop(1))


class ProgramTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.home = pathlib.Path(self.folder.name)
        self.environment = {
            "PATH": os.environ["PATH"], "HOME": str(self.home), "LC_ALL": "C.UTF-8", "TZ": "Europe/Istanbul",
            "QT_QPA_PLATFORM": "offscreen", "QT_QUICK_BACKEND": "software", "XDG_RUNTIME_DIR": str(self.home),
            "TMPDIR": str(self.home)}
        os.chmod(self.home, 0o700)

    def tearDown(self):
        self.folder.cleanup()

    def run_program(self, *words):
        return subprocess.run([PROGRAM, *words], env=self.environment, capture_output=True, text=True, timeout=60)

    def test_help_and_version(self):
        help_text = self.run_program("--help")
        self.assertEqual(help_text.returncode, 0)
        for option in ["--data-dir", "--bundle", "--ringtones", "--calendar", "--screenshot", "--screen", "--version"]:
            self.assertIn(option, help_text.stdout)
        version = self.run_program("--version")
        self.assertEqual(version.returncode, 0)
        self.assertRegex(version.stdout, r"^zorel-settings \d+\.\d+\.\d+$")

    def test_mistakes_are_named(self):
        for words in (["--nonsense"], ["--screen", "attic", "--screenshot", "x.png"], ["--width", "10"],
                      ["--at", "noon", "--screenshot", "x.png"], ["--at", "2026-11-22T13:42"]):
            mistake = self.run_program(*words)
            self.assertEqual(mistake.returncode, 2, words)
            self.assertNotEqual(mistake.stderr, "", words)

    def test_a_missing_part_of_qt_is_named(self):
        program = pathlib.Path(shutil.copy(PROGRAM, self.home))
        plugins = subprocess.run(["qmake6", "-query", "QT_INSTALL_PLUGINS"], capture_output=True, text=True, check=True)
        (self.home / "qt.conf").write_text(f"[Paths]\nPlugins={plugins.stdout.strip()}\nQmlImports={self.home}\n")
        bundle = pathlib.Path(PROGRAM).parent.parent / "share" / "zorel" / "Zorel.bundle"
        drawn = subprocess.run([program, "--bundle", bundle, "--screenshot", self.home / "cities.png"],
                               env=self.environment, capture_output=True, text=True, timeout=60)
        self.assertEqual(drawn.returncode, 3)
        self.assertIn("sudo apt install qml6-module-qtqml-workerscript", drawn.stderr)

    def test_pictures(self):
        sizes = set()
        for screen in ("cities", "search", "alarm"):  # "why" and "edit" need a city
            file = self.home / f"{screen}.png"
            drawn = self.run_program("--screenshot", str(file), "--screen", screen)
            self.assertEqual(drawn.returncode, 0, drawn.stderr)
            self.assertEqual(drawn.stderr, "")
            data = file.read_bytes()
            self.assertEqual(data[:8], b"\x89PNG\r\n\x1a\n")
            self.assertEqual((int.from_bytes(data[16:20], "big"), int.from_bytes(data[20:24], "big")), (390, 780))
            sizes.add(len(data))
        self.assertEqual(len(sizes), 3, "three different pictures")
        self.assertTrue((self.home / ".local/share/zorel/user.sqlite").exists())

    def test_a_picture_is_the_same_each_time(self):
        first, second = (self.home / name for name in ("1.png", "2.png"))
        for file in (first, second):
            self.assertEqual(self.run_program("--at", "2026-11-22T13:42", "--screenshot", str(file)).returncode, 0)
        self.assertEqual(first.read_bytes(), second.read_bytes())

    def test_a_picture_that_cannot_be_written(self):
        drawn = self.run_program("--screenshot", "/nowhere/at/all.png")
        self.assertEqual(drawn.returncode, 3)
        self.assertIn("/nowhere/at/all.png", drawn.stderr)

    def test_without_a_catalogue_the_remedy_is_said(self):
        drawn = self.run_program("--bundle", "/nowhere", "--screenshot", str(self.home / "x.png"))
        self.assertIn("/nowhere/database/cities.sqlite", drawn.stderr)
        self.assertIn("--bundle", drawn.stderr)
        self.assertTrue((self.home / "x.png").exists(), "the window says it too")

    def test_a_data_folder_that_cannot_be_made(self):
        (self.home / "file").write_text("")
        drawn = self.run_program("--data-dir", str(self.home / "file/data"), "--screenshot", str(self.home / "x.png"))
        self.assertIn(str(self.home / "file/data"), drawn.stderr)
        self.assertIn("--data-dir", drawn.stderr)

    def test_a_file_of_cities_that_is_damaged(self):
        (self.home / "data").mkdir()
        (self.home / "data/user.sqlite").write_text("no database")
        drawn = self.run_program("--data-dir", str(self.home / "data"), "--screenshot", str(self.home / "x.png"))
        self.assertIn(str(self.home / "data/user.sqlite"), drawn.stderr)
        self.assertTrue((self.home / "x.png").exists(), "the window says it too")

    def test_larger_text_makes_a_larger_picture(self):
        file = self.home / "x.png"
        self.assertEqual(self.run_program("--text-scale", "1.5", "--screenshot", str(file)).returncode, 0)
        data = file.read_bytes()
        self.assertEqual((int.from_bytes(data[16:20], "big"), int.from_bytes(data[20:24], "big")), (585, 1170))

    def test_without_a_display_one_line_says_so(self):
        del self.environment["QT_QPA_PLATFORM"]
        for variables, words in (({}, "DISPLAY is not set"),
                                 ({"DISPLAY": ":4999"}, "the display :4999 does not answer"),
                                 ({"WAYLAND_DISPLAY": "nowhere"}, "qt6-wayland"),
                                 ({"DISPLAY": ":4999", "QT_QPA_PLATFORM": "attic"}, "QT_QPA_PLATFORM is attic")):
            mistake = subprocess.run([PROGRAM], env=self.environment | variables, capture_output=True, text=True,
                                     timeout=60)
            self.assertEqual(mistake.returncode, 4, mistake.stderr)
            self.assertIn(words, mistake.stderr)
            self.assertRegex(mistake.stderr, r"\Azorel-settings: No window can be opened.*--screenshot FILE\.\n\Z")

    def test_a_second_start_asks_the_first_window_to_come_forward(self):
        first = subprocess.Popen([PROGRAM], env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        try:
            deadline = time.monotonic() + 20
            while not (self.home / ".local/share/zorel/user.sqlite").exists() and time.monotonic() < deadline:
                time.sleep(0.05)
            time.sleep(1)
            second = self.run_program()
            self.assertEqual(second.returncode, 0, second.stderr)
            self.assertIn("open already", second.stdout)
            self.assertIsNone(first.poll(), "the first window stays")
            other = self.run_program("--data-dir", str(self.home / "other"), "--time-start")
            self.assertRegex(other.stdout, re.compile(r"^\d+ ms to the first frame, \d+ MB resident$", re.M))
        finally:
            first.kill()
            first.communicate()

    def test_a_window_that_was_killed_does_not_stand_in_the_way(self):
        for _ in range(2):
            window = subprocess.Popen([PROGRAM], env=self.environment, stdout=subprocess.DEVNULL,
                                      stderr=subprocess.DEVNULL)
            time.sleep(2)
            self.assertIsNone(window.poll(), "the window is open")
            window.kill()
            window.wait()

    def open_window(self):
        """A window that shows the cities; it is closed when the test ends."""
        window = subprocess.Popen([PROGRAM], env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                  cwd=self.home)
        self.addCleanup(window.communicate)
        self.addCleanup(window.kill)
        time.sleep(2)
        return window

    def test_the_socket_lies_where_nobody_else_can_put_one(self):
        runtime = self.home / "runtime"
        runtime.mkdir(mode=0o700)
        self.environment["XDG_RUNTIME_DIR"] = str(runtime)
        window = self.open_window()
        self.assertIsNone(window.poll())
        sockets = list(runtime.iterdir())
        self.assertEqual([socket.is_socket() for socket in sockets], [True], sockets)
        self.assertEqual([path for path in self.home.iterdir() if path.is_socket()], [])

    def test_a_runtime_folder_that_others_may_enter_is_not_used(self):
        runtime = self.home / "runtime"
        runtime.mkdir()
        runtime.chmod(0o755)
        for folder in (str(runtime), "runtime", ""):
            self.environment["XDG_RUNTIME_DIR"] = folder
            for _ in range(2):
                self.assertIsNone(self.open_window().poll(), "a window of its own")
            self.assertEqual(list(runtime.iterdir()), [])

    def test_the_socket_of_another_user_is_not_believed(self):
        if os.geteuid() != 0:
            self.skipTest("only root can act as another user")
        self.open_window().kill()
        path = next(path for path in self.home.iterdir() if path.is_socket())
        path.unlink()
        with socket.socket(socket.AF_UNIX) as stranger:
            stranger.bind(str(path))
            os.seteuid(65534)  # the kernel notes who listens
            try:
                stranger.listen()
            finally:
                os.seteuid(0)
            self.assertIsNone(self.open_window().poll(), "a window opens all the same")


if __name__ == "__main__":
    unittest.main()
