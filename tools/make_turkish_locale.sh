#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# make_turkish_locale.sh FOLDER: a private tr_TR.UTF-8 for the tests, used through LOCPATH; the system stays as it is.
set -eu
[ -f "$1/tr_TR.UTF-8/LC_NUMERIC" ] && exit 0
mkdir -p "$1"
localedef -i tr_TR -f UTF-8 "$1/tr_TR.UTF-8" || [ -f "$1/tr_TR.UTF-8/LC_NUMERIC" ]
