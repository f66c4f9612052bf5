#!/usr/bin/env bash
# Proves under Wine what scripts/build-windows.sh has made: installs and uninstalls the program, runs the
# test suites and takes the guided tour, whose pictures are kept in build/mingw/tour. Wine's prefix is
# temporary. docs/windows.md names the tests that fail because of Wine; they are left out, all others
# must pass.
source "$(dirname "$0")/common.sh"

scripts/build-windows.sh
ensure_packages "${test_packages[@]}"
make_scratch
source scripts/wine.sh
source scripts/windows-installer.sh

installer=build/mingw/packages/gaugewright-$(version)-win64.exe
suites=(document package document_console commands telemetry widgets canvas dialogs app app_startup
    review cli driver sample_recording app_replay)
# Where the editor looks for the maker's library.
reader=$WINEPREFIX/drive_c/temp/MathLabXRK/DLL-2017/MatLabXRK-2017-64-ReleaseU.dll
export CMAKE_PREFIX_PATH=$windows_toolkit/prefix

# The files that were installed, and the program that starts with nothing else.
expect_working_program() {
    (cd "$installed" && find . -type f ! -name Uninstall.exe | sed 's|^\./||' | LC_ALL=C sort) |
        diff packaging/windows/files.txt - || die "Other files were installed"
    starts_and_closes "$installed/bin/gaugewright.exe"
    local library
    for library in qwindows qwindowsvistastyle Qt6Core libstdc++-6; do
        grep -qi "Gaugewright.*\\\\$library\.dll" "$work/loaded" ||
            die "$library.dll was not loaded from the installation"
    done
}

# wine_failures SUITE: filter that leaves out the tests which docs/windows.md lists for the suite.
wine_failures() {
    sed -n "s/^| $1 | \`\([^\`]*\)\` |.*/\1/p" docs/windows.md | paste -sd:
}

prove_suites() {
    local property_tests=ON suite failed=() targets=()
    [ -e "$windows_toolkit/rapidcheck.done" ] || property_tests=OFF
    cmake --preset mingw -DGAUGEWRIGHT_SAMPLES=ON -DBUILD_TESTING=ON \
        -DGAUGEWRIGHT_PROPERTY_TESTS=$property_tests
    for suite in "${suites[@]}"; do targets+=(--target "${suite}_tests"); done
    cmake --build --preset mingw -j "$jobs" "${targets[@]}"
    mkdir -p "$(dirname "$reader")"
    for suite in "${suites[@]}"; do
        say "Suite $suite"
        [ "$suite" != app_replay ] || cp build/mingw/tests/libscripted_reader.dll "$reader"
        "${as_user[@]}" timeout 1800 \
            wine "$(find build/mingw/tests -name "${suite}_tests.exe")" \
            --gtest_filter="-$(wine_failures "$suite")" </dev/null >"build/mingw/$suite.log" 2>&1 ||
            failed+=("$suite")
        grep -aE '^\[  (PASSED|SKIPPED|FAILED) ' "build/mingw/$suite.log" || true
    done
    [ ${#failed[@]} -eq 0 ] || die "Suites that fail under Wine: ${failed[*]}"
}

# The tour opens package and recording under a name that no single code page of Windows has, and the
# trace of the channels is on.
prove_tour() {
    say "Guided tour"
    local name='Größe 日本' samples trace=$WINEPREFIX/drive_c/temp/Gaugewright/channel_debug.txt
    samples=$WINEPREFIX/drive_c/$name
    mkdir -p "$samples" "$(dirname "$trace")"
    cp build/mingw/samples/*.zconf2 build/mingw/samples/*.xrk "$samples"
    cp build/mingw/bin/reader/MatLabXRK-2017-64-ReleaseU.dll "$reader"
    rm -rf build/mingw/tour
    "${as_user[@]}" timeout 600 \
        wine build/mingw/bin/gaugewright_tour.exe --samples "C:\\$name" build/mingw/tour </dev/null
    grep -q '^OVERLAY: "RPM"  ->  XRK: ' "$trace" || die "The replay has written no trace: $trace"
}

show_display
say "Installing, starting, uninstalling"
check_installer "$installer" expect_working_program
use_build_libraries
use_fonts
prove_suites
prove_tour
say "The editor for Windows installs, runs, passes its tests and goes without a trace."
echo "Pictures of the tour: $PWD/build/mingw/tour"
wine --version
sort -u "$windows_toolkit/versions.txt"
