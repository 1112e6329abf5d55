#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds the packages twice, in two folders of different lengths, under different times, zones, locales, users' names, homes and
# masks, and compares them byte by byte. Needs what building needs, faketime, and about half an hour; with ccache
# it would compare an object with itself, so it uses none.
#   tools/compare_packages.sh FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
[ $# -eq 1 ] || { sed -n '3,7s/^# //p' "$0" >&2; exit 2; }
folder=$(mkdir -p "$1" && cd "$1" && pwd)
unset CMAKE_C_COMPILER_LAUNCHER CMAKE_CXX_COMPILER_LAUNCHER

build() ( # NAME VARIABLE=VALUE...; the packages in the folder above the clone
    rm -rf "${folder:?}/$1"
    mkdir -p "$folder/$1/home"
    git clone --quiet . "$folder/$1/zorel"
    cd "$folder/$1/zorel"
    shift
    env "$@" DEB_BUILD_OPTIONS=nocheck dpkg-buildpackage -us -uc -b >../log 2>&1 ||
        { tail -n 30 ../log >&2; exit 1; }
)
build one TZ=UTC LC_ALL=C.UTF-8 HOME="$folder/one/home" USER=one
umask 002
build the_other_one TZ=Pacific/Kiritimati LC_ALL=C LANG=tr_TR.UTF-8 HOME="$folder/the_other_one/home" USER=other \
    LD_PRELOAD="$(dirname "$(readlink -f "$(command -v faketime)")")/../lib/$(gcc -print-multiarch)/faketime/libfaketime.so.1" \
    FAKETIME=+400d FAKETIME_DONT_FAKE_MONOTONIC=1 NO_FAKE_STAT=1

differing=0
for package in "$folder"/one/*.deb; do
    other=$folder/the_other_one/$(basename "$package")
    if ! cmp -s "$package" "$other"; then
        differing=1
        echo "$(basename "$package") differs:"
        diffoscope --text - "$package" "$other" || true
    fi
done
[ $differing -eq 0 ] && echo "$(find "$folder/one" -maxdepth 1 -name '*.deb' | wc -l) packages, the same bytes from both builds."
exit $differing
