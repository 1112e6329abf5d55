#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""./test, tools/check_sources.sh and tools/list_skipped.sh in small trees, with stand-ins for the programs that they run.

usage: commands_test.py SOURCE
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1)).resolve()
LICENCE = "// SPDX-License-Identifier: Apache-2.0\n"


class Tree(unittest.TestCase):
    """A folder with some of the project's files and a folder of programs that stand before those of the system."""

    FILES = []

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name) / "tree"
        self.programs = pathlib.Path(folder.name) / "programs"
        self.programs.mkdir()
        for name in self.FILES:
            target = self.root / name
            target.parent.mkdir(parents=True, exist_ok=True)
            copy = shutil.copytree if (SOURCE / name).is_dir() else shutil.copy
            copy(SOURCE / name, target)

    def write(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def stand_in(self, name, script):
        path = self.programs / name
        path.write_text(f"#!/bin/sh\n{script}\n", encoding="utf-8")
        path.chmod(0o755)

    def run_command(self, *words, path=None):
        path = path or f"{self.programs}:{os.environ['PATH']}"
        return subprocess.run(words, cwd=self.root, env={"PATH": path, "HOME": str(self.root)}, text=True, timeout=100,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)


class CheckSources(Tree):
    FILES = [".clang-format", "tools/check_sources.sh", "tools/generate_series.py", "tools/make_tones.py",
             "src/engine/series", "src/almanac/series", "resources/series", "resources/Ringtones"]

    def setUp(self):
        super().setUp()
        self.write("src/engine/Right.cpp", LICENCE + "int right();\n")

    def check(self, **arguments):
        return self.run_command("tools/check_sources.sh", **arguments)

    def assert_complains(self, words, status=1):
        result = self.check()
        self.assertEqual(result.returncode, status, result.stdout)
        self.assertIn(words, result.stdout)

    def git(self, *words):
        result = self.run_command("git", "-c", "user.name=x", "-c", "user.email=x", *words)
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_an_unpacked_archive(self):
        result = self.check()
        self.assertEqual(result.returncode, 0, result.stdout)
        self.write("src/engine/Bare.cpp", "int bare();\n")
        self.assert_complains("src/engine/Bare.cpp: no SPDX line")

    def test_what_a_build_makes_is_not_looked_at(self):
        self.write("build/release/Made.cpp", "int made ( );\n")
        self.assertEqual(self.check().returncode, 0)

    def test_a_clone_has_what_git_tracks(self):
        self.write("scratch.cpp", "int scratch ( );\n")
        self.git("init", "--quiet")
        self.git("add", "tools", "src", "resources")
        result = self.check()
        self.assertEqual(result.returncode, 0, result.stdout)
        self.git("add", "scratch.cpp")
        self.assert_complains("scratch.cpp: no SPDX line")

    def test_a_clone_that_git_cannot_list(self):
        self.write(".git", "gitdir: nowhere\n")
        self.assert_complains("git cannot list the files", status=2)

    def test_a_missing_program_is_named(self):
        for missing in ("git", "clang-format", "python3"):
            with self.subTest(missing):
                (self.root / ".git").mkdir(exist_ok=True)
                for program in {"bash", "dirname", "git", "clang-format", "python3", "find", "grep"} - {missing}:
                    (self.programs / program).unlink(missing_ok=True)
                    (self.programs / program).symlink_to(shutil.which(program))
                (self.programs / missing).unlink(missing_ok=True)
                result = self.check(path=str(self.programs))
                self.assertEqual(result.returncode, 2, result.stdout)
                self.assertIn(missing, result.stdout)
                self.assertIn("nothing is checked", result.stdout)

    def test_each_rule(self):
        for name, text, words in (
                ("src/engine/Wide.cpp", LICENCE + "int  wide( );\n", "clang-format would change"),
                ("src/engine/Long.cpp", LICENCE + "//\n" * 600, "src/engine/Long.cpp: over 600 lines"),
                ("src/engine/Window.cpp", LICENCE + "#include <QString>\n", "Qt headers outside src/host"),
                ("src/engine/Bare.cpp", LICENCE + "void bare() {\n    if (true)\n        return;\n}\n",
                 "branches without braces: src/engine/Bare.cpp:3"),
                ("src/engine/Else.cpp", LICENCE + "void bare() {\n    if (true) {\n    } else\n        return;\n}\n",
                 "branches without braces: src/engine/Else.cpp:4"),
                ("tests/small_test.cpp", LICENCE + "TEST_F(Suite, aSmallLetter) {}\n",
                 "test names that are not UpperCamel: tests/small_test.cpp:2"),
                ("tests/line_test.cpp", LICENCE + "TEST(Suite, With_line) {}\n", "test names that are not UpperCamel"),
                ("src/engine/series/Igrf11.h", LICENCE, "a table of src/*/series is not what")):
            with self.subTest(name):
                before = (self.root / name).read_text(encoding="utf-8") if (self.root / name).exists() else None
                self.write(name, text)
                self.assert_complains(words)
                if before is None:
                    (self.root / name).unlink()
                else:
                    self.write(name, before)


class ListSkipped(Tree):
    FILES = ["tools/list_skipped.sh"]

    def skipped(self, log):
        self.write("build/Testing/Temporary/LastTest.log", log)
        return self.run_command("tools/list_skipped.sh", "build").stdout

    def test_none(self):
        self.assertEqual(self.skipped("1/1 Testing: engine\n[==========] 7 tests ran.\n"), "build: none\n")

    def test_each_with_its_reason(self):
        self.assertEqual(
            self.skipped("/x/pages_test.cpp:16: Skipped\nfish is not installed\n\n[  SKIPPED ] 1 test.\n"
                         "interop_test.py: Skipped\nnot installed: khal\n"),
            "build: /x/pages_test.cpp:16: fish is not installed\ninterop_test.py: not installed: khal\n")

    def test_no_run_is_not_no_skip(self):
        self.assertEqual(self.run_command("tools/list_skipped.sh", "build").stdout, "build: no tests were run\n")


class TestCommand(Tree):
    FILES = ["test", "tools/setup.sh", "tools/list_skipped.sh"]

    def setUp(self):
        super().setUp()
        self.stand_in("dpkg-query", "echo installed")
        for program in ("cmake", "ctest"):
            self.stand_in(program, f'echo "ran {program} $*"')
        for script in ("check_sources", "make_turkish_locale", "compare_compilers"):
            self.write(f"tools/{script}.sh", f"#!/bin/sh\necho ran {script}\n")
            (self.root / f"tools/{script}.sh").chmod(0o755)

    def test_all_parts_pass(self):
        result = self.run_command("./test")
        self.assertEqual(result.returncode, 0, result.stdout)
        self.assertIn("All tests passed", result.stdout)
        for words in ("ran check_sources", "ctest --test-dir build/release", "ctest --test-dir build/sanitize",
                      "ran compare_compilers"):
            self.assertIn(words, result.stdout)

    def test_every_part_runs_and_those_that_fail_are_named(self):
        self.write("tools/check_sources.sh", "#!/bin/sh\nexit 2\n")
        self.stand_in("ctest", 'echo "ran ctest $*"; case $* in *release*) exit 8;; esac')
        result = self.run_command("./test")
        self.assertEqual(result.returncode, 1, result.stdout)
        self.assertIn("ctest --test-dir build/sanitize", result.stdout)
        self.assertIn("ran compare_compilers", result.stdout)
        self.assertRegex(result.stdout, r"== FAILED .*\nSources\nTests\n\Z")

    def test_a_build_that_cannot_be_configured_is_a_failed_part(self):
        self.stand_in("cmake", 'case $* in *sanitize*) echo "no such compiler"; exit 1;; esac')
        result = self.run_command("./test")
        self.assertEqual(result.returncode, 1, result.stdout)
        self.assertIn("no such compiler", result.stdout)
        self.assertNotIn("ctest --test-dir build/sanitize", result.stdout)
        self.assertIn("build/sanitize: no tests were run", result.stdout)
        self.assertRegex(result.stdout, r"== FAILED .*\nTests with address and undefined-behaviour sanitizers\n\Z")


if __name__ == "__main__":
    unittest.main()
