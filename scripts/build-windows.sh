#!/usr/bin/env bash
# Builds the editor for Windows on Debian: the libraries (once, see scripts/windows-toolkit.sh), the
# programs with their samples, the archive and the installer in build/mingw/packages. Checks which files
# are in the archive and runs both programs from it under Wine. With --no-packages only the programs and
# the sample packages are built; the checks are the same.
source "$(dirname "$0")/common.sh"

packages=build/mingw/packages
samples=build/mingw/samples
case ${1-} in
"") pack=true ;;
--no-packages) pack=false ;;
*) die "Usage: $0 [--no-packages]" ;;
esac

# Both set root to a folder with the files that users get.
make_packages() {
    cmake --build --preset mingw -j "$jobs"
    rm -rf "$packages"
    cpack --preset mingw
    unzip -q -d "$work/archive" "$packages/gaugewright-$(version)-win64.zip"
    root=$(echo "$work/archive"/*)
}

install_programs() {
    cmake --build --preset mingw -j "$jobs" \
        --target gaugewright gaugewright-cli gaugewright_samples
    root=$work/installed
    cmake --install build/mingw --prefix "$root" --strip >/dev/null
}

# cli ARGUMENT...: runs the command-line program with nothing but its own folder.
cli() {
    WINEPATH='' wine "$root/bin/gaugewright-cli.exe" "$@" </dev/null | tr -d '\r'
}

check_cli() {
    local package=$samples/club-racing.zconf2
    [ "$(cli --version)" = "gaugewright-cli $(version)" ] || die "gaugewright-cli reports no version"
    cli show "$package" >"$work/listing"
    grep -q '^page: "' "$work/listing" || die "gaugewright-cli shows no page: $(cat "$work/listing")"
    cli render "$package" --page 1 --output "$work/pictures"
    [ "$(head -c 4 "$work/pictures/page-1.png" | tail -c 3)" = PNG ] || die "gaugewright-cli paints no page"
}

ensure_packages "${build_packages[@]}" "${toolkit_packages[@]}" "${wine_packages[@]}"
[ -e "$windows_toolkit/toolkit.done" ] || scripts/windows-toolkit.sh
make_scratch
source scripts/wine.sh

# The samples are made by programs for Windows, so building them needs Wine and, for their texts, fonts.
# Tests that an earlier run of scripts/prove-windows.sh has configured are no part of a package.
export CMAKE_PREFIX_PATH=$windows_toolkit/prefix
use_build_libraries
use_fonts
use_ccache
umask 022
cmake --preset mingw -DGAUGEWRIGHT_SAMPLES=ON -DBUILD_TESTING=OFF
if "$pack"; then make_packages; else install_programs; fi

say "Checking the files"
(cd "$root" && find . -type f | sed 's|^\./||' | LC_ALL=C sort) |
    diff packaging/windows/files.txt - || die "These are not the files that packaging/windows/files.txt names"

say "Starting the programs"
show_display
check_cli
starts_and_closes "$root/bin/gaugewright.exe"
if "$pack"; then
    say "Packages for Windows"
    ls -l "$packages"/*.zip "$packages"/*.exe
fi
