# SPDX-License-Identifier: Apache-2.0
# Sourced by ./run and ./test: what both need before they can build.

# Build and run time.
base_packages=(
    g++ cmake ninja-build pkg-config python3 tzdata
    libsqlite3-dev libicu-dev libplist-dev libical-dev libfmt-dev libcli11-dev nlohmann-json3-dev
    qt6-base-dev qt6-declarative-dev qml6-module-qtqml-workerscript qt6-wayland fonts-dejavu-core
    libgtest-dev libgmock-dev)
# What only the tests need: a second compiler, the tools that check the sources, the programs that read our calendars.
test_packages=(
    clang clang-format clang-tidy locales
    khal vdirsyncer radicale curl sqlite3 file desktop-file-utils appstream
    libbenchmark-dev libitl-dev itools liberfa-dev libnova-dev)

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

# configure PRESET [cmake options]: quiet unless it fails.
configure() {
    local log
    log=$(mktemp)
    if ! cmake --preset "$@" >"$log" 2>&1; then
        cat "$log" >&2; rm -f "$log"
        fail "cmake could not configure the '$1' build."
    fi
    rm -f "$log"
}
