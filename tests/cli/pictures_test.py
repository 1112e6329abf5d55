#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""pictures_test.py PROGRAM BUNDLE: the pictures of 20 places from the equator to 66 N and beyond are good XML, lie within
their view box, and none of their texts lies on another; sheets are good XML and each page fits one page of paper."""
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ET

PROGRAM, BUNDLE = sys.argv[1:3]
PLACES = ["Quito", "Singapore", "Jakarta", "Nairobi", "Lagos", "Mecca", "Cairo", "Casablanca", "Tehran", "Istanbul", "Tokyo",
          "New York", "Paris, France", "London", "Berlin", "Edinburgh", "Oslo", "Helsinki", "Reykjavik", "65.99,25.5,Europe/Helsinki"]
SOUTH = ["Sydney", "Santiago, Chile", "Cape Town", "-54.8,-68.3,America/Argentina/Ushuaia", "-77.85,166.67,Antarctica/McMurdo"]
HOURS = ["00:10", "06:20", "12:00", "17:45"]
SVG = "{http://www.w3.org/2000/svg}"
failures = []
folder = tempfile.mkdtemp(prefix="zorel-pictures-")


def check(good, what):
    if not good:
        failures.append(what)


def told(*words):
    result = subprocess.run([PROGRAM, "--bundle", BUNDLE, "--data-dir", folder, "--now", "2026-11-21T12:00:00Z", *words],
                            capture_output=True, text=True, check=False)
    check(result.returncode == 0, f"{words} ends with {result.returncode}: {result.stderr}")
    return result.stdout


def sizes(style):
    """Width of a letter on average and size [px] by class, without one: ''."""
    light = style.split("@media")[0]
    found = {}
    for name, rules in re.findall(r"(?:text|\.(\w+))\{([^}]*font-size:[^}]*)\}", light):
        size = float(re.search(r"font-size:([\d.]+)px", rules)[1])
        found[name or ""] = size * (0.66 if "bold" in rules else 0.56), size
    return found


def box(element, letters):
    """Left, top, right, bottom of a text, its letters taken as wide as they are on average."""
    letter, size = letters.get(element.get("class"), letters[""])
    x, y, width = float(element.get("x")), float(element.get("y")), letter * len(element.text or "")
    left = x - {"start": 0.0, "middle": 0.5, "end": 1.0}[element.get("text-anchor", "start")] * width
    return left, y - 0.75 * size, left + width, y + 0.2 * size


def points(element):
    """Every point that an element is drawn through."""
    get = lambda name: float(element.get(name))
    if element.tag == SVG + "line":
        return [(get("x1"), get("y1")), (get("x2"), get("y2"))]
    if element.tag == SVG + "rect":
        return [(get("x"), get("y")), (get("x") + get("width"), get("y") + get("height"))]
    if element.tag == SVG + "circle":
        return [(get("cx") - get("r"), get("cy") - get("r")), (get("cx") + get("r"), get("cy") + get("r"))]
    if element.tag == SVG + "path":
        return [(float(x), float(y)) for x, y in re.findall(r"[ML](-?[\d.]+)[ ,](-?[\d.]+)", element.get("d"))]
    return []


def check_svg(name, text):
    root = ET.fromstring(text)
    left, top, width, height = map(float, root.get("viewBox").split())
    check("http" not in text.replace("http://www.w3.org/2000/svg", ""), f"{name} points elsewhere")
    boxes = []
    letters = sizes(root.find(SVG + "style").text)
    for element in root.iter():
        for x, y in points(element):
            check(left <= x <= left + width and top <= y <= top + height, f"{name}: {element.tag} at {x},{y} is outside")
        if element.tag == SVG + "text":
            found = box(element, letters)
            check(left <= found[0] and found[2] <= left + width and top <= found[1] and found[3] <= top + height,
                  f"{name}: text {element.text!r} is outside")
            boxes.append((found, element.text))
    for i, (one, first) in enumerate(boxes):
        for two, second in boxes[i + 1:]:
            apart = one[2] <= two[0] or two[2] <= one[0] or one[3] <= two[1] or two[3] <= one[1]
            check(apart, f"{name}: {first!r} lies on {second!r}")
    return len(boxes)


def check_the_check():
    """A picture with a text on another and one outside must not pass."""
    bad = ('<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 100 100"><style>text{font-size:10px}</style>'
           '<text x="1" y="20">one</text><text x="8" y="24">two</text><text x="95" y="80">three</text>'
           '<path d="M1 2L300 4"/></svg>')
    check_svg("bad", bad)
    found = len(failures)
    failures.clear()
    check(found == 3, f"of 3 faults of a bad picture {found} were found")


def check_sheet(name, *words):
    text = told("sheet", *words)
    pages = ET.fromstring(text.replace("<!DOCTYPE html>", "")).findall(".//section")
    check(pages, f"{name} has no page")
    if shutil.which("weasyprint") and shutil.which("pdfinfo"):
        told("sheet", *words, "--pdf", folder + "/sheet.pdf")
        info = subprocess.run(["pdfinfo", folder + "/sheet.pdf"], capture_output=True, text=True, check=True).stdout
        printed = int(re.search(r"Pages: +(\d+)", info)[1])
        check(printed == len(pages), f"{name}: {len(pages)} pages take {printed} of paper")


def main():
    check_the_check()
    texts = 0
    for place in PLACES:
        texts += check_svg("chart of " + place, told("chart", place, "--svg"))
    texts += check_svg("chart of Rabat, two changes in spring", told("chart", "Rabat", "--svg", "--year", "2027"))
    texts += check_svg("chart of two places", told("chart", "Istanbul", "--with", "Oslo", "--svg"))
    for place in PLACES + SOUTH:
        for hour in HOURS:
            texts += check_svg(f"sky of {place} at {hour}", told("sky", place, "--svg", "--at", "2026-11-21T" + hour))
        texts += check_svg(f"sky of {place} in summer", told("sky", place, "--svg", "--at", "2026-06-21T12:00"))
        texts += check_svg("rose of " + place, told("compass", place, "--svg"))
    texts += check_svg("rose at a magnetic pole", told("compass", "86.5,160,UTC", "--svg"))
    check(texts > 500, f"only {texts} texts were looked at")
    check_sheet("month of 31 days on A4", "Istanbul", "--month", "2026-12")
    check_sheet("month of the far north on letter", "Tromsø", "--month", "2026-07", "--paper", "letter")
    check_sheet("all times on A4", "Oslo", "--month", "2026-05", "--others")
    check_sheet("all times on letter", "Tromsø", "--month", "2026-07", "--others", "--paper", "letter")
    check_sheet("Ramadan", "Istanbul", "--ramadan", "1448")
    shutil.rmtree(folder)
    for failure in failures:
        print(failure)
    print(f"{texts} texts of pictures looked at, {len(failures)} failures")
    sys.exit(1 if failures else 0)


main()
