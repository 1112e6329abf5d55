#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Draws every screen of the window in light and dark, in each language, at three widths, and puts the pictures on sheets.

usage: contact_sheet.py [OUT-FOLDER] [BIN-FOLDER]      (default: build/contact, build/release/bin)

One sheet for each screen and width: a row for light and one for dark, a column for each language. Needs python3-pil.
"""
import itertools
import os
import pathlib
import subprocess
import sys
import tempfile

from PIL import Image

AT = "2026-11-22T13:42"
CITIES = ["Istanbul", "Paris", "Paris, Texas", "Mecca"]
LANGUAGES = {"en": "C.UTF-8", "tr": "tr_TR.UTF-8"}
WIDTHS = {320: 568, 390: 780, 1280: 800}
# Screen: (options, whether the person has cities, alarms)
SCREENS = {
    "first": ([], False), "today": ([], True), "why": (["--screen", "why"], True), "edit": (["--screen", "edit"], True),
    "search": (["--screen", "search", "--search", "medina"], True), "alarm": (["--screen", "alarm"], True),
    "large-text": (["--text-scale", "2"], True)}


def run(words, language, data):
    environment = os.environ | {"LC_ALL": LANGUAGES[language], "TZ": "Europe/Istanbul", "XDG_RUNTIME_DIR": data}
    subprocess.run([words[0], "--data-dir", data, *words[1:]], env=environment, check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)


def make_data(binaries, folder):
    for city in CITIES:
        run([binaries / "zorel", "--now", AT, "cities", "add", city], "en", folder)
    run([binaries / "zorel", "--now", AT, "alarms", "on", "fajr"], "en", folder)
    run([binaries / "zorel", "--now", AT, "alarms", "offset", "fajr", "--", "-20"], "en", folder)
    run([binaries / "zorel", "--now", AT, "alarms", "on", "maghrib"], "en", folder)


def draw(binaries, screen, width, language, appearance, data, file):
    options, _ = SCREENS[screen]
    scale = 2 if "--text-scale" in options else 1
    size = ["--width", str(max(320, width // scale)), "--height", str(max(400, WIDTHS[width] // scale))]
    run([binaries / "zorel-settings", "--at", AT, "--screenshot", file, "--appearance", appearance, *size, *options],
        language, data)


def sheet(files, columns, out):
    pictures = [Image.open(file) for file in files]
    gap = 12
    width, height = pictures[0].size
    rows = -(-len(pictures) // columns)
    whole = Image.new("RGB", (columns * (width + gap) + gap, rows * (height + gap) + gap), (128, 128, 128))
    for index, picture in enumerate(pictures):
        whole.paste(picture, (gap + index % columns * (width + gap), gap + index // columns * (height + gap)))
    whole.save(out)


def main():
    out = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "build/contact")
    binaries = pathlib.Path(sys.argv[2] if len(sys.argv) > 2 else "build/release/bin").resolve()
    out.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as full, tempfile.TemporaryDirectory() as empty:
        make_data(binaries, full)
        for screen, width in itertools.product(SCREENS, WIDTHS):
            files = []
            for appearance, language in itertools.product(("light", "dark"), LANGUAGES):
                file = out / f"{screen}-{width}-{appearance}-{language}.png"
                draw(binaries, screen, width, language, appearance, full if SCREENS[screen][1] else empty, file)
                files.append(file)
            sheet(files, len(LANGUAGES), out / f"sheet-{screen}-{width}.png")
            print(out / f"sheet-{screen}-{width}.png", flush=True)


if __name__ == "__main__":
    main()
