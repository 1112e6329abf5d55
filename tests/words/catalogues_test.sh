#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Every language of LINGUAS is complete, every other file of po/ is right as far as it goes, and the pane's language
# files say what the catalogues say.
set -u
cd "$1"
bad=0
mapfile -t complete < <(sed -n '/^[a-z]/s|.*|po/&.po|p' po/LINGUAS)
[ ${#complete[@]} -gt 0 ] || { echo "po/LINGUAS names no language"; exit 1; }
tools/check_po.py --complete "${complete[@]}" || bad=1
tools/check_po.py po/*.po || bad=1
tools/make_language_files.py --check || bad=1
exit $bad
