#!/usr/bin/env bash
# Takes the guided tour and renews the pictures of the user guide from it. Look at them before you
# commit them.
source "$(dirname "$0")/common.sh"

build_preset release --target gaugewright_tour
build/release/bin/gaugewright_tour build/release/tour
for picture in docs/images/*.png; do
    cp "build/release/tour/$(basename "$picture")" "$picture"
done
