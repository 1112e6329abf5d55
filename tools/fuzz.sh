#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Looks for inputs that break a rule: runs every libFuzzer target with the address and undefined-behaviour sanitizers in
# the whole of the project's code, and prints a table.
#   tools/fuzz.sh SECONDS [FOLDER]      SECONDS for each target, two targets at a time; builds in FOLDER (build/fuzz)
# Exit code 1 when something was found: the inputs lie in FOLDER/found/TARGET. Inputs that reached new code lie in
# FOLDER/corpus/TARGET; the kept ones, tests/fuzz/corpus/TARGET, are never changed.
set -euo pipefail
[[ $# -ge 1 && $1 =~ ^[1-9][0-9]*$ ]] || { sed -n '3,8s/^# //p' "$0" >&2; exit 2; }
root=$(cd "$(dirname "$0")/.." && pwd)
export seconds=$1 root
build=${2:-$root/build/fuzz}
. "$root/tools/setup.sh"
mkdir -p "$build"
build=$(cd "$build" && pwd)
export build

say "Building with clang and its sanitizers"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=None -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
    -DCMAKE_CXX_FLAGS="-O1 -g1 -fno-omit-frame-pointer -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all" \
    -DZOREL_HOST=OFF -DZOREL_FUZZ=ON >"$build.log" 2>&1 || { cat "$build.log" >&2; fail "cmake could not configure $build."; }
mapfile -t targets < <(cd "$root/tests/fuzz" && printf '%s\n' *_fuzz.cpp | sed 's/_fuzz\.cpp$//')
cmake --build "$build" --target "${targets[@]/%/_fuzz}"

run_one() { # target
    local new="$build/corpus/$1" found="$build/found/$1" kept=("$root/tests/fuzz/corpus/$1")
    [ -d "$root/tests/data/fuzz/$1" ] && kept+=("$root/tests/data/fuzz/$1")
    mkdir -p "$new" "$found"
    LC_ALL=C.UTF-8 TZ=Asia/Kolkata nice -n 19 "$build/bin/$1_fuzz" -max_total_time="$seconds" -print_final_stats=1 \
        -timeout=10 -artifact_prefix="$found/" "$new" "${kept[@]}" >"$build/$1.log" 2>&1 || true
}
export -f run_one
say "Running ${#targets[@]} targets, $seconds s each, two at a time"
printf '%s\n' "${targets[@]}" | xargs -P 2 -I TARGET bash -c 'run_one TARGET'

statistic() { sed -n "s/^stat::$1: *//p" "$build/$2.log"; }
status=0
printf '%-16s %12s %10s %10s\n' target runs "new units" findings
for target in "${targets[@]}"; do
    findings=$(find "$build/found/$target" -type f | wc -l)
    [ "$findings" -eq 0 ] || status=1
    printf '%-16s %12s %10s %10s\n' "$target" "$(statistic number_of_executed_units "$target")" \
        "$(statistic new_units_added "$target")" "$findings"
done
exit $status
