#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Checks that need no build: formatting, licence lines, file sizes, generated sources up to date.
# Exit status 1 where something is wrong, 2 where the sources could not be looked at.
set -euo pipefail
cd "$(dirname "$0")/.."
bad=0
complain() { printf '%s\n' "$*" >&2; bad=1; }
give_up() { printf 'check_sources.sh: %s\n' "$*" >&2; exit 2; }

for program in clang-format python3; do
    command -v "$program" >/dev/null || give_up "$program is not installed, so nothing is checked."
done

# The project's files: what git tracks; without a .git (an unpacked archive) all but what a build makes.
list_files() {
    if [ -e .git ]; then
        # Whoever owns the folder: these files are about to be run anyway.
        git -c safe.directory="$PWD" ls-files
    else
        find . \( -path './build*' -o -path ./out -o -path ./.cache -o -name __pycache__ \) -prune -o -type f -printf '%P\n'
    fi
}
files=$(list_files) || give_up "git cannot list the files, so nothing is checked."
matching() { grep -E "$1" <<<"$files"; }
mapfile -t sources < <(matching '\.(cpp|h)$')
mapfile -t licensed < <(matching '\.(cpp|h|qml|py|sh)$')
mapfile -t sized < <(matching '\.(cpp|h|qml)$' | grep -v /series/)
mapfile -t without_qt < <(matching '^(src|apps|tools)/' | grep -vE '^(src/host|apps/zorel-settings)/')
for list in sources licensed sized without_qt; do
    declare -n names=$list
    [ ${#names[@]} -gt 0 ] || give_up "there are no files to check."
done

clang-format --dry-run --Werror "${sources[@]}" || complain "clang-format would change the files above: clang-format -i FILE"
for file in "${licensed[@]}"; do
    head -n 2 "$file" | grep -q 'SPDX-License-Identifier: Apache-2.0' || complain "$file: no SPDX line"
done
for file in "${sized[@]}"; do
    [ "$(wc -l <"$file")" -le 600 ] || complain "$file: over 600 lines"
done
unreadable="Not all files could be read."
# What clang-format leaves of a branch without braces: its head alone on a line.
bare=$(grep -nE '^ *(\} )?(else )?(if|for|while) \(.*\)$|^ *(\} )?else$' -- "${sources[@]}" || [ $? -eq 1 ]) || complain "$unreadable"
[ -z "$bare" ] || complain "branches without braces: $bare"
named=$(grep -nE '^(TYPED_)?TEST(_[FP])?\(\w+, *([a-z]|\w+_)' -- "${sources[@]}" || [ $? -eq 1 ]) || complain "$unreadable"
[ -z "$named" ] || complain "test names that are not UpperCamel: $named"
qt=$(grep -lE '#include <Q[A-Z]' -- "${without_qt[@]}" || [ $? -eq 1 ]) || complain "$unreadable"
[ -z "$qt" ] || complain "Qt headers outside src/host: $qt"
python3 tools/generate_series.py --check || complain "a table of src/*/series is not what tools/generate_series.py makes"
python3 tools/make_tones.py --check || complain "resources/Ringtones is not what tools/make_tones.py makes"
[ $bad -eq 0 ] && echo "${#sources[@]} sources: formatting, licence lines, sizes and generated tables are right."
exit $bad
