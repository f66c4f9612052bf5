#!/usr/bin/env bash
# Installs what is missing, builds the release preset, says where the sample packages are and starts
# the editor; without a display it takes the guided tour offscreen and says where its pictures are.
source "$(dirname "$0")/common.sh"

has_target() {
    ninja -C build/release -t query "$1" >/dev/null 2>&1
}

ensure_packages "${build_packages[@]}" "${test_packages[@]}"
build_preset release --target gaugewright

if has_target gaugewright_samples; then
    cmake --build --preset release -j "$jobs" --target gaugewright_samples
    say "Sample packages: $PWD/build/release/samples"
else
    say "This version builds no sample packages."
fi

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    say "Starting the editor"
    build/release/bin/gaugewright
elif has_target gaugewright_tour; then
    cmake --build --preset release -j "$jobs" --target gaugewright_tour
    say "No display: taking the guided tour offscreen"
    QT_QPA_PLATFORM=offscreen build/release/bin/gaugewright_tour build/release/tour
    say "Pictures of the tour: $PWD/build/release/tour"
else
    say "No display, and this version has no guided tour: the editor is $PWD/build/release/bin/gaugewright"
fi
