# Resources of Windows programs. Elsewhere both functions do nothing.

set(GAUGEWRIGHT_WINDOWS_DIR "${CMAKE_CURRENT_LIST_DIR}/../packaging/windows")

# gaugewright_manifest(TARGET): gives a program the UTF-8 code page and long paths. Tests need it as
# much as the editor does.
function(gaugewright_manifest target)
  set(manifest "${GAUGEWRIGHT_WINDOWS_DIR}/utf8.manifest")
  if(MSVC)
    target_sources(${target} PRIVATE "${manifest}") # CMake merges it into the linker's own
  elseif(WIN32)
    set(resource "${CMAKE_CURRENT_BINARY_DIR}/manifest.rc")
    configure_file("${GAUGEWRIGHT_WINDOWS_DIR}/manifest.rc.in" "${resource}" @ONLY)
    target_sources(${target} PRIVATE "${resource}")
    set_source_files_properties("${resource}" PROPERTIES OBJECT_DEPENDS "${manifest}")
  endif()
endfunction()

# gaugewright_icon_and_version(TARGET): what the Explorer shows of the editor and of packages.
function(gaugewright_icon_and_version target)
  if(WIN32)
    set(icon "${GAUGEWRIGHT_WINDOWS_DIR}/gaugewright.ico")
    set(package_icon "${GAUGEWRIGHT_WINDOWS_DIR}/zconf2.ico")
    set(resource "${CMAKE_CURRENT_BINARY_DIR}/gaugewright.rc")
    configure_file("${GAUGEWRIGHT_WINDOWS_DIR}/gaugewright.rc.in" "${resource}" @ONLY)
    target_sources(${target} PRIVATE "${resource}")
    set_source_files_properties("${resource}" PROPERTIES
      OBJECT_DEPENDS "${icon};${package_icon}")
  endif()
endfunction()
