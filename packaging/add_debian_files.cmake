# What Debian wants in each package beside what is installed: copyright, changes, the reasons for what lintian is not to
# say. CPack runs it with the packages' files laid out and not yet packed.

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC) # or SOURCE_DATE_EPOCH
file(GLOB packages "${CPACK_TEMPORARY_DIRECTORY}/*")
foreach(package IN LISTS packages)
  get_filename_component(name "${package}" NAME)
  set(docs "${package}/usr/share/doc/${name}")
  file(READ "${CPACK_HALVEX_LICENCE}" licence)
  string(STRIP "${licence}" licence)
  string(REPLACE "\n\n" "\n.\n" licence "${licence}")
  string(REPLACE "\n" "\n " licence " ${licence}")
  configure_file("${CPACK_HALVEX_PACKAGING_DIR}/copyright.in" "${docs}/copyright" @ONLY)
  configure_file("${CPACK_HALVEX_PACKAGING_DIR}/changelog.in" "${docs}/changelog.Debian" @ONLY)
  configure_file("${CPACK_HALVEX_CHANGES}" "${docs}/changelog" COPYONLY)
  set(overrides "${package}/usr/share/lintian/overrides/${name}")
  configure_file("${CPACK_HALVEX_PACKAGING_DIR}/lintian-overrides.in" "${overrides}" @ONLY)
  if(name MATCHES "^libhalvex[0-9]")
    file(READ "${CPACK_HALVEX_PACKAGING_DIR}/library.lintian-overrides" more)
    file(APPEND "${overrides}" "${more}")
  endif()

  file(GLOB man_pages "${package}/usr/share/man/man1/*.1")
  execute_process(COMMAND gzip -9nf ${man_pages} "${docs}/changelog.Debian" "${docs}/changelog"
    COMMAND_ERROR_IS_FATAL ANY)
endforeach()
