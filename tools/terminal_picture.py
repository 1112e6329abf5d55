#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Reads what a program prints to a terminal in colours, and writes a picture (SVG) of it as a dark terminal shows it."""
import re
import sys
from xml.sax.saxutils import escape

WIDTH, HEIGHT, MARGIN = 8.4, 18, 12  # of a character and around all of them


def colour(index):
    """One of the 256 colours of terminals."""
    if index < 16:
        return ["#000", "#c33", "#3a3", "#c93", "#36c", "#93c", "#3aa", "#ccc"][index % 8]
    if index >= 232:
        return "#" + f"{8 + 10 * (index - 232):02x}" * 3
    steps = [0, 95, 135, 175, 215, 255]
    index -= 16
    return "#" + "".join(f"{steps[index // step % 6]:02x}" for step in (36, 6, 1))


def look(codes):
    ink, ground, bold = "#d8dee6", None, False
    codes = [int(code or 0) for code in codes.split(";")]
    while codes:
        code = codes.pop(0)
        if code == 1:
            bold = True
        elif code == 2:
            ink = "#8a93a0"
        elif 30 <= code < 38:
            ink = {32: "#7ddc8b", 33: "#f0c060"}.get(code, ink)
        elif code in (38, 48) and len(codes) >= 2:
            shade, codes = colour(codes[1]), codes[2:]
            ink, ground = (shade, ground) if code == 38 else (ink, shade)
    return ink, ground, bold


def main():
    lines = sys.stdin.read().splitlines()
    pieces, widest = [], 0
    for row, line in enumerate(lines):
        column, state = 0, look("0")
        for part in re.split(r"(\x1b\[[0-9;]*m)", line):
            if part.startswith("\x1b"):
                state = look(part[2:-1])
                continue
            x, y = MARGIN + column * WIDTH, MARGIN + row * HEIGHT
            ink, ground, bold = state
            if ground:
                pieces.append(f'<rect x="{x:.1f}" y="{y}" width="{len(part) * WIDTH + .3:.1f}" height="{HEIGHT}" fill="{ground}"/>')
            for i, character in enumerate(part):
                if character != " ":
                    weight = ' font-weight="bold"' if bold else ""
                    pieces.append(f'<text x="{x + i * WIDTH:.1f}" y="{y + 13.5}" fill="{ink}"{weight}>{escape(character)}</text>')
            column += len(part)
        widest = max(widest, column)
    width, height = 2 * MARGIN + widest * WIDTH, 2 * MARGIN + len(lines) * HEIGHT
    print(f'<svg xmlns="http://www.w3.org/2000/svg" width="{width:.0f}" height="{height}">'
          f'<rect width="100%" height="100%" fill="#14171c"/>'
          f'<g font-family="DejaVu Sans Mono,monospace" font-size="14">' + "\n".join(pieces) + "</g></svg>")


main()
