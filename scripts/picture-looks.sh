#!/usr/bin/env bash
# Takes the guided tour on light and dark desktops at scales of 1 to 2. Pictures go to build/release/looks.
source "$(dirname "$0")/common.sh"

build_preset release --target gaugewright_tour
for scale in 1 1.25 1.5 2; do
    for look in light dark; do
        say "A $look desktop at scale $scale"
        options=()
        [ "$look" = light ] || options=(--dark)
        QT_SCALE_FACTOR=$scale build/release/bin/gaugewright_tour "${options[@]}" \
            "build/release/looks/$look-$scale"
    done
done
