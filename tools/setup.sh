# SPDX-License-Identifier: Apache-2.0
# Sourced by ./run and ./test: what both need before they can build.

# What ./run needs: to build the programs, and to open the window or to draw it.
base_packages=(
    g++ cmake ninja-build pkg-config tzdata gettext
    libabsl-dev libcli11-dev libfmt-dev libgstreamer1.0-dev libical-dev libicu-dev libplist-dev libsqlite3-dev
    libsystemd-dev nlohmann-json3-dev gstreamer1.0-plugins-base gstreamer1.0-plugins-good
    qt6-base-dev qt6-declarative-dev qml6-module-qtqml-workerscript qt6-wayland fonts-dejavu-core)
# What the tests need besides: their library, a second compiler, what checks the sources and the files that are installed,
# programs that read our calendars, completions and manual page, a desktop without a screen and the bus of its screen
# reader, a session with a sound server, libraries that the accuracy report has as peers.
test_packages=(
    xvfb openbox xdotool sway wtype grim at-spi2-core gir1.2-atspi-2.0 python3-pil
    libgmock-dev clang clang-format git python3 python3-polib locales
    dpkg-dev make file desktop-file-utils appstream systemd
    librsvg2-bin weasyprint poppler-utils
    khal vdirsyncer radicale fish zsh conky-cli tmux groff-base dbus pulseaudio pulseaudio-utils pipewire-bin wireplumber
    gstreamer1.0-libav gstreamer1.0-pipewire gir1.2-gstreamer-1.0 python3-dbus python3-gi libcap2-bin
    evolution-data-server xauth
    pybind11-dev python3-dev python3-numpy python3-pytest mypy doxygen
    libitl-dev libnova-dev)
# What building and checking the Debian packages needs besides (docs/packages.md).
package_packages=(build-essential debhelper dh-python devscripts fakeroot lintian autopkgtest diffoscope-minimal)
# What the benchmarks need: their library, programs and libraries that are measured beside ours.
bench_packages=(libbenchmark-dev libitl-dev libnova-dev liberfa-dev itools python3 time)

started=$(date +%s)
say() { printf '\n== %s (%d s)\n' "$*" $(($(date +%s) - started)); }
fail() { printf '%s\n' "$*" >&2; exit 1; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"
    elif command -v sudo >/dev/null; then sudo "$@"
    else fail "Packages are missing and this is neither root nor is there sudo. As root, run: apt-get install $*"
    fi
}

# Installs those of the given Debian packages that are not there yet.
install_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    say "Installing ${#missing[@]} Debian packages: ${missing[*]}"
    as_root apt-get update -qq || fail "The package lists could not be fetched. Check the network and /etc/apt/sources.list."
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}" ||
        fail "Debian packages could not be installed: ${missing[*]}"
}

# configure PRESET [cmake options]: quiet unless it fails; then everything is said and the status is 1.
configure() {
    local log
    log=$(mktemp)
    if ! cmake --preset "$@" >"$log" 2>&1; then
        cat "$log" >&2; rm -f "$log"
        echo "cmake could not configure the '$1' build." >&2
        return 1
    fi
    rm -f "$log"
}
