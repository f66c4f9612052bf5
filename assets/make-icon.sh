#!/usr/bin/env bash
# Makes from icon.svg the pictures that stand in the repository, so that building the editor needs no
# SVG renderer: icon.png and the icon of the Windows program. Run this after changing the drawing.
# Needs rsvg-convert (librsvg2-bin) and icotool (icoutils).
set -euo pipefail
cd "$(dirname "$0")"
rsvg-convert --width 256 --height 256 icon.svg --output icon.png

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
bitmaps=()
for size in 16 24 32 48 64 128; do
    rsvg-convert --width $size --height $size icon.svg --output "$work/$size.png"
    bitmaps+=("$work/$size.png")
done
icotool --create "${bitmaps[@]}" --raw=icon.png --output ../packaging/windows/gaugewright.ico
