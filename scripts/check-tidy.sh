#!/usr/bin/env bash
# Lints what is shipped and the samples; .clang-tidy says with what, and every finding is an error.
# Tests, benchmarks and fuzzers cost three times as long; they are linted as well with
#
#     scripts/check-tidy.sh --all
source "$(dirname "$0")/common.sh"

ensure_packages "${build_packages[@]}" "${test_packages[@]}" \
    clang-14 clang-tidy-14 libclang-rt-14-dev python3
cmake --preset tidy
# Sources may include what moc makes of them. Asking the build for it would compile the libraries as well.
find build/tidy -name AutogenInfo.json -print0 |
    xargs -0 -P "$jobs" -I{} cmake -E cmake_autogen {} Debug
folders=("${shipped[@]}" samples)
[ "${1:-}" != --all ] || folders=()
python3 scripts/tidy.py build/tidy "$jobs" "${folders[@]}"
