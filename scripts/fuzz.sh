#!/usr/bin/env bash
# Runs every fuzz target for some seconds each (60 unless told otherwise) and fails when one of them
# finds anything:
#
#     scripts/fuzz.sh [SECONDS [LIBFUZZER-OPTION...]]
#
# Inputs found on the way are kept in build/fuzz/corpus and start the next run. An input that breaks
# a target is written to build/fuzz/findings; once the fault is mended, it moves to
# tests/fuzz_regression/TARGET, where the ordinary tests replay it.
source "$(dirname "$0")/common.sh"
seconds=${1:-60}
options=("${@:2}")

ensure_packages "${build_packages[@]}" "${test_packages[@]}" clang-14 libclang-rt-14-dev
build_preset fuzz

export QT_QPA_PLATFORM=offscreen
export LSAN_OPTIONS="suppressions=$PWD/cmake/lsan.supp:print_suppressions=0"
programs=build/fuzz/fuzz
findings=build/fuzz/findings
mkdir -p "$findings"
while read -r target; do
    corpus=build/fuzz/corpus/$target
    mkdir -p "$corpus"
    "$programs/${target}_replay" --write-seeds "$corpus"
    say "Fuzzing $target for $seconds seconds"
    "$programs/$target" -max_total_time="$seconds" -max_len=16384 -timeout=25 \
        -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$findings/$target-" \
        "${options[@]}" "$corpus" </dev/null 2>&1 |
        cat # a target may limit the size of files, and the output may go to one
done <"$programs/targets.txt"
