#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Checks that need no build: formatting, licence lines, file sizes, generated sources up to date.
set -euo pipefail
cd "$(dirname "$0")/.."
bad=0
complain() { printf '%s\n' "$*" >&2; bad=1; }

mapfile -t sources < <(git ls-files '*.cpp' '*.h')
clang-format --dry-run --Werror "${sources[@]}" || complain "clang-format would change the files above: clang-format -i FILE"
for file in "${sources[@]}" $(git ls-files '*.qml' '*.py' '*.sh'); do
    head -n 2 "$file" | grep -q 'SPDX-License-Identifier: Apache-2.0' || complain "$file: no SPDX line"
done
for file in $(git ls-files '*.cpp' '*.h' '*.qml' | grep -v '/series/'); do
    [ "$(wc -l <"$file")" -le 600 ] || complain "$file: over 600 lines"
done
qt=$(git grep -lE '#include <Q[A-Z]' -- src apps tools | grep -vE '^(src/host|apps/zorel-settings)/' || true)
[ -z "$qt" ] || complain "Qt headers outside src/host: $qt"
python3 tools/generate_series.py --check || complain "src/engine/series is not what tools/generate_series.py makes"
python3 tools/make_tones.py --check || complain "resources/Ringtones is not what tools/make_tones.py makes"
exit $bad
