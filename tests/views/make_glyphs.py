#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes tests/data/views/glyphs.txt: the drawing calls of every figure of the drawn button, for several sizes.

The measures below are written down a second time, apart from the program's, so that a slip in either shows.
"""
from math import cos, pi, sin
from pathlib import Path

TARGET = Path(__file__).resolve().parent.parent / "data" / "views" / "glyphs.txt"
SIZES = [(70, 30), (120, 90), (44.5, 61)]


def line(points):
    return [("moveTo", *points[0])] + [("addLineTo", *p) for p in points[1:]]


def dots(m):
    return [("setLineWidth", 2)] + [("addEllipseInRect", m.cx + d, m.cy - 0.5, 1, 1) for d in (4, -0.5, -5)] + [
        ("drawPath fillStroke",)]


def plus(m):
    return [("setLineWidth", 2), ("setLineCap butt",)] + line([(m.cx - m.h, m.cy), (m.cx + m.h, m.cy)]) + line(
        [(m.cx, m.top), (m.cx, m.bottom)]) + [("drawPath stroke",)]


def arrows(m, xs):
    tip, head, tail = xs
    outline = [(tip, 0), (head, -4), (head, -2), (tail, -2), (tail, 2), (head, 2), (head, 4), (tip, 0)]
    calls = [("setLineCap square",)]
    for side in (1, -1):
        calls += line([(m.cx + side * x, m.cy + y) for x, y in outline]) + [("drawPath stroke",)]
    return calls


def small_house(m):
    xy = [(0, -1), (6, 5), (4, 5), (4, 10), (1, 10), (1, 6), (-1, 6), (-1, 10), (-4, 10), (-4, 5), (-6, 5), (-4, 3),
          (-4, -1), (-2, -1), (-2, 1), (0, -1)]
    return [("setLineWidth", 1.2), ("setLineCap square",)] + line([(m.cx + x, m.top + y) for x, y in xy]) + [
        ("drawPath stroke",)]


def house(m):
    cx, cy, h = m.cx, m.cy, m.h
    t, u = (2 * h - 4) / 3, h / 3
    right = cx + h - 2
    points = [(cx, m.top), (cx + h, cy), (right, cy), (right, cy + h / 2), (right - t, cy + h / 2),
              (right - t, cy + h / 2 - t), (right - 2 * t, cy + h / 2 - t), (right - 2 * t, cy + h / 2),
              (cx - h + 2, cy + h / 2), (cx - h + 2, cy), (cx - h, cy), (cx - h + u, cy - u),
              (cx - h + u, cy - 2 * u), (cx - h + 1.5 * u, cy - 2 * u), (cx - h + 1.5 * u, cy - 1.5 * u), (cx, m.top)]
    return [("setLineWidth", 1.2), ("setLineCap square",)] + line(points) + [("drawPath stroke",)]


def bell(m):
    cx, cy = m.cx, m.cy
    r1, r2 = cy / 10, cy / 6
    a, b = 2 * r1, 3 * r2
    y0 = cy - (a + b) / 2 - 1
    x1, y1 = cx + r1, y0 + r1
    x2 = x1 + r2
    y3 = y1 + b + r1
    x4 = x2 + r1 - 2 * (a + r2)
    x5 = x4 + r1
    y6 = y3 - r1 - 2 * r2
    y7 = y6 - r2
    x7 = x5 + r2
    yc = cy + (2 * r1 + b) / 2 + 1
    return [("setLineWidth", 1), ("setLineCap round",), ("moveTo", cx, y0), ("addArcToPoint", x1, y0, x1, y1, r1),
            ("addLineTo", x1, y1), ("addArcToPoint", x2, y1, x2, y1 + r2, r2), ("addLineTo", x2, y1 + b),
            ("addLineTo", x2 + r1, y3), ("addLineTo", x4, y3), ("addLineTo", x5, y3 - r1), ("addLineTo", x5, y6),
            ("addArcToPoint", x5, y7, x7, y7, r2), ("addArcToPoint", x7, y7 - r1, x7 + r1, y7 - r1, r1),
            ("drawPath fillStroke",), ("moveTo", x1, yc), ("addArcToPoint", x1, yc + r1, cx, yc + r1, r1),
            ("addArcToPoint", x1 - a, yc + r1, x1 - a, yc, r1), ("drawPath fillStroke",)]


def bell_struck(m):
    r1, r2 = m.cy / 10, m.cy / 6
    reach = (2 * r1 + 3 * r2) / 2 + 1
    return bell(m) + [("setLineWidth", 3), ("setLineCap square",), ("setStrokeColor bar",), ("setFillColor bar",)] + line(
        [(m.cx - m.cy / 4, m.cy - reach), (m.cx + m.cy / 4, m.cy + reach)]) + [("drawPath stroke",)]


def sun(m):
    cx, cy = m.cx, m.cy
    calls = [("setLineWidth", 1.7), ("setLineCap round",)]
    calls += line([(cx, m.top - 1), (cx, m.bottom + 1)]) + line([(cx - m.h - 1, cy), (cx + m.h + 1, cy)])
    calls += line([(cx - 4, cy - 4), (cx + 4, cy + 4)]) + line([(cx - 4, cy + 4), (cx + 4, cy - 4)])
    return calls + [("drawPath stroke",), ("setFillColor enabled",), ("addEllipseInRect", cx - 2, cy - 2, 4, 4),
                    ("drawPath fillStroke",)]


def crescent(m):
    calls = []
    for x, y, r, start, end in ((m.cx, m.cy, 7, pi / 12, 13 * pi / 9), (m.cx + 1, m.cy - 1, 6, pi / 6, 25 * pi / 18)):
        calls += [("moveTo", x + r * cos(start), y + r * sin(start)), ("addArc", x, y, r, start, end, 1)]
    return calls + [("drawPath stroke",)]


GLYPHS = {1: dots, 2: plus, 3: lambda m: arrows(m, (-8, -4, -1)), 4: lambda m: arrows(m, (-1, -5, -8)), 5: small_house,
          6: house, 9: bell, 10: bell_struck, 11: sun, 12: crescent}


class Measures:
    """The box of the figure lies 6 points inside the button."""

    def __init__(self, width, height):
        self.cx, self.cy = width / 2, height / 2
        self.top, self.bottom = 6, height - 6
        self.h = self.cy - self.top


def main():
    lines = ["# Made by tests/views/make_glyphs.py: size of the button, figure, and the calls after line width 1 and the two",
             "# colours. Colours: bar, enabled."]
    for width, height in SIZES:
        for shape, figure in GLYPHS.items():
            lines.append(f"glyph {shape} {width:g} {height:g}")
            for name, *numbers in figure(Measures(width, height)):
                lines.append(" ".join([name] + [f"{n:.12g}" for n in numbers]))
    TARGET.parent.mkdir(parents=True, exist_ok=True)
    TARGET.write_text("\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
