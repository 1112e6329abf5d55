#!/usr/bin/python3
# SPDX-License-Identifier: Apache-2.0
"""Says what is wrong with a language's file: check_po.py [--complete] po/tr.po ...

A translation keeps what the program fills in ({}, {0}, {1:.1f}, %d, %@), what a person types (--lang, zorel cities)
and the blanks at its ends; it has as many plural forms as its language needs. --complete: besides, every text of
po/zorel.pot is translated, and none is marked as fuzzy.
"""
import argparse
import collections
import pathlib
import re
import subprocess
import sys

import polib  # python3-polib

POT = pathlib.Path(__file__).resolve().parent.parent / "po" / "zorel.pot"
PLACEHOLDER = re.compile(r"\{\{|\}\}|\{[\w:.+]*\}|%[d@]")
TYPED = re.compile(r"(?<![\w-])--[a-z][a-z-]*")


def placeholders(text):
    return collections.Counter(PLACEHOLDER.findall(text))


def differences(english, text, may_lack):
    """What a text lacks of the English one or has beside it."""
    wanted, found = placeholders(english), placeholders(text)
    for name in (wanted - found).keys() - may_lack:
        yield f"{name} is missing"
    for name in found - wanted:
        yield f"{name} is not in the English text"
    for option in set(TYPED.findall(english)) - set(TYPED.findall(text)):
        yield f"{option} is missing: what a person types is not translated"
    for end, at in (("beginning", 0), ("end", -1)) if len(english) > 1 else ():
        if english[at].isspace() != text[at].isspace():
            yield f"a blank at the {end} is not as in the English text"


def plural_count(po):
    return int(re.search(r"nplurals\s*=\s*(\d+)", po.metadata.get("Plural-Forms", ""))[1])


def problems_of_entry(entry, forms):
    if entry.msgid_plural:
        texts = [text for _, text in sorted(entry.msgstr_plural.items())]
        if any(texts) and (len(texts) != forms or not all(texts)):
            yield f"{forms} forms are needed"
        # A form for a single number may say the number in a word ("a day").
        for text in filter(None, texts):
            yield from differences(entry.msgid_plural, text, {"{}", "{0}"})
    elif entry.msgstr:
        yield from differences(entry.msgid, entry.msgstr, set())


def problems_of_english(pot):
    """Several placeholders are numbered, so that a translation may change their order."""
    for entry in pot:
        if placeholders(entry.msgid)["{}"] > 1:
            yield entry, "several placeholders need numbers: {0}, {1}"


def missing(po, pot):
    texts = {(entry.msgctxt, entry.msgid): entry for entry in po}
    for entry in pot:
        own = texts.get((entry.msgctxt, entry.msgid))
        if own is None:
            yield entry, "is not in the file: ninja pot"
        elif not own.translated() or "fuzzy" in own.flags:
            yield entry, "is not translated"


def problems_of(path, complete):
    checked = subprocess.run(["msgfmt", "--check", "-o", "/dev/null", path], capture_output=True, text=True)
    if checked.returncode != 0:
        yield None, checked.stderr.strip()
        return
    po, pot = polib.pofile(path), polib.pofile(str(POT))
    if po.metadata.get("Language") != pathlib.Path(path).stem:
        yield None, f"the header's Language is {po.metadata.get('Language')}"
    forms = plural_count(po)
    for entry in po:
        for problem in problems_of_entry(entry, forms):
            yield entry, problem
    if complete:
        yield from missing(po, pot)


def told(entry, problem):
    if entry is None:
        return problem
    context = f" ({entry.msgctxt})" if entry.msgctxt else ""
    return f'"{entry.msgid}"{context}: {problem}'


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--complete", action="store_true", help="every text must be translated")
    parser.add_argument("files", nargs="+")
    arguments = parser.parse_args()
    bad = [f"{POT.name}: {told(*problem)}" for problem in problems_of_english(polib.pofile(str(POT)))]
    for path in arguments.files:
        bad += [f"{path}: {told(*problem)}" for problem in problems_of(path, arguments.complete)]
    print("\n".join(bad) if bad else f"{len(arguments.files)} files: nothing is wrong.")
    return 1 if bad else 0


if __name__ == "__main__":
    sys.exit(main())
