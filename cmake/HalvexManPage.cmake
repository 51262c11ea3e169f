# halvex_install_man_page(<program> <component> <summary> COMMAND <command> DEPENDS <files>): a manual page of what the
# program says of itself when <command> --help is run. The summary is how the line that names the program goes on.

function(halvex_install_man_page program component summary)
  cmake_parse_arguments(PARSE_ARGV 3 arg "" "" "COMMAND;DEPENDS")
  set(page "${CMAKE_CURRENT_BINARY_DIR}/${program}.1")
  set(script "${PROJECT_SOURCE_DIR}/cmake/HalvexWriteManPage.cmake")
  add_custom_command(OUTPUT "${page}"
    COMMAND "${CMAKE_COMMAND}" -D "NAME=${program}" -D "SUMMARY=${summary}" -D "VERSION=${PROJECT_VERSION}"
      -D "COMMAND=${arg_COMMAND}" -D "PAGE=${page}" -P "${script}"
    DEPENDS ${arg_DEPENDS} "${script}"
    VERBATIM)
  add_custom_target(${program}-man-page ALL DEPENDS "${page}")
  install(FILES "${page}" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT ${component})
endfunction()
