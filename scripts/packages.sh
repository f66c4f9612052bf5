# shellcheck shell=bash disable=SC2034
# The Debian packages that the scripts of this folder need; sourced, never run. The names are the same
# on Debian 12 and Ubuntu 24.04. Only programs, headers and fonts are named: the runtime libraries
# behind them, whose names differ between the two, come in as dependencies.

# The program, the sample packages and the guided tour.
build_packages=(
    build-essential ccache cmake ninja-build pkg-config
    qt6-base-dev qt6-base-dev-tools libgl-dev
    libpugixml-dev libminizip-dev zlib1g-dev
    fonts-dejavu-core
)

# Tests and benchmarks. mount, e2fsprogs and strace serve the tests that inject faults, the last line
# those that exchange packages with other tools; jsonschema checks the answers of gaugewright-cli.
test_packages=(
    libgtest-dev libgmock-dev librapidcheck-dev libbenchmark-dev
    e2fsprogs mount python3-jsonschema strace
    libarchive-tools p7zip-full python3 unzip zip
)

# Format and lint, fuzzers, validators, the Windows cross-build and its emulator.
check_packages=(
    git clang-14 clang-format-14 clang-tidy-14 libclang-rt-14-dev shellcheck
    qt6-l10n-tools
    appstream desktop-file-utils dpkg-dev file libglib2.0-bin libxml2-utils lintian man-db
    shared-mime-info
    g++-mingw-w64-x86-64-posix icoutils librsvg2-bin nsis wine wine64
)

# The libraries for Windows and the program itself, cross-built.
toolkit_packages=(dpkg-dev g++-mingw-w64-x86-64-posix googletest nsis unzip)

# What the program for Windows runs in.
wine_packages=(wine wine64 xvfb openbox x11-utils)

# Line and branch coverage.
coverage_packages=(gcovr)

# A bare root file system to prove these very lists in.
bare_root_packages=(debootstrap)
