#!/usr/bin/env bash
# Takes the guided tour and copies its pictures to the user guide. Check them before committing.
source "$(dirname "$0")/common.sh"

build_preset release --target gaugewright_tour
QT_SCALE_FACTOR=1 build/release/bin/gaugewright_tour build/release/tour
for picture in docs/images/*.png; do
    cp "build/release/tour/$(basename "$picture")" "$picture"
done
