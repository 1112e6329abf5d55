#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Draws every screen of the window in light and dark, in each language, at three widths, and puts the pictures on sheets.

usage: contact_sheet.py [OUT-FOLDER] [BIN-FOLDER] [SCREEN ...]   (default: build/contact, build/release/bin, all screens)

One sheet for each screen and width: a row for light and one for dark, a column for each language. Needs python3-pil.
"""
import concurrent.futures
import itertools
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

from PIL import Image

AT = "2026-11-22T13:42+03:00"
CITIES = ["Istanbul", "Paris", "Paris, Texas", "Mecca"]
LANGUAGES = {"en": "C.UTF-8", "tr": "tr_TR.UTF-8"}
WIDTHS = {320: 480, 390: 844, 1280: 800}


class Screen:
    """One screen: how it is reached, and with whose data."""

    def __init__(self, *options, data="full", at=AT, zone="Europe/Istanbul", height=0, contrast="", catalogue=True):
        self.options, self.data, self.at, self.zone = list(options), data, at, zone
        self.height, self.contrast, self.catalogue = height, contrast, catalogue


SCREENS = {
    "first": Screen(data="empty"),
    "today": Screen(),
    "whole": Screen(height=1560),
    "night": Screen(at="2026-11-22T23:10+03:00", data="night"),
    "last-minute": Screen(at="2026-11-22T15:29:18+03:00"),
    "elsewhere": Screen(zone="Europe/Berlin"),
    "why": Screen("--screen", "why"),
    "edit": Screen("--screen", "edit", height=1560),
    "search": Screen("--screen", "search", "--search", "medina"),
    "nothing-found": Screen("--screen", "search", "--search", "qqqq"),
    "confirm": Screen("--screen", "confirm", "--search", "medina"),
    "alarm": Screen("--screen", "alarm"),
    "alarm-off": Screen("--screen", "alarm", data="off"),
    "no-catalogue": Screen(catalogue=False),
    "unreadable": Screen(data="damaged"),
    "contrast": Screen(contrast="more"),
    "large-text": Screen("--text-scale", "2"),
}


def run(words, language, data, zone="Europe/Istanbul", contrast=""):
    environment = os.environ | {"LC_ALL": LANGUAGES[language], "TZ": zone, "XDG_RUNTIME_DIR": str(data)}
    if contrast:
        environment["ZOREL_CONTRAST"] = contrast
    subprocess.run([words[0], "--data-dir", data, *words[1:]], env=environment, check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)


def make_data(binaries, folder):
    """A data folder of each kind that a screen asks for."""
    folders = {kind: folder / kind for kind in ("full", "night", "off", "empty", "damaged")}
    for made in folders.values():
        made.mkdir()
    for kind in ("full", "night", "off"):
        for city in CITIES:
            run([binaries / "zorel", "--now", AT, "cities", "add", city], "en", folders[kind])
    for kind in ("full", "night"):
        for words in (["on", "fajr"], ["offset", "fajr", "--", "-20"], ["on", "asr"], ["on", "maghrib"]):
            run([binaries / "zorel", "--now", SCREENS[kind if kind in SCREENS else "today"].at, "alarms", *words], "en",
                folders[kind])
    # All that the programs bring along but the catalogue.
    shutil.copytree(binaries.parent / "share/zorel/Zorel.bundle", folder / "no-catalogue",
                    ignore=shutil.ignore_patterns("database"))
    folders["no-catalogue"] = folder / "no-catalogue"
    (folders["damaged"] / "user.sqlite").write_bytes(b"not a database" * 400)
    return folders


def draw(binaries, folders, name, width, language, appearance, file):
    screen = SCREENS[name]
    scale = 2 if "--text-scale" in screen.options else 1
    height = screen.height if screen.height and width < 700 else WIDTHS[width]
    options = ["--at", screen.at, "--screenshot", file, "--appearance", appearance,
               "--width", str(max(160, width // scale)), "--height", str(max(240, height // scale)), *screen.options]
    if not screen.catalogue:
        options += ["--bundle", folders["no-catalogue"]]
    run([binaries / "zorel-settings", *options], language, folders[screen.data], screen.zone, screen.contrast)


def sheet(files, columns, out):
    pictures = [Image.open(file) for file in files]
    gap = 12
    width, height = pictures[0].size
    rows = -(-len(pictures) // columns)
    whole = Image.new("RGB", (columns * (width + gap) + gap, rows * (height + gap) + gap), (128, 128, 128))
    for index, picture in enumerate(pictures):
        whole.paste(picture, (gap + index % columns * (width + gap), gap + index // columns * (height + gap)))
    whole.save(out)


def draw_sheet(binaries, folders, out, name, width):
    files = []
    for appearance, language in itertools.product(("light", "dark"), LANGUAGES):
        file = out / f"{name}-{width}-{appearance}-{language}.png"
        draw(binaries, folders, name, width, language, appearance, file)
        files.append(file)
    sheet(files, len(LANGUAGES), out / f"sheet-{name}-{width}.png")
    return out / f"sheet-{name}-{width}.png"


def main():
    out = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "build/contact")
    binaries = pathlib.Path(sys.argv[2] if len(sys.argv) > 2 else "build/release/bin").resolve()
    names = sys.argv[3:] or list(SCREENS)
    out.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
        folders = make_data(binaries, pathlib.Path(folder))
        drawn = [workers.submit(draw_sheet, binaries, folders, out, name, width)
                 for name, width in itertools.product(names, WIDTHS)]
        for one in drawn:
            print(one.result(), flush=True)


if __name__ == "__main__":
    main()
