# Finds the classic minizip (zlib's contrib) behind one imported target, Minizip::Minizip.
#
# Tried in this order: the CMake package that vcpkg ships, pkg-config (Debian, Fedora, MSYS2), then
# plain headers and library. <zip.h> exists in libzip as well, so the include directory always comes
# from what was found here, never from the compiler's default search path.

if(TARGET Minizip::Minizip)
  set(Minizip_FOUND TRUE)
  return()
endif()

find_package(unofficial-minizip CONFIG QUIET)
if(TARGET unofficial::minizip::minizip)
  add_library(Minizip::Minizip INTERFACE IMPORTED GLOBAL)
  target_link_libraries(Minizip::Minizip INTERFACE unofficial::minizip::minizip)
  get_target_property(_minizip_includes unofficial::minizip::minizip INTERFACE_INCLUDE_DIRECTORIES)
  find_path(Minizip_INCLUDE_DIR NAMES unzip.h PATH_SUFFIXES minizip HINTS ${_minizip_includes})
  target_include_directories(Minizip::Minizip INTERFACE "${Minizip_INCLUDE_DIR}")
  set(Minizip_FOUND TRUE)
  return()
endif()

find_package(PkgConfig QUIET)
if(PKG_CONFIG_FOUND)
  pkg_check_modules(PC_MINIZIP QUIET minizip)
endif()

find_path(Minizip_INCLUDE_DIR NAMES unzip.h ioapi.h
  HINTS ${PC_MINIZIP_INCLUDE_DIRS} PATH_SUFFIXES minizip)
find_library(Minizip_LIBRARY NAMES minizip libminizip HINTS ${PC_MINIZIP_LIBRARY_DIRS})

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Minizip REQUIRED_VARS Minizip_LIBRARY Minizip_INCLUDE_DIR
  VERSION_VAR PC_MINIZIP_VERSION)

if(Minizip_FOUND)
  find_package(ZLIB REQUIRED)
  add_library(Minizip::Minizip UNKNOWN IMPORTED GLOBAL)
  set_target_properties(Minizip::Minizip PROPERTIES
    IMPORTED_LOCATION "${Minizip_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${Minizip_INCLUDE_DIR}"
    INTERFACE_LINK_LIBRARIES ZLIB::ZLIB)
endif()
mark_as_advanced(Minizip_INCLUDE_DIR Minizip_LIBRARY)
