#!/bin/sh
# Cross-compiles the reader library binding for Windows, together with its tests and the scripted
# reader they load, and runs them. Needs the Debian packages g++-mingw-w64-x86-64-posix, googletest
# and wine64 with wine; no Qt, no display. Everything is built in a folder that is removed again.
set -eu

root=$(cd "$(dirname "$0")/.." && pwd)
gtest=/usr/src/googletest/googletest
compiler=x86_64-w64-mingw32-g++-posix

for tool in "$compiler" wine; do
    command -v "$tool" >/dev/null || { echo "$0: $tool is not installed" >&2; exit 1; }
done

work=$(mktemp -d)
# Neither of the two optional parts that the emulator offers to download is needed.
export WINEPREFIX="$work/prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
finish() {
    # The emulator's server outlives the tests by some seconds and would write into the folder.
    if [ -d "$WINEPREFIX" ]; then wineserver -k -w || true; fi
    rm -rf "$work"
}
trap finish EXIT
cd "$work"

compile() {
    "$compiler" -std=c++20 -static -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror \
        -I"$root" -isystem "$gtest/include" "$@"
}

compile -isystem "$gtest" -c "$gtest/src/gtest-all.cc" -o gtest.o &
compile -shared "$root/tests/support/ScriptedReaderLibrary.cpp" -o scripted_reader.dll
compile -DSCRIPTED_READER_LIBRARY='"scripted_reader.dll"' -c "$root/tests/support/ScriptedReader.cpp"
compile -c "$root/tests/telemetry/XrkLibraryTest.cpp"
compile -c "$root/telemetry/XrkLibrary.cpp"
wait $!
compile ScriptedReader.o XrkLibraryTest.o XrkLibrary.o gtest.o "$gtest/src/gtest_main.cc" \
    -o binding_tests.exe

unset DISPLAY
wine binding_tests.exe
