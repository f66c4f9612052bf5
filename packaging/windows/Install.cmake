# The layout on Windows: the editor, its icon beside it, and every library that Windows does not bring.

install(FILES "${GAUGEWRIGHT_SOURCE_DIR}/assets/icon.png" DESTINATION bin/assets)
install(FILES "${GAUGEWRIGHT_SOURCE_DIR}/LICENSE" "${GAUGEWRIGHT_SOURCE_DIR}/CHANGELOG.md"
  DESTINATION .)

# The libraries that the program links, wherever they came from. Those of the system stay out.
set(library_dirs ${CMAKE_PREFIX_PATH} $ENV{CMAKE_PREFIX_PATH})
list(TRANSFORM library_dirs APPEND /bin)
install(TARGETS gaugewright
  RUNTIME_DEPENDENCIES
    DIRECTORIES ${library_dirs} ${CMAKE_CXX_IMPLICIT_LINK_DIRECTORIES}
    PRE_EXCLUDE_REGEXES "^api-ms-" "^ext-ms-"
    POST_EXCLUDE_REGEXES ".*[\\/][Ss]ystem32[\\/].*"
  RUNTIME DESTINATION bin)

# Qt's plugins are loaded by name, so that no link leads to them.
if(CMAKE_CROSSCOMPILING)
  # Qt's own deployment tool only runs on Windows.
  install(IMPORTED_RUNTIME_ARTIFACTS Qt6::QWindowsIntegrationPlugin RUNTIME DESTINATION bin/platforms
    LIBRARY DESTINATION bin/platforms)
else()
  # The keyword was renamed when Linux was added.
  if(Qt6_VERSION VERSION_LESS 6.5)
    set(output FILENAME_VARIABLE)
  else()
    set(output OUTPUT_SCRIPT)
  endif()
  qt_generate_deploy_app_script(TARGET gaugewright ${output} deploy_script)
  install(SCRIPT "${deploy_script}")
endif()
