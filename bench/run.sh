#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# run.sh: builds the benchmarks (release) and prints every figure, with the peers measured in the same run.
set -euo pipefail
cd "$(dirname "$0")/.."
. tools/setup.sh
install_packages "${base_packages[@]}" "${bench_packages[@]}"
say "Building the benchmarks"
configure release -B build/bench -DZOREL_BENCH=ON -DBUILD_TESTING=OFF
cmake --build build/bench
say "Measuring"
exec python3 bench/table.py build/bench
