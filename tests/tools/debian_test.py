# SPDX-License-Identifier: Apache-2.0
"""debian/ without a build: it and the rest of the tree say the same. Building the packages takes long (docs/packages.md).

usage: debian_test.py SOURCE LIBRARY
"""
import fnmatch
import os
import re
import subprocess
import sys
import unittest

SOURCE, LIBRARY = sys.argv.pop(1), sys.argv.pop(1)


def read(*path):
    with open(os.path.join(SOURCE, *path), encoding="utf-8") as file:
        return file.read()


def stanzas(text):
    """The paragraphs of a control file, as dictionaries."""
    answer = []
    for paragraph in re.split(r"\n\s*\n", text.strip()):
        fields = {}
        for line in paragraph.split("\n"):
            if line.startswith("#"):
                continue
            if line[0] in " \t":
                fields[name] += "\n" + line.strip()
            else:
                name, value = line.split(":", 1)
                fields[name] = value.strip()
        answer.append(fields)
    return answer


class Debian(unittest.TestCase):
    control = stanzas(read("debian", "control"))
    packages = [stanza["Package"] for stanza in control if "Package" in stanza]

    def test_the_version_is_the_projects(self):
        project = re.search(r"project\(zorel VERSION ([0-9.]+)", read("CMakeLists.txt")).group(1)
        self.assertEqual(re.match(r"zorel \((.+)\) \S+;", read("debian", "changelog")).group(1), project)
        major, minor = project.split(".")[:2]
        self.assertIn(f"ZOREL_CXX_{major}.{minor} {{", read("src", "c", "libzorel.map"))
        self.assertIn(f"(symver)ZOREL_CXX_{major}.{minor} ", read("debian", "libzorel1.symbols"))
        self.assertIn(f"libzorel1 (<< {major}.{int(minor) + 1}~)", read("debian", "libzorel1.symbols"))

    def test_every_package_describes_itself(self):
        self.assertEqual(len(self.packages), 8)
        for stanza in self.control[1:]:
            name, description = stanza["Package"], stanza["Description"].split("\n")
            self.assertLessEqual(len(description[0]), 80, name)
            self.assertGreaterEqual(len(description), 3, name)
            self.assertIn("${misc:Depends}", stanza["Depends"], name)
            self.assertTrue(max(map(len, description)) < 80, name)

    def test_every_file_belongs_to_a_package(self):
        known = {"changelog", "control", "copyright", "not-installed", "rules", "source", "tests"}
        for file in os.listdir(os.path.join(SOURCE, "debian")):
            self.assertTrue(file in known or file.rsplit(".", 1)[0] in self.packages or
                            any(file.startswith(package + ".") for package in self.packages), file)

    def test_every_symbol_is_listed(self):
        handed_out = subprocess.run(["nm", "-D", "--defined-only", LIBRARY], check=True, capture_output=True, text=True).stdout
        functions = set(re.findall(r" T (zorel_\w+)@@ZOREL_1\.0$", handed_out, re.M))
        listed = set(re.findall(r"^ (zorel_\w+)@ZOREL_1\.0 ", read("debian", "libzorel1.symbols"), re.M))
        self.assertGreater(len(functions), 20)
        self.assertEqual(functions, listed)

    def test_the_tests_of_the_packages_can_be_run(self):
        for stanza in stanzas(read("debian", "tests", "control")):
            script = os.path.join(SOURCE, "debian", "tests", stanza["Tests"])
            self.assertTrue(os.access(script, os.X_OK), script)
            subprocess.run(["sh", "-n", script], check=True)
            own = [name.strip() for name in stanza["Depends"].split(",") if "zorel" in name]
            self.assertTrue(own and set(own) <= set(self.packages), own)

    def test_the_scripts_are_scripts(self):
        for name in os.listdir(os.path.join(SOURCE, "debian")):
            if name.endswith((".postinst", ".postrm", ".prerm", ".preinst")):
                self.assertIn("\nset -e\n", read("debian", name))
                self.assertIn("\n#DEBHELPER#\n", read("debian", name))
                subprocess.run(["sh", "-n", os.path.join(SOURCE, "debian", name)], check=True)

    def test_what_has_its_own_licence_is_there(self):
        patterns = [pattern for stanza in stanzas(read("debian", "copyright")) for pattern in stanza.get("Files", "").split()]
        self.assertIn("*", patterns)
        for pattern in patterns:
            folder = os.path.join(SOURCE, os.path.dirname(pattern))
            matching = fnmatch.filter(os.listdir(folder), os.path.basename(pattern))
            self.assertTrue(matching, pattern)

    def test_builds_with_what_the_project_is_built_with(self):
        """What ./run installs to build is what a package builder installs."""
        base = re.search(r"base_packages=\((.*?)\)", read("tools", "setup.sh"), re.S).group(1).split()
        needed = {line.split()[0].rstrip(",") for line in self.control[0]["Build-Depends"].split("\n") if line.strip()}
        at_run_time = {"g++", "gstreamer1.0-plugins-base", "gstreamer1.0-plugins-good", "qml6-module-qtqml-workerscript",
                       "qt6-wayland", "fonts-dejavu-core"}
        self.assertEqual([package for package in base if package not in needed | at_run_time], [])


if __name__ == "__main__":
    unittest.main()
