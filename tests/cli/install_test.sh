#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs the build into a folder, runs the installed program, builds the example against the installed package with
# CMake and with pkg-config, makes the Debian packages, and runs the program out of the package.
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
[ "$(cd "$prefix/include/zorel" && echo *)" = "almanac catalogue engine" ] || fail "headers of internals are installed"
for example in next-sunset month-table; do
    cmake -S "$source/examples/$example" -B "$work/$example" -DCMAKE_PREFIX_PATH="$prefix" > "$work/$example.log"
    cmake --build "$work/$example" >> "$work/$example.log"
done
expect "$("$work/next-sunset/next-sunset" "$prefix/share/zorel/Zorel.bundle" Istanbul)" "İstanbul 20"
expect "$("$work/month-table/month-table")" "2026-12-21  06:"
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name zorel-almanac.pc)")
export PKG_CONFIG_PATH
for needed in sqlite3 icu plist ical fmt; do
    if pkg-config --libs zorel-almanac | grep -q "$needed"; then fail "the almanac asks for $needed"; fi
done
# shellcheck disable=SC2046
c++ -std=c++20 "$source/examples/month-table/main.cpp" -o "$work/month" $(pkg-config --cflags --libs zorel-almanac)
[ "$("$work/month")" = "$("$work/month-table/month-table")" ] || fail "two ways of linking, two tables"
# shellcheck disable=SC2046
c++ -std=c++20 "$source/examples/next-sunset/main.cpp" -o "$work/sunset" $(pkg-config --cflags --libs zorel-catalogue)
expect "$("$work/sunset" "$prefix/share/zorel/Zorel.bundle" Ankara)" "Ankara 20"

cpack --config "$build/CPackConfig.cmake" -B "$work/packages" > "$work/cpack.log"
package=$(ls "$work"/packages/zorel_*.deb)
dpkg-deb --info "$package" > "$work/info.txt"
grep -q "Depends:.*libsqlite3-0" "$work/info.txt" || fail "the package names no libraries"
if [ -e "$prefix/bin/zorel-settings" ]; then
    dpkg-deb --info "$work"/packages/zorel-settings_*.deb > "$work/window.txt"
    # Qt loads this at run time, so no linker names it.
    grep -q "Depends:.*qml6-module-qtqml-workerscript" "$work/window.txt" || fail "the window lacks a module of QML"
    dpkg-deb -c "$work"/packages/zorel-settings_*.deb > "$work/window-files.txt"
    grep -q "bin/zorel-settings" "$work/window-files.txt" || fail "no window in its package"
fi
grep -q "Recommends:.*gstreamer1.0-plugins-good" "$work/info.txt" || fail "the package recommends no decoders"
dpkg-deb -x "$package" "$work/root"
[ -s "$work/root/etc/xdg/autostart/zorel-ring.desktop" ] || fail "no desktop would start the ring service"
expect "$("$work/root/usr/bin/zorel" today Istanbul --short --lang en)" "Maghrib"
echo "zorel package: $(stat -c %s "$package") bytes, installed $(du -sk "$work/root" | cut -f1) kB"
