# SPDX-License-Identifier: Apache-2.0
"""tools/check_po.py finds what it is there to find."""
import importlib.util
import pathlib
import sys
import tempfile
import unittest

ROOT = pathlib.Path(sys.argv.pop(1))
module = importlib.util.spec_from_file_location("check_po", ROOT / "tools" / "check_po.py")
check_po = importlib.util.module_from_spec(module)
module.loader.exec_module(check_po)

HEADER = '''msgid ""
msgstr ""
"Content-Type: text/plain; charset=UTF-8\\n"
"Language: {}\\n"
"Plural-Forms: nplurals=2; plural=(n != 1);\\n"

'''


class CheckPo(unittest.TestCase):
    def problems(self, entries, complete=False, language="tr"):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "tr.po"
            path.write_text(HEADER.format(language) + entries)
            return [problem for _, problem in check_po.problems_of(str(path), complete)]

    def one(self, english, text):
        return self.problems(f'msgid "{english}"\nmsgstr "{text}"\n')

    def test_right_texts_pass(self):
        self.assertEqual(self.one("{0} of {1}", "{1} içinde {0}"), [])
        self.assertEqual(self.one("no command {}", "{} komutu yok"), [])
        self.assertEqual(self.one("see --date", "bkz. --date"), [])
        self.assertEqual(self.one("{name} {time}", ""), [])

    def test_a_lost_placeholder(self):
        self.assertEqual(self.one("no command {}", "komut yok"), ["{} is missing"])
        self.assertEqual(self.one("{0} of {1}", "{0}"), ["{1} is missing"])
        self.assertEqual(self.one("%d min before", "dakika önce"), ["%d is missing"])

    def test_a_changed_placeholder(self):
        self.assertEqual(len(self.one("latitude {:.2f}°", "enlem {:.1f}°")), 2)
        self.assertEqual(self.one("a day", "{} gün"), ["{} is not in the English text"])

    def test_what_is_typed_stays(self):
        self.assertEqual(len(self.one("see --explain", "bkz. --açıkla")), 1)

    def test_braces_that_are_no_placeholder(self):
        self.assertEqual(self.one("a { has no } behind it", "} yok: {"), [])

    def test_blanks_at_the_ends(self):
        self.assertEqual(len(self.one("in ", "kalan")), 1)

    def test_plurals(self):
        entry = 'msgid "{} day"\nmsgid_plural "{} days"\nmsgstr[0] "bir gün"\nmsgstr[1] "%s"\n'
        self.assertEqual(self.problems(entry % "{} gün"), [])
        self.assertEqual(self.problems(entry % ""), ["2 forms are needed"])
        self.assertEqual(self.problems(entry % "{1} gün"), ["{1} is not in the English text"])

    def test_the_language_of_the_header(self):
        self.assertEqual(self.problems("", language="de"), ["the header's Language is de"])

    def test_a_file_that_cannot_be_read(self):
        self.assertEqual(len(self.problems('msgid "a\n')), 1)

    def test_completeness(self):
        missing = self.problems('msgid "Date"\nmsgstr ""\n', complete=True)
        self.assertIn("is not translated", missing)
        self.assertIn("is not in the file: ninja pot", missing)
        fuzzy = self.problems('#, fuzzy\nmsgid "Date"\nmsgstr "Tarih"\n', complete=True)
        self.assertIn("is not translated", fuzzy)


unittest.main()
