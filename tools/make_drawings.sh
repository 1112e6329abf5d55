#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# make_drawings.sh [BIN-FOLDER]: makes the pictures of the command line in docs/pictures: a day, two years, a month, a Ramadan, the
# sky, the compass. Needs rsvg-convert, weasyprint and pdftoppm (Debian: librsvg2-bin, weasyprint, poppler-utils).
set -euo pipefail
cd "$(dirname "$0")/.."
bin=${1:-build/release/bin}
out=docs/pictures
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
tell() { LC_ALL=en_US.UTF-8 TZ=Europe/Istanbul "$bin/zorel" --data-dir "$work" --now 2026-11-21T16:00:00+03:00 "$@"; }
draw() { # NAME ZOOM command: an SVG of the program as PNG
    local name=$1 zoom=$2
    shift 2
    tell "$@" >"$work/$name.svg"
    rsvg-convert --zoom "$zoom" -o "$out/$name.png" "$work/$name.svg"
}
sheet() { # NAME options: the first page
    local name=$1
    shift
    tell sheet Istanbul --pdf "$work/sheet.pdf" "$@"
    pdftoppm -r 80 -png -singlefile "$work/sheet.pdf" "$out/$name"
}
# The bar of a day as a terminal shows it.
tell today Istanbul --color always | python3 tools/terminal_picture.py >"$work/bar.svg"
rsvg-convert --zoom 1.5 -o "$out/day-bar.png" "$work/bar.svg"
draw chart-istanbul 1.25 chart Istanbul --svg
draw chart-oslo 1.25 chart Oslo --svg
sheet sheet-month --month 2026-12
sheet sheet-ramadan --ramadan 1448
draw sky 1.25 sky Istanbul --at 2026-11-18T16:40 --svg
draw compass 1 compass Istanbul --svg
