# The packages themselves; the presets say which are made where.

set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_NAME gaugewright)
set(CPACK_PACKAGE_VENDOR Orlenvik)
set(CPACK_PACKAGE_CONTACT "Orlenvik <maintainers@gaugewright.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION_FILE "${CMAKE_CURRENT_LIST_DIR}/description.txt")
set(CPACK_RESOURCE_FILE_LICENSE "${GAUGEWRIGHT_SOURCE_DIR}/LICENSE")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/packages")
set(CPACK_PACKAGE_INSTALL_DIRECTORY Gaugewright)
set(CPACK_PACKAGE_EXECUTABLES gaugewright Gaugewright)
set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 0)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION editors)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_NSIS_DISPLAY_NAME Gaugewright)
set(CPACK_NSIS_PACKAGE_NAME Gaugewright)
set(CPACK_NSIS_MUI_ICON "${CMAKE_CURRENT_LIST_DIR}/windows/gaugewright.ico")
set(CPACK_NSIS_MUI_UNIICON "${CPACK_NSIS_MUI_ICON}")
set(CPACK_NSIS_INSTALLED_ICON_NAME "bin\\gaugewright.exe")
set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL ON)
set(CPACK_NSIS_DEFINES "!include \"${CMAKE_CURRENT_LIST_DIR}/windows/file-type.nsh\"")
set(CPACK_NSIS_EXTRA_INSTALL_COMMANDS "!insertmacro RegisterFileType")
set(CPACK_NSIS_EXTRA_UNINSTALL_COMMANDS "!insertmacro UnregisterFileType")
# The last commands of the uninstaller that can be given: the key below is gone by then.
set(CPACK_NSIS_DELETE_ICONS_EXTRA
  "DeleteRegKey /ifempty SHCTX \"Software\\${CPACK_PACKAGE_VENDOR}\"")
if(CMAKE_CROSSCOMPILING)
  # Debian's makensis makes 64-bit installers too, which run without 32-bit support.
  string(PREPEND CPACK_NSIS_DEFINES "Target amd64-unicode\n")
endif()

include(CPack)
