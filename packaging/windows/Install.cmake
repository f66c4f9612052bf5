# The layout on Windows: the editor, its icon, and every library and plugin that Windows does not bring.
# scripts/build-windows.sh compares what mingw packs with packaging/windows/files.txt.

install(FILES "${GAUGEWRIGHT_SOURCE_DIR}/assets/icon.png" DESTINATION bin/assets)
install(FILES "${GAUGEWRIGHT_SOURCE_DIR}/LICENSE" "${GAUGEWRIGHT_SOURCE_DIR}/CHANGELOG.md"
  "${GAUGEWRIGHT_SOURCE_DIR}/cli/gaugewright-cli.schema.json" DESTINATION .)

# The licences of the libraries, from where each toolkit keeps them.
install(FILES windows/licenses.txt DESTINATION licenses RENAME README.txt)
if(VCPKG_INSTALLED_DIR)
  set(licences "${VCPKG_INSTALLED_DIR}/${VCPKG_TARGET_TRIPLET}/share")
  file(GLOB ports RELATIVE "${licences}" "${licences}/*/copyright")
  foreach(port IN LISTS ports)
    get_filename_component(name "${port}" DIRECTORY)
    install(FILES "${licences}/${port}" DESTINATION licenses RENAME "${name}.txt")
  endforeach()
else()
  find_path(GAUGEWRIGHT_LICENCES NAMES qt6-base.txt PATH_SUFFIXES share/licenses
    DOC "Folder with the licences of the libraries in the packages")
  mark_as_advanced(GAUGEWRIGHT_LICENCES)
  if(GAUGEWRIGHT_LICENCES)
    install(DIRECTORY "${GAUGEWRIGHT_LICENCES}/" DESTINATION licenses)
  else() # the build itself needs none
    install(CODE "message(FATAL_ERROR \"The licences of the libraries are missing\")")
  endif()
endif()

if(CMAKE_CROSSCOMPILING)
  # CMake finds no run-time dependencies when cross-compiling: they are listed.
  install(TARGETS gaugewright gaugewright-cli RUNTIME DESTINATION bin)
  install(IMPORTED_RUNTIME_ARTIFACTS Qt6::Core Qt6::Gui Qt6::Widgets RUNTIME DESTINATION bin)
  foreach(library libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
    execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${library}.dll"
      OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    if(NOT IS_ABSOLUTE "${path}") # where the compiler does not know it either
      find_file(${library}_dll ${library}.dll PATHS /usr/x86_64-w64-mingw32/lib
        NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
      set(path "${${library}_dll}")
    endif()
    install(FILES "${path}" DESTINATION bin)
  endforeach()
else()
  install(TARGETS gaugewright gaugewright-cli RUNTIME_DEPENDENCY_SET libraries RUNTIME DESTINATION bin)
  set(CMAKE_INSTALL_SYSTEM_RUNTIME_DESTINATION bin)
  include(InstallRequiredSystemLibraries) # those of the compiler
endif()

# install_plugin(FOLDER PLUGIN...): installs the first of these plugins that this Qt has. Qt loads plugins
# by name, so no link leads to them.
function(install_plugin folder)
  set(dependencies RUNTIME_DEPENDENCY_SET libraries)
  if(CMAKE_CROSSCOMPILING)
    set(dependencies)
  endif()
  foreach(plugin IN LISTS ARGN)
    if(TARGET Qt6::${plugin})
      install(IMPORTED_RUNTIME_ARTIFACTS Qt6::${plugin} ${dependencies}
        RUNTIME DESTINATION bin/${folder} LIBRARY DESTINATION bin/${folder})
      return()
    endif()
  endforeach()
  message(FATAL_ERROR "This Qt has no plugin ${ARGN}")
endfunction()

install_plugin(platforms QWindowsIntegrationPlugin)
install_plugin(styles QWindowsVistaStylePlugin QModernWindowsStylePlugin) # renamed in Qt 6.7
install_plugin(imageformats QGifPlugin)
install_plugin(imageformats QICOPlugin)
install_plugin(imageformats QJpegPlugin)

if(NOT CMAKE_CROSSCOMPILING)
  # The libraries that program and plugins link, wherever they came from. Those of the system stay out.
  set(library_dirs ${CMAKE_PREFIX_PATH} $ENV{CMAKE_PREFIX_PATH})
  list(TRANSFORM library_dirs APPEND /bin)
  install(RUNTIME_DEPENDENCY_SET libraries
    DIRECTORIES ${library_dirs} ${CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES} "$<TARGET_FILE_DIR:Qt6::Core>"
    PRE_EXCLUDE_REGEXES "^api-ms-" "^ext-ms-"
    POST_EXCLUDE_REGEXES ".*[\\/][Ss]ystem32[\\/].*"
    RUNTIME DESTINATION bin)
endif()
