#!/usr/bin/env bash
# Cross-compiles the reader library binding for Windows, together with its tests and the scripted
# reader they load, and runs them. Needs no Qt and no display. Everything is built in a folder that is
# removed again.
source "$(dirname "$0")/common.sh"

ensure_packages g++-mingw-w64-x86-64-posix libgtest-dev wine wine64
gtest=/usr/src/googletest/googletest # a dependency of libgtest-dev: there is no binary for Windows

make_scratch

compile() {
    x86_64-w64-mingw32-g++-posix -std=c++20 -static -Wall -Wextra -Wpedantic -Wshadow -Wconversion \
        -Werror -DSCRIPTED_READER_LIBRARY='"scripted_reader.dll"' -I. -isystem "$gtest/include" "$@"
}

say "Compiling the binding and its tests for Windows"
compile -isystem "$gtest" -c "$gtest/src/gtest-all.cc" -o "$work/gtest.o" &
compile -shared tests/support/ScriptedReaderLibrary.cpp -o "$work/scripted_reader.dll"
compile -c tests/support/ScriptedReader.cpp -o "$work/ScriptedReader.o"
compile -c tests/telemetry/XrkLibraryTest.cpp -o "$work/XrkLibraryTest.o"
compile -c telemetry/XrkLibrary.cpp -o "$work/XrkLibrary.o"
wait $!
compile "$work"/*.o "$gtest/src/gtest_main.cc" -o "$work/binding_tests.exe"

say "Running them"
cd "$work"
wine binding_tests.exe
