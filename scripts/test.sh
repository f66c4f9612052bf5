#!/usr/bin/env bash
# Installs what is missing, builds the debug preset and runs every test.
source "$(dirname "$0")/common.sh"

ensure_packages "${build_packages[@]}" "${test_packages[@]}"
build_preset debug
test_preset debug
test_summary debug
