#!/usr/bin/env bash
# Builds the editor for Windows on Debian: the libraries (once, see scripts/windows-toolkit.sh), the
# program with its samples, the archive and the installer in build/mingw/packages. Checks what is in the
# archive and starts the program from it under Wine.
source "$(dirname "$0")/common.sh"

ensure_packages "${build_packages[@]}" "${toolkit_packages[@]}" "${wine_packages[@]}"
[ -e "$windows_toolkit/toolkit.done" ] || scripts/windows-toolkit.sh
make_scratch
source scripts/wine.sh

packages=build/mingw/packages
export CMAKE_PREFIX_PATH=$windows_toolkit/prefix

# The samples are made by programs for Windows, so building them needs Wine. Tests that an earlier run
# of scripts/prove-windows.sh has configured are no part of a package.
use_build_libraries
umask 022
rm -rf "$packages"
cmake --preset mingw -DGAUGEWRIGHT_SAMPLES=ON -DBUILD_TESTING=OFF
build_preset mingw
cpack --preset mingw

say "Checking the archive"
unzip -q -d "$work/archive" "$packages/gaugewright-$(version)-win64.zip"
(cd "$work/archive"/*/ && find . -type f | sed 's|^\./||' | LC_ALL=C sort) |
    diff packaging/windows/files.txt - || die "The archive does not hold what packaging/windows/files.txt names"

say "Starting the program from it"
show_display
starts_and_closes "$(echo "$work/archive"/*/bin/gaugewright.exe)"
say "Packages for Windows"
ls -l "$packages"/*.zip "$packages"/*.exe
