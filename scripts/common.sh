# shellcheck shell=bash
# What the scripts of this folder share; sourced, never run. Moves to the root of the repository.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=scripts/packages.sh
source scripts/packages.sh

jobs=$(nproc)
# The folders whose sources are shipped. paths/ has only a header.
# shellcheck disable=SC2034 # used by the scripts that source this one
shipped=(app canvas cli dialogs document review telemetry widgets)
# Libraries for Windows that scripts/windows-toolkit.sh makes once, outside the tree.
# shellcheck disable=SC2034 # used by the scripts for Windows
windows_toolkit=${XDG_CACHE_HOME:-$HOME/.cache}/gaugewright-windows

# say TEXT: a heading between the outputs of the tools.
say() {
    printf '\n=== %s\n' "$*"
}

# die TEXT: says why on standard error and gives up.
die() {
    printf '%s\n' "$*" >&2
    exit 1
}

is_installed() {
    [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# ensure_packages NAME...: installs those that are missing; touches nothing and needs neither root nor
# network when all are there. Elsewhere than on Debian it leaves the set-up to whoever runs it.
ensure_packages() {
    if ! command -v apt-get >/dev/null; then
        echo "No apt-get here: taking for granted that the equivalents of these are installed: $*"
        return
    fi
    local name missing=()
    for name in "$@"; do
        is_installed "$name" || missing+=("$name")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    local apt=(env DEBIAN_FRONTEND=noninteractive apt-get -q -y)
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || die "Missing, and no sudo to install them with: ${missing[*]}"
        apt=(sudo "${apt[@]}")
    fi
    say "Installing ${missing[*]}"
    "${apt[@]}" update </dev/null
    "${apt[@]}" install --no-install-recommends "${missing[@]}" </dev/null
}

# make_scratch: sets work to a folder that is removed when the script ends. The Windows emulator keeps
# its files there as well, shows nothing, adds nothing to the menus of this desktop and does without the
# parts that it offers to download.
work=
make_scratch() {
    work=$(mktemp -d)
    export WINEPREFIX=$work/wine WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
    unset DISPLAY WAYLAND_DISPLAY
    trap remove_scratch EXIT
}

remove_scratch() {
    # The emulator's server outlives its programs by some seconds and would write into the folder.
    if [ -d "$WINEPREFIX" ]; then wineserver -k -w || true; fi
    rm -rf "$work"
}

# use_ccache: lets builds that are configured from now on compile through ccache where there is one.
use_ccache() {
    if command -v ccache >/dev/null; then
        export CMAKE_CXX_COMPILER_LAUNCHER=ccache CMAKE_C_COMPILER_LAUNCHER=ccache
        export CCACHE_SLOPPINESS=pch_defines,time_macros # else nothing with precompiled headers is cached
    fi
}

# build_preset PRESET [CMAKE-BUILD-ARGUMENT...]: configures and builds.
build_preset() {
    local preset=$1
    shift
    use_ccache
    say "Building the $preset preset"
    cmake --preset "$preset"
    cmake --build --preset "$preset" -j "$jobs" "$@"
}

# test_preset PRESET [CTEST-ARGUMENT...]: runs the tests of a built preset and keeps the output for
# test_summary.
test_preset() {
    local preset=$1
    shift
    say "Testing the $preset preset"
    ctest --preset "$preset" -j "$jobs" "$@" </dev/null | tee "build/$preset/ctest.log"
}

# test_summary PRESET: the line in which ctest counts the tests of its last run. ctest itself may follow
# it with a list of the tests that were skipped.
test_summary() {
    grep 'tests passed' "build/$1/ctest.log"
}

# version: that of the project, from the one place where it stands.
version() {
    sed -n 's/^project(gaugewright VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt
}

# stays_open PROGRAM: starts a program without a display, and fails when it ends by itself.
stays_open() {
    local status=0
    QT_QPA_PLATFORM=offscreen timeout 5 "$@" </dev/null || status=$?
    [ "$status" -eq 124 ] || die "$* ended by itself, with status $status"
}
