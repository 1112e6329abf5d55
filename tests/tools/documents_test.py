# SPDX-License-Identifier: Apache-2.0
"""What the documents name is there: files, tests, rooms.

usage: documents_test.py SOURCE BUILD
"""
import json
import os
import pathlib
import re
import subprocess
import sys
import unittest

SOURCE, BUILD = pathlib.Path(sys.argv.pop(1)).resolve(), sys.argv.pop(1)
PAGES = ["README.md", "CONTRIBUTING.md", "SECURITY.md", "CHANGELOG.md", *(str(p.relative_to(SOURCE)) for p in SOURCE.glob("docs/**/*.md"))]


def text(page):
    return (SOURCE / page).read_text(encoding="utf-8")


class Links(unittest.TestCase):
    def test_lead_to_files_of_the_tree(self):
        looked_at = 0
        for page in PAGES:
            for target in re.findall(r"\]\(([^)#\s]+)[^)]*\)", text(page)):
                if "://" in target or target.startswith("mailto:"):
                    continue
                looked_at += 1
                self.assertTrue((SOURCE / page).parent.joinpath(target).exists(), f"{page} leads to {target}")
        self.assertGreater(looked_at, 40)


class Traceability(unittest.TestCase):
    def test_names_tests_that_exist(self):
        named = set(re.findall(r"`([A-Za-z_]\w*(?:\.\w+)?)`", text("docs/traceability.md").split("## Where we depart")[0]))
        named -= {"Suite.Name"}
        written = set()
        for source in SOURCE.glob("tests/**/*.cpp"):
            for suite, name in re.findall(r"^(?:TYPED_)?TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", source.read_text(encoding="utf-8"), re.M):
                written.add(f"{suite}.{name}")
        listed = json.loads(subprocess.run(["ctest", "--test-dir", BUILD, "--show-only=json-v1"], check=True,
                                           capture_output=True, text=True).stdout)["tests"]
        written |= {test["name"] for test in listed}
        self.assertGreater(len(named), 50)
        self.assertEqual(sorted(named - written), [])


class Rooms(unittest.TestCase):
    def test_have_an_owner_who_is_asked(self):
        lines = [line.split() for line in text(".gitlab/CODEOWNERS").splitlines() if line.startswith("/")]
        for path, owner in lines:
            self.assertTrue((SOURCE / path.lstrip("/")).exists(), path)
            self.assertRegex(owner, r"^@zorel/[a-z-]+$")
        rooms = [path for path, _ in lines]
        for folder in sorted(os.listdir(SOURCE / "src")):
            if (SOURCE / "src" / folder).is_dir() and folder != "common":
                self.assertTrue(any(room.startswith(f"/src/{folder}/") for room in rooms), f"src/{folder}")

    def test_stand_in_the_picture_of_the_architecture(self):
        page = text("docs/architecture.md")
        for folder in [p for p in SOURCE.glob("src/*") if p.is_dir()] + [p for p in SOURCE.glob("apps/*") if p.is_dir()]:
            self.assertIn(folder.name + "/" if folder.parent.name == "src" else folder.name, page, folder)


class Decisions(unittest.TestCase):
    def test_are_all_in_the_list(self):
        pages = sorted(page.name for page in SOURCE.glob("docs/decisions/0*.md"))
        self.assertEqual(pages, re.findall(r"\]\((0\d+-[\w-]+\.md)\)", text("docs/decisions/README.md")))
        for page in pages:
            self.assertRegex(text(f"docs/decisions/{page}"), rf"^# {int(page[:4])}\. ")


if __name__ == "__main__":
    unittest.main()
