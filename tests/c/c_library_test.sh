#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds the example in C against the shared library, runs it, and looks at what the library hands out and needs.
# usage: c_library_test.sh SOURCE LIBRARY BUNDLE C-COMPILER
set -euo pipefail
source=$1 library=$2 bundle=$3 compiler=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C.UTF-8 TZ=Europe/Istanbul
fail() { echo "c_library_test: $*" >&2; exit 1; }

build() { # OUTPUT SOURCE
    "$compiler" -std=c11 -Wall -Wextra -Wpedantic -Werror -I "$source/src/c" "$2" "$library" \
        -Wl,-rpath,"$(dirname "$library")" -o "$1"
}
build "$work/next" "$source/examples/c-next-prayer/main.c"
told=$("$work/next" Ankara "$bundle")
[[ $told =~ ^Ankara:\ [a-z]+\ at\ [0-2][0-9]:[0-5][0-9],\ 14[0-9]{2}-[01][0-9]-[0-3][0-9]\ Hijri,\ qibla\ 1[0-9]{2}\.[0-9] ]] ||
    fail "the example told: $told"
if "$work/next" Istanb "$bundle" 2>"$work/errors"; then fail "a part of a name was taken for a name"; fi
grep -q "Did you mean İstanbul, TR?" "$work/errors" || fail "no suggestion: $(cat "$work/errors")"
if "$work/next" Ankara /nowhere 2>"$work/errors"; then fail "a missing catalogue was not noticed"; fi
grep -q "no catalogue" "$work/errors" || fail "no reason: $(cat "$work/errors")"

# Every function that the header declares is there, and nothing else under a C name.
grep -oE '\bzorel_[a-z_0-9]+\(' "$source/src/c/zorel.h" | tr -d '(' | sort -u > "$work/declared"
nm -D --defined-only "$library" | sed -n 's/.* T \(zorel_[a-z_0-9]*\)@@ZOREL_1.0$/\1/p' | sort > "$work/handed_out"
diff "$work/declared" "$work/handed_out" || fail "header and library differ"
others=$(nm -D --defined-only "$library" | awk '$2 != "A" { print $3 }' |
    grep -vE '^zorel_[a-z_0-9]+@@ZOREL_1\.0$|^_ZNK?5zorel.*@@ZOREL_CXX_1\.0$' || true)
[ -z "$others" ] || fail "the library hands out internals: $others"
readelf -d "$library" > "$work/dynamic"
grep -q 'SONAME.*libzorel.so.1\]' "$work/dynamic" || fail "the library is not called libzorel.so.1"
if grep -E 'NEEDED.*(plist|ical|Qt|gstreamer)' "$work/dynamic"; then fail "the library needs more than it uses"; fi
echo "$(wc -l < "$work/declared") functions in C; needs:$(sed -n 's/.*NEEDED.*\[\(.*\)\]/ \1/p' "$work/dynamic" | tr -d '\n')"
