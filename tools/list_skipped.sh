#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# list_skipped.sh BUILD...: the tests that the last ctest of each build folder left out, with the reason, or "none".
# A test says so in two lines, as GoogleTest does: "place: Skipped", then the reason.
set -euo pipefail
for build in "$@"; do
    log=$build/Testing/Temporary/LastTest.log
    [ -e "$log" ] || { echo "$build: no tests were run"; continue; }
    skipped=$(sed -n '/: Skipped$/{s/: Skipped$//;N;s/\n/: /;p}' "$log")
    echo "$build: ${skipped:-none}"
done
