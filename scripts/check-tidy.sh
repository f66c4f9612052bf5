#!/usr/bin/env bash
# Lints what is shipped, the samples and their driver; .clang-tidy lists the checks, and every finding is an error.
# Tests, benchmarks and fuzzers take three times as long; lint them as well with
#
#     scripts/check-tidy.sh --all
source "$(dirname "$0")/common.sh"

ensure_packages "${build_packages[@]}" "${test_packages[@]}" \
    clang-14 clang-tidy-14 libclang-rt-14-dev python3
# Those of removed targets name files that are gone.
[ ! -d build/tidy ] || find build/tidy -name AutogenInfo.json -delete
cmake --preset tidy
# Sources may include moc's output. A full build would make it too, but compiles the libraries as well.
find build/tidy -name AutogenInfo.json -print0 |
    xargs -0 -P "$jobs" -I{} cmake -E cmake_autogen {} Debug

folders=("${shipped[@]}" driver samples)
[ "${1:-}" != --all ] || folders+=(bench fuzz tests)
for folder in "${folders[@]}"; do
    grep -qF "\"file\": \"$PWD/$folder/" build/tidy/compile_commands.json ||
        die "The compile database has no source in $folder/."
done
run-clang-tidy-14 -quiet -j "$jobs" -p build/tidy "^$PWD/($(IFS='|' && echo "${folders[*]}"))/"
