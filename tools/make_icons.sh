#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Makes the icon in the sizes of the hicolor theme out of resources/desktop/org.zorel.Settings.svg (package librsvg2-bin).
#   tools/make_icons.sh [FOLDER]      default: resources/icons
set -euo pipefail
cd "$(dirname "$0")/.."
folder=${1:-resources/icons}
for size in 16 22 24 32 48 64 128 256 512; do
    mkdir -p "$folder/${size}x$size/apps"
    rsvg-convert --width $size --height $size resources/desktop/org.zorel.Settings.svg \
        --output "$folder/${size}x$size/apps/org.zorel.Settings.png"
done
