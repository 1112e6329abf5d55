#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Collects the texts of the programs into po/zorel.pot, the list that translators work from.
#   make_pot.sh           writes it
#   make_pot.sh --check   says whether it is what the sources hold; 1: it is not
#   make_pot.sh --merge   brings every po/*.po up to it: new texts are empty, texts that are gone are dropped
set -euo pipefail
export LC_ALL=C.UTF-8
cd "$(dirname "$0")/.."
pot=po/zorel.pot

collect() {
    local common=(--from-code=UTF-8 --add-location=file --add-comments=translators: --no-wrap -o -)
    find src apps -name '*.cpp' -o -name '*.h' | sort |
        xgettext "${common[@]}" --files-from=- --language=C++ --package-name=Zorel \
            --keyword --keyword=tr:1 --keyword=trIn:1c,2 --keyword=trPlural:1,2 --keyword=trLater:1 --keyword=trLaterIn:1c,2 >"$1/code.pot"
    xgettext "${common[@]}" --its=po/plist.its resources/Zorel.bundle/en.lproj/en.plist >"$1/pane.pot"
    xgettext "${common[@]}" resources/desktop/*.desktop.in resources/desktop/*.metainfo.xml.in >"$1/desktop.pot"
    # No date: the file changes when a text does.
    msgcat --use-first --no-wrap "$1/pane.pot" "$1/code.pot" "$1/desktop.pot" |
        sed -e '/^"POT-Creation-Date: /d' -e '/^"PO-Revision-Date: /d' -e '/^"Last-Translator: /d' \
            -e '/^"Language-Team: /d' -e '1,/^#$/c\# SPDX-License-Identifier: Apache-2.0\n# The texts of Zorel; docs/translating.md tells how to translate them.\n#' -e '/^"Project-Id-Version: /s/: .*\\n/: Zorel\\n/'
}

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
case "${1:-}" in
--merge)
    for po in po/*.po; do
        msgmerge --quiet --update --backup=none --no-fuzzy-matching --no-wrap --add-location=file "$po" "$pot"
        msgattrib --no-obsolete --no-wrap -o "$po" "$po"
    done
    ;;
--check)
    collect "$work" >"$work/zorel.pot"
    diff -u "$pot" "$work/zorel.pot" || { echo "$pot is not what the sources hold: ninja pot" >&2; exit 1; }
    ;;
*)
    collect "$work" >"$work/zorel.pot"
    cp "$work/zorel.pot" "$pot"
    ;;
esac
