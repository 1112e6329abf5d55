#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the language files of the pane (property lists of Zorel.bundle) from en.plist and the catalogues of po/.

make_language_files.py          writes the file of every language that has all of the pane's texts
make_language_files.py --check  says whether they are what the catalogues hold; status 1: they are not
"""
import pathlib
import plistlib
import sys
from xml.sax.saxutils import escape

import polib  # python3-polib

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUNDLE = ROOT / "resources" / "Zorel.bundle"
ENGLISH = BUNDLE / "en.lproj" / "en.plist"
# Where the pane looks for its first languages; German has the name that it was given there.
OWN_PLACES = {"tr": "tr.lproj/tr.plist", "de": "Languages/ge.plist"}
CONTEXTS = {"COMMON": None, "PRAYERS": "PRAYERS"}


def place_of(language):
    return BUNDLE / OWN_PLACES.get(language, f"Languages/{language}.plist")


def translated(english, po):
    """The sections of the file in another language; nothing where one of its texts is not translated."""
    texts = {(entry.msgctxt, entry.msgid): entry.msgstr for entry in po if "fuzzy" not in entry.flags}
    sections = {
        name: {key: texts.get((CONTEXTS[name], text)) for key, text in entries.items()}
        for name, entries in english.items()
    }
    complete = all(text for entries in sections.values() for text in entries.values())
    return sections if complete else None


def written(sections):
    lines = ['<?xml version="1.0" encoding="UTF-8"?>', "<!-- SPDX-License-Identifier: Apache-2.0 -->",
             '<plist version="1.0">', "<dict>"]
    for name, entries in sections.items():
        lines += [f"\t<key>{name}</key>", "\t<dict>"]
        for key, text in entries.items():
            lines += [f"\t\t<key>{key}</key>", f"\t\t<string>{escape(text)}</string>"]
        lines.append("\t</dict>")
    return "\n".join(lines + ["</dict>", "</plist>", ""])


def main():
    check = "--check" in sys.argv[1:]
    english = plistlib.loads(ENGLISH.read_bytes())
    bad = []
    for path in sorted((ROOT / "po").glob("*.po")):
        sections = translated(english, polib.pofile(str(path)))
        file = place_of(path.stem)
        if sections is None:
            bad += [f"{path.name} lacks texts of {file}"] if file.exists() and check else []
            continue
        text = written(sections)
        if not check:
            file.write_text(text)
        elif not file.exists() or file.read_text() != text:
            bad.append(f"{file} is not what po/{path.name} holds: tools/make_language_files.py")
    print("\n".join(bad) if bad else "The language files of the pane are what po/ holds.")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
