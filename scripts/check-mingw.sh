#!/usr/bin/env bash
# Compiles every file of the editor for Windows with mingw, without making code of it: the branches for
# Windows are seen by a compiler, and its warnings are errors. There is no Qt for Windows on Debian, so
# the headers are those of this system's Qt, which adapt to the compiler.
source "$(dirname "$0")/common.sh"

ensure_packages "${build_packages[@]}" g++-mingw-w64-x86-64-posix
make_scratch

# Headers that stand among those of this system's C library, which must stay out of sight.
ln -s /usr/include/{pugixml.hpp,pugiconfig.hpp,zlib.h,zconf.h} /usr/include/minizip/*.h "$work"
mkdir "$work/app" # for what CMake generates
sed "s/@gaugewright_VERSION@/$(version)/" app/Version.h.in >"$work/app/Version.h"

qt=$(qmake6 -query QT_INSTALL_HEADERS)
compiler=(x86_64-w64-mingw32-g++-posix -std=c++20 -fsyntax-only
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
    -DQT_NO_CAST_FROM_ASCII -DQT_NO_KEYWORDS -DQT_USE_QSTRINGBUILDER
    -I. -isystem "$work" -isystem "$qt" -isystem "$qt"/QtCore -isystem "$qt"/QtGui -isystem "$qt"/QtWidgets)

say "Every file with mingw"
find "${shipped[@]}" -name '*.cpp' -print0 |
    xargs -0 -P "$jobs" -n 1 "${compiler[@]}"
echo "mingw finds no fault."
