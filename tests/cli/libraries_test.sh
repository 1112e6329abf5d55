#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# The command line loads at its start only what nearly every run needs; what it loads later works.
# usage: libraries_test.sh PROGRAM
set -euo pipefail
program=$1
data=$(mktemp -d)
trap 'rm -rf "$data"' EXIT

fail() { echo "libraries_test: $*" >&2; exit 1; }

needed=$(readelf -d "$program" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
[ -n "$needed" ] || fail "readelf tells nothing"
for library in $needed; do
    case $library in
        libplist-2.0.so.* | libm.so.* | libc.so.* | ld-linux*) ;;
        *) fail "$library is loaded at every start: is a function of it missing in apps/zorel/on_demand?" ;;
    esac
done

run() { LC_ALL=C.UTF-8 "$program" --data-dir "$data" "$@"; }
run today 'Αθήνα' --short --lang en >/dev/null || fail "a name in another script is not found: ICU"
run table 745044 --from 2027-01-01 --to 2027-01-01 --ics | grep -q '^BEGIN:VEVENT' || fail "no calendar: libical"
loaded=$(LC_ALL=C.UTF-8 LD_DEBUG=files "$program" --data-dir "$data" today 41.01,28.97,+3 2>&1 >/dev/null |
    sed -n 's/.*calling init: //p')
case $loaded in
    *libicu* | *libical* | *libstdc++* | *libsqlite*) fail "loaded for a day of a point: $loaded" ;;
esac
