#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Looks at the built programs with readelf: do they have what makes a program hard to take over?

usage: hardening_test.py COMPILER FORTIFIED LIBRARY-FOLDER PROGRAM ...
COMPILER: what the programs were built with; with it a program that has nothing of all this is made, to see that the
          looking works. FORTIFIED: 1 for an optimised build without sanitizers. LIBRARY-FOLDER: below it lie the static
          libraries that the programs are made of.
"""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

COMPILER, FORTIFIED = sys.argv[1], sys.argv[2] == "1"
LIBRARIES = sorted(pathlib.Path(sys.argv[3]).rglob("libzorel_*.a"))
PROGRAMS = [pathlib.Path(name) for name in sys.argv[4:]]
del sys.argv[1:]

BARE_SOURCE = """
#include <cstring>
int main(int count, char** words) { char text[64]; std::strcpy(text, words[count - 1]); return text[0]; }
"""
BARE_FLAGS = ["-O2", "-no-pie", "-fno-pie", "-fno-stack-protector", "-U_FORTIFY_SOURCE", "-Wl,-z,norelro,-z,lazy,-z,execstack"]


def output(*words):
    return subprocess.run([str(word) for word in words], check=True, capture_output=True, text=True,
                          errors="replace").stdout


def weaknesses(program):
    """What a program lacks, in words."""
    header, segments, dynamic = (output("readelf", option, "-W", program) for option in ("-h", "-l", "-d"))
    symbols = output("readelf", "--dyn-syms", "-W", program)
    stack = re.search(r"GNU_STACK .* (\S+)\s+0x", segments)
    guarded_copies = set(re.findall(r" (__\w+_chk)(?:@|\s)", symbols)) - {"__stack_chk_fail"}
    facts = {
        "position-independent": "Type:" in header and "DYN" in header and re.search(r"FLAGS_1.*\bPIE\b", dynamic),
        "read-only relocations": "GNU_RELRO" in segments,
        "bound at start": re.search(r"FLAGS_1.*\bNOW\b", dynamic),
        "stack not executable": stack and "E" not in stack.group(1),
        "no code that is rewritten": "TEXTREL" not in dynamic,
        "stack protector": "__stack_chk_fail" in symbols,
        "fortified": guarded_copies or not FORTIFIED,
    }
    return {name for name, holds in facts.items() if not holds}


def members_without_guarded_branches(library):
    """Object files with code, but without the mark of indirect branch tracking and shadow stack."""
    bare = []
    for part in output("readelf", "-SnW", library).split("\nFile: ")[1:]:
        name, _, text = part.partition("\n")
        has_code = any(int(size, 16) > 0 for size in re.findall(r"\.text\S*\s+PROGBITS\s+\S+ \S+ (\S+)", text))
        if has_code and not re.search(r"x86 feature: IBT, SHSTK", text):
            bare.append(name)
    return bare


class Programs(unittest.TestCase):
    def test_are_hard_to_take_over(self):
        self.assertTrue(PROGRAMS)
        for program in PROGRAMS:
            with self.subTest(program=program.name):
                self.assertEqual(weaknesses(program), set())

    def test_guard_their_branches(self):
        if "X86-64" not in output("readelf", "-h", PROGRAMS[0]):
            self.skipTest("not an x86-64 machine")
        self.assertGreater(len(LIBRARIES), 5)
        for library in LIBRARIES:
            with self.subTest(library=library.name):
                self.assertEqual(members_without_guarded_branches(library), [])

    def test_carry_the_mark_of_guarded_branches_where_the_c_library_has_it(self):
        start = output("readelf", "-nW", output(COMPILER, "-print-file-name=crt1.o").strip())
        for program in PROGRAMS:
            with self.subTest(program=program.name):
                self.assertEqual("SHSTK" in output("readelf", "-nW", program), "SHSTK" in start)


class TheLookItself(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "bare.cpp").write_text(BARE_SOURCE, encoding="utf-8")

    def test_finds_every_weakness_of_a_bare_program(self):
        program = self.folder / "bare"
        output(COMPILER, *BARE_FLAGS, self.folder / "bare.cpp", "-o", program)
        expected = {"position-independent", "read-only relocations", "bound at start", "stack not executable",
                    "stack protector"} | ({"fortified"} if FORTIFIED else set())
        self.assertEqual(weaknesses(program), expected)

    def test_finds_a_library_without_guarded_branches(self):
        if "X86-64" not in output("readelf", "-h", PROGRAMS[0]):
            self.skipTest("not an x86-64 machine")
        output(COMPILER, "-O2", "-fcf-protection=none", "-c", self.folder / "bare.cpp", "-o", self.folder / "bare.o")
        output("ar", "rc", self.folder / "libzorel_bare.a", self.folder / "bare.o")
        self.assertEqual(len(members_without_guarded_branches(self.folder / "libzorel_bare.a")), 1)


if __name__ == "__main__":
    unittest.main(verbosity=2)
