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
[ -s "$prefix/share/systemd/user/zorel-refresh.timer" ] || fail "no timer"
[ -s "$prefix/share/doc/zorel/NOTICE" ] || fail "no credits"
if grep -rIl "$source" "$prefix" | grep -q .; then fail "installed files name the source folder"; fi

arguments=("$prefix/share/zorel/Zorel.bundle" Istanbul 2026 11 21)
cmake -S "$source/examples/next-sunset" -B "$work/example" -DCMAKE_PREFIX_PATH="$prefix" > "$work/example.log"
cmake --build "$work/example" >> "$work/example.log"
expect "$("$work/example/next-sunset" "${arguments[@]}")" "17:49"

pkgconfig=$(dirname "$(find "$prefix" -name zorel.pc)")
# shellcheck disable=SC2046
c++ -std=c++20 "$source/examples/next-sunset/main.cpp" -o "$work/next-sunset" \
    $(PKG_CONFIG_PATH=$pkgconfig pkg-config --cflags --libs zorel)
expect "$("$work/next-sunset" "${arguments[@]}")" "17:49"

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
dpkg-deb -x "$package" "$work/root"
expect "$("$work/root/usr/bin/zorel" today Istanbul --short --lang en)" "Maghrib"
echo "zorel package: $(stat -c %s "$package") bytes, installed $(du -sk "$work/root" | cut -f1) kB"
