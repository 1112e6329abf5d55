#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs the build into a folder, runs the installed program, and builds the examples against the installed library with
# CMake and with pkg-config.
# usage: install_test.sh SOURCE BUILD
set -euo pipefail
source=$1 build=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix
unset XDG_DATA_HOME
export HOME=$work/home LC_ALL=C.UTF-8 TZ=Europe/Istanbul
mkdir -p "$HOME"

fail() { echo "install_test: $*" >&2; exit 1; }
expect() { [[ $1 == *"$2"* ]] || fail "expected '$2' in: $1"; }

cmake --install "$build" --prefix "$prefix" > "$work/install.log"
expect "$("$prefix/bin/zorel" today 745044 --short --lang en)" "Maghrib"
[ -s "$prefix/share/man/man1/zorel.1" ] || fail "no manual page"
[ -s "$prefix/share/bash-completion/completions/zorel" ] || fail "no completion"
for unit in zorel-refresh.timer zorel-refresh.service zorel-refresh-failed.service; do
    [ -s "$prefix/share/systemd/user/$unit" ] || fail "no $unit"
done
for file in bin/zorel-ring libexec/zorel/zorel-ring-plan libexec/zorel/zorel-ring-play share/systemd/user/zorel-ring.service \
    share/dbus-1/services/org.zorel.Ring.service etc/xdg/autostart/zorel-ring.desktop; do
    [ -s "$prefix/$file" ] || fail "no $file"
done
expect "$(dbus-run-session -- sh -c "XDG_DATA_HOME=$work/data '$prefix/bin/zorel-ring' --start && '$prefix/bin/zorel-ring' --status")" "wakes"
[ -s "$prefix/share/doc/zorel/NOTICE" ] || fail "no credits"
if grep -rIl "$source" "$prefix" | grep -q .; then fail "installed files name the source folder"; fi

# Programs of others, against what was installed: they see two folders of headers and need no more than they use.
[ "$(cd "$prefix/include" && echo *)" = "zorel zorel.h" ] || fail "headers beside the folder of ours are installed"
[ "$(cd "$prefix/include/zorel" && echo *)" = "almanac catalogue engine" ] || fail "headers of internals are installed"
library=$(dirname "$(find "$prefix" -name libzorel.so.1)")
export LD_LIBRARY_PATH=$library
for example in next-sunset month-table; do
    cmake -S "$source/examples/$example" -B "$work/$example" -DCMAKE_PREFIX_PATH="$prefix" > "$work/$example.log"
    cmake --build "$work/$example" >> "$work/$example.log"
done
expect "$("$work/next-sunset/next-sunset" "$prefix/share/zorel/Zorel.bundle" Istanbul)" "İstanbul 20"
expect "$("$work/month-table/month-table")" "2026-12-21  06:"
export PKG_CONFIG_PATH=$library/pkgconfig
[ "$(pkg-config --libs-only-l --static zorel | xargs)" = "-lzorel" ] || fail "a program links more than the library"
# shellcheck disable=SC2046
c++ -std=c++20 "$source/examples/month-table/main.cpp" -o "$work/month" $(pkg-config --cflags --libs zorel)
[ "$("$work/month")" = "$("$work/month-table/month-table")" ] || fail "two ways of linking, two tables"
# It finds the catalogue that was installed with it.
# shellcheck disable=SC2046
cc -std=c11 -Wall -Wextra -Werror "$source/examples/c-next-prayer/main.c" -o "$work/next" $(pkg-config --cflags --libs zorel)
expect "$("$work/next" Ankara)" "Ankara: "
if [ -e "$prefix/bin/zorel-settings" ]; then
    [ -s "$prefix/share/man/man1/zorel-settings.1" ] || fail "no manual page of the window"
fi
[ -s "$prefix/share/man/man1/zorel-ring.1" ] || fail "no manual page of the ring service"
echo "installed: $(du -sk "$prefix" | cut -f1) kB"
