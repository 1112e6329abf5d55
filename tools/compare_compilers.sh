#!/bin/bash
# SPDX-License-Identifier: Apache-2.0
# Builds the engine with gcc and clang, at -O0 and -O2, and compares the digests of many results: every build must
# give the same bits.
#   tools/compare_compilers.sh FOLDER      builds below FOLDER; exit code 1 when two digests differ
set -euo pipefail
if [ $# -ne 1 ]; then
    echo "usage: $0 FOLDER" >&2
    exit 2
fi
root=$(cd "$(dirname "$0")/.." && pwd)
mkdir -p "$1"
folder=$(cd "$1" && pwd)

build() { # name compiler level
    echo "building with $2 $3"
    cmake -S "$root" -B "$folder/$1" -G Ninja -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_COMPILER="$2" \
        -DCMAKE_CXX_FLAGS="$3" -DZOREL_HOST=OFF -DBUILD_TESTING=OFF >"$folder/$1.log" 2>&1 &&
        cmake --build "$folder/$1" --target golden_check engine_bits >>"$folder/$1.log" 2>&1 || {
        tail -30 "$folder/$1.log" >&2
        exit 2
    }
    { "$folder/$1/bin/golden_check" --digest && "$folder/$1/bin/engine_bits" quick; } >"$folder/$1.digest"
}

build gcc-O0 g++ -O0
build gcc-O2 g++ -O2
build clang-O0 clang++ -O0
build clang-O2 clang++ -O2

status=0
for name in gcc-O2 clang-O0 clang-O2; do
    if ! diff -u "$folder/gcc-O0.digest" "$folder/$name.digest"; then
        echo "$name differs from gcc-O0" >&2
        status=1
    fi
done
cat "$folder/gcc-O0.digest"
[ $status -eq 0 ] && echo "gcc and clang, -O0 and -O2: the same bits"
exit $status
