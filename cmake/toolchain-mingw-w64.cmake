# Cross-builds for 64-bit Windows on Debian (g++-mingw-w64-x86-64-posix). Qt, pugixml and minizip for
# Windows come from CMAKE_PREFIX_PATH, a variable of CMake or of the environment. Qt's build tools come
# from the Qt of this machine, which has to be of the same version; QT_HOST_PATH names another one.
# With wine installed, CMake runs what it builds, so that tests can be discovered and run.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# Nothing but programs may be taken from this machine.
set(CMAKE_FIND_ROOT_PATH ${CMAKE_PREFIX_PATH} $ENV{CMAKE_PREFIX_PATH} /usr/x86_64-w64-mingw32)
set(ENV{PKG_CONFIG_LIBDIR} /usr/x86_64-w64-mingw32/lib/pkgconfig)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

if(NOT QT_HOST_PATH)
  set(QT_HOST_PATH /usr)
  set(QT_HOST_PATH_CMAKE_DIR "/usr/lib/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/cmake")
endif()

find_program(WINE NAMES wine wine64)
if(WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR "${WINE}")
endif()
mark_as_advanced(WINE)
