#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# tidy.sh [FILE...]: clang-tidy over the given sources (default: all that git tracks), with the release build's commands.
# Not part of ./test: the whole tree takes about half an hour on two cores.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/setup.sh
install_packages clang-tidy
[ -f build/release/compile_commands.json ] || { echo "Run ./run or ./test first: the build tells how files are compiled." >&2; exit 2; }
if [ $# -eq 0 ]; then
    mapfile -t files < <(git ls-files 'src/*.cpp' 'apps/*.cpp' 'tools/*.cpp' 'tests/*.cpp' | grep -vE '/series/|/fuzz/')
else
    files=("$@")
fi
printf '%s\0' "${files[@]}" | xargs -0 -n 1 -P "$(nproc)" clang-tidy -p build/release --quiet
