#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# make_pictures.sh [BIN-FOLDER]: makes docs/pictures: the screens of the window, in English and Turkish, and the pictures of the
# command line (make_drawings.sh, which can be called alone).
set -euo pipefail
cd "$(dirname "$0")/.."
bin=${1:-build/release/bin}
out=docs/pictures
at=2026-11-22T13:42
mkdir -p "$out"

draw() { # LANGUAGE LOCALE SCREEN NAME [options]
    local language=$1 locale=$2 screen=$3 name=$4
    shift 4
    LC_ALL=$locale "$bin/zorel-settings" --data-dir "$data" --screen "$screen" --at "$at" --screenshot "$out/$name-$language.png" "$@"
}
for language in en tr; do
    locale=$([ "$language" = tr ] && echo tr_TR.UTF-8 || echo C.UTF-8)
    data=$(mktemp -d)
    export TZ=Europe/Istanbul
    draw "$language" "$locale" cities empty
    for city in Istanbul Sarajevo "Kuala Lumpur" Mecca; do
        "$bin/zorel" --now "$at" --data-dir "$data" cities add "$city" >/dev/null
    done
    "$bin/zorel" --now "$at" --data-dir "$data" alarms on fajr >/dev/null
    "$bin/zorel" --now "$at" --data-dir "$data" alarms offset fajr -- -20 >/dev/null
    "$bin/zorel" --now "$at" --data-dir "$data" alarms on asr >/dev/null
    "$bin/zorel" --now "$at" --data-dir "$data" alarms on maghrib >/dev/null
    draw "$language" "$locale" cities cities
    draw "$language" "$locale" cities wide --width 1040 --height 720
    draw "$language" "$locale" why why
    draw "$language" "$locale" search search --search Medina
    draw "$language" "$locale" alarm alarm
    [ "$language" = en ] && draw "$language" "$locale" cities dark --appearance dark
    rm -rf "$data"
done
tools/make_drawings.sh "$bin"
ls "$out"
