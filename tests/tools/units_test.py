#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The systemd units of a user's session: systemd understands them, and a service is shut in as far as one can be.

usage: units_test.py FOLDER-OF-UNITS
Needs systemd-analyze (Debian package systemd; it need not run); without it the test is skipped and says so.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

FOLDER = pathlib.Path(sys.argv.pop(1))
SERVICES = sorted(FOLDER.glob("*.service"))
SKIPPED = 77  # exit status, known to ctest
# "systemd-analyze security" counts exposure from 0 to 10; an unmodified service of a user has 9.6.
# The ring service keeps the capability of its file, by which it wakes a sleeping machine; every shutting in of a user's
# service would take it away. It gives up new privileges itself (tests/ring/session_test.py).
LARGEST_EXPOSURE = {"zorel-refresh.service": 1.0, "zorel-refresh-failed.service": 3.5, "zorel-ring.service": 9.7}
NIGHTLY = [service for service in SERVICES if "Type=oneshot" in service.read_text(encoding="utf-8")]


def analyze(*words):
    with tempfile.TemporaryDirectory() as runtime:
        environment = {"PATH": os.environ["PATH"], "HOME": runtime, "XDG_RUNTIME_DIR": runtime, "LC_ALL": "C.UTF-8",
                       "SYSTEMD_COLORS": "0"}
        return subprocess.run(["systemd-analyze", "--user", "--no-pager", *map(str, words)], env=environment,
                              text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=50, check=False)


class Units(unittest.TestCase):
    def test_are_understood(self):
        result = analyze("verify", "--man=no", *sorted(FOLDER.iterdir()))
        self.assertEqual((result.returncode, result.stdout), (0, ""))

    def test_are_no_more_exposed_than_they_have_to_be(self):
        self.assertEqual({service.name for service in SERVICES}, set(LARGEST_EXPOSURE))
        for service in SERVICES:
            with self.subTest(service=service.name):
                limit = int(LARGEST_EXPOSURE[service.name] * 10)
                result = analyze("security", "--offline=true", f"--threshold={limit}", service)
                self.assertEqual(result.returncode, 0, result.stdout)

    def test_an_unguarded_service_would_be_noticed(self):
        with tempfile.TemporaryDirectory() as folder:
            bare = pathlib.Path(folder) / "bare.service"
            bare.write_text("[Service]\nType=oneshot\nExecStart=/bin/true\n", encoding="utf-8")
            self.assertNotEqual(analyze("security", "--offline=true", "--threshold=35", bare).returncode, 0)

    def test_end_after_a_time_and_tell_of_failure(self):
        self.assertEqual(len(NIGHTLY), 2)
        for service in NIGHTLY:
            text = service.read_text(encoding="utf-8")
            self.assertIn("\nTimeoutStartSec=", text, service.name)
            if not service.stem.endswith("-failed"):
                self.assertIn("\nOnFailure=zorel-refresh-failed.service\n", text, service.name)


if __name__ == "__main__":
    if shutil.which("systemd-analyze") is None:
        print(f"{__file__}: Skipped\nnot installed: systemd")
        sys.exit(SKIPPED)
    unittest.main(verbosity=2)
