# halvex_install_man_page(<program> <component> <summary> COMMAND <command> DEPENDS <files>): a manual page of what the
# program says of itself when <command> --help is run. The summary is how the line that names the program goes on.
#
# halvex_install_man_page(<program> <component> MAN_PAGE <command> DEPENDS <files>): the page that <command> prints.

function(halvex_install_man_page program component)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "COMMAND;MAN_PAGE;DEPENDS")
  set(page "${CMAKE_CURRENT_BINARY_DIR}/${program}.1")
  if(arg_COMMAND)
    set(script "${PROJECT_SOURCE_DIR}/cmake/HalvexWriteManPage.cmake")
    list(APPEND arg_DEPENDS "${script}")
    set(writes_page "${CMAKE_COMMAND}" -D "NAME=${program}" -D "SUMMARY=${arg_UNPARSED_ARGUMENTS}"
      -D "VERSION=${PROJECT_VERSION}" -D "COMMAND=${arg_COMMAND}" -D "PAGE=${page}" -P "${script}")
  else()
    set(writes_page ${arg_MAN_PAGE} > "${page}")
  endif()
  add_custom_command(OUTPUT "${page}"
    COMMAND ${writes_page}
    DEPENDS ${arg_DEPENDS}
    VERBATIM)
  add_custom_target(${program}-man-page ALL DEPENDS "${page}")
  install(FILES "${page}" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1" COMPONENT ${component})
endfunction()
