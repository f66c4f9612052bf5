#!/bin/sh
# Makes icon.png from icon.svg. The picture is kept in the repository, so that building the editor
# needs no SVG renderer; run this after changing the drawing. Needs rsvg-convert (librsvg2-bin).
set -eu
cd "$(dirname "$0")"
rsvg-convert --width 256 --height 256 icon.svg --output icon.png
