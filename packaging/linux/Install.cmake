# The layout on Linux. The programs look for icon and reader library next to their executables, so all are
# in a private folder, and the folder of commands holds links. Desktops pick up the shared files by themselves:
# the distribution's triggers refresh their caches.
include(GNUInstallDirs)

set(private_dir "${CMAKE_INSTALL_LIBEXECDIR}/gaugewright")
set(doc_dir "${CMAKE_INSTALL_DATADIR}/doc/gaugewright")
set(icon_dir "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
set(assets "${GAUGEWRIGHT_SOURCE_DIR}/assets")
set(made "${CMAKE_CURRENT_BINARY_DIR}")

# compressed(IN OUT): gzip without name and time, so that the same input makes the same package.
find_program(GZIP gzip REQUIRED)
mark_as_advanced(GZIP)
function(compressed in out)
  execute_process(COMMAND "${GZIP}" -9nc INPUT_FILE "${in}" OUTPUT_FILE "${out}"
    COMMAND_ERROR_IS_FATAL ANY)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${in}")
endfunction()

install(TARGETS gaugewright gaugewright-cli RUNTIME DESTINATION "${private_dir}")
install(FILES "${assets}/icon.png" DESTINATION "${private_dir}/assets")
file(RELATIVE_PATH link_target "${CMAKE_INSTALL_FULL_BINDIR}"
  "${CMAKE_INSTALL_FULL_LIBEXECDIR}/gaugewright")
install(CODE "
  set(bin \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
  file(MAKE_DIRECTORY \"\${bin}\")
  foreach(program gaugewright gaugewright-cli)
    file(CREATE_LINK \"${link_target}/\${program}\" \"\${bin}/\${program}\" SYMBOLIC)
  endforeach()")
install(FILES "${GAUGEWRIGHT_SOURCE_DIR}/cli/gaugewright-cli.schema.json"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/gaugewright")
install(FILES linux/gaugewright-cli.bash
  DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME gaugewright-cli)

install(FILES linux/gaugewright.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES linux/gaugewright.xml DESTINATION "${CMAKE_INSTALL_DATADIR}/mime/packages")
install(FILES "${assets}/icon.svg" DESTINATION "${icon_dir}/scalable/apps" RENAME gaugewright.svg)
install(FILES "${assets}/icon.png" DESTINATION "${icon_dir}/256x256/apps" RENAME gaugewright.png)
install(FILES linux/application-x-zconf2.svg DESTINATION "${icon_dir}/scalable/mimetypes")

configure_file(linux/gaugewright.metainfo.xml.in gaugewright.metainfo.xml @ONLY)
install(FILES "${made}/gaugewright.metainfo.xml" DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

foreach(page gaugewright.1 gaugewright-cli.1)
  configure_file(linux/${page}.in ${page} @ONLY)
  compressed("${made}/${page}" "${made}/${page}.gz")
  install(FILES "${made}/${page}.gz" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
endforeach()

execute_process(COMMAND date --utc --rfc-email "--date=${GAUGEWRIGHT_RELEASE_DATE}"
  OUTPUT_VARIABLE GAUGEWRIGHT_RELEASE_TIME OUTPUT_STRIP_TRAILING_WHITESPACE
  COMMAND_ERROR_IS_FATAL ANY)
configure_file(linux/changelog.in changelog @ONLY)
compressed("${made}/changelog" "${made}/changelog.gz")
install(FILES linux/copyright "${made}/changelog.gz" DESTINATION "${doc_dir}")
