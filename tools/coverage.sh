#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Measures what the quick tests cover of the engine and the store: branches and lines, by file and in total.
#   tools/coverage.sh [FOLDER]      builds in FOLDER (build/coverage); details as pages in FOLDER/coverage/index.html
# Branches that only an exception of the C++ library takes, and those that the compiler proves unreachable, do not count.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${1:-$root/build/coverage}
. "$root/tools/setup.sh"

install_packages gcovr
mkdir -p "$build"
build=$(cd "$build" && pwd)

say "Building with counters"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_FLAGS="-O0 -g1 --coverage" \
    -DZOREL_HOST=OFF >"$build.log" 2>&1 || { cat "$build.log" >&2; fail "cmake could not configure $build."; }
"$root/tools/make_turkish_locale.sh" "$build/locale"
cmake --build "$build"

say "Running the quick tests"
find "$build" -name '*.gcda' -delete
ctest --test-dir "$build" -L quick -j "$(nproc)" --output-on-failure >"$build/tests.log" 2>&1 ||
    { cat "$build/tests.log" >&2; fail "A test failed, so nothing is measured."; }
tail -n 4 "$build/tests.log"

report() { # gcovr's options
    gcovr --root "$root" --object-directory "$build" "$build/src" "$build/tests" --filter "$root/src/engine/" \
        --filter "$root/src/store/" --exclude-throw-branches --exclude-unreachable-branches "$@"
}
mkdir -p "$build/coverage"
say "Counting"
report --json "$build/coverage/trace.json" --html-details "$build/coverage/index.html"
add=(--add-tracefile "$build/coverage/trace.json" --root "$root" --exclude-throw-branches)
say "Lines"
gcovr "${add[@]}"
say "Branches"
gcovr "${add[@]}" --branches
gcovr "${add[@]}" --print-summary --output /dev/null
