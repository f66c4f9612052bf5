#!/usr/bin/env bash
# Installs what is missing, builds the release preset, says where the sample packages are and starts
# the editor; without a display it takes the guided tour offscreen and says where its pictures are.
source "$(dirname "$0")/common.sh"

ensure_packages "${build_packages[@]}" "${test_packages[@]}"
build_preset release --target gaugewright gaugewright_samples gaugewright_tour
say "Sample packages: $PWD/build/release/samples"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    say "Starting the editor"
    build/release/bin/gaugewright
else
    say "No display: taking the guided tour offscreen"
    QT_QPA_PLATFORM=offscreen build/release/bin/gaugewright_tour build/release/tour
    say "Pictures of the tour: $PWD/build/release/tour"
fi
