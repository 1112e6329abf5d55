#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# make_pictures.sh [BIN-FOLDER]: draws the screens of the window, in English and Turkish, and the pictures of the command line
# into docs/pictures. Needs rsvg-convert, weasyprint and pdftoppm (Debian: librsvg2-bin, weasyprint, poppler-utils).
set -euo pipefail
cd "$(dirname "$0")/.."
bin=${1:-build/release/bin}
out=docs/pictures
mkdir -p "$out"

draw() { # LANGUAGE LOCALE SCREEN NAME [options]
    local language=$1 locale=$2 screen=$3 name=$4
    shift 4
    LC_ALL=$locale "$bin/zorel-settings" --data-dir "$data" --screen "$screen" --screenshot "$out/$name-$language.png" "$@"
}
for language in en tr; do
    locale=$([ "$language" = tr ] && echo tr_TR.UTF-8 || echo en_US.UTF-8)
    data=$(mktemp -d)
    export TZ=Europe/Istanbul
    draw "$language" "$locale" cities empty
    for city in Istanbul Sarajevo "Kuala Lumpur" Mecca; do
        "$bin/zorel" --data-dir "$data" cities add "$city" >/dev/null
    done
    "$bin/zorel" --data-dir "$data" alarms on fajr >/dev/null
    "$bin/zorel" --data-dir "$data" alarms offset fajr -- -20 >/dev/null
    "$bin/zorel" --data-dir "$data" alarms on maghrib >/dev/null
    draw "$language" "$locale" cities cities
    draw "$language" "$locale" search search --search Medina
    draw "$language" "$locale" alarm alarm
    [ "$language" = en ] && draw "$language" "$locale" cities dark --appearance dark
    rm -rf "$data"
done

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
tell() { LC_ALL=en_US.UTF-8 "$bin/zorel" --data-dir "$work" --now 2026-11-21T16:00:00+03:00 "$@"; }
for place in Istanbul Oslo; do
    tell chart $place --svg >"$work/chart.svg"
    rsvg-convert --zoom 1.25 -o "$out/chart-${place,,}.png" "$work/chart.svg"
done
sheet() { # NAME options: the first page
    local name=$1
    shift
    tell sheet Istanbul --pdf "$work/sheet.pdf" "$@"
    pdftoppm -r 80 -png -singlefile "$work/sheet.pdf" "$out/$name"
}
sheet sheet-month --month 2026-12
sheet sheet-ramadan --ramadan 1448
# The bar of a day as a terminal shows it.
tell today Istanbul --color always | python3 tools/terminal_picture.py >"$work/bar.svg"
rsvg-convert --zoom 1.5 -o "$out/day-bar.png" "$work/bar.svg"
ls "$out"
