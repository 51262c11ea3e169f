# Writes PAGE: the manual page of the program NAME, from what COMMAND says with --help. See HalvexManPage.cmake.

set(ENV{QT_QPA_PLATFORM} offscreen) # the viewer's help needs no screen
get_filename_component(folder "${PAGE}" DIRECTORY)
set(ENV{XDG_RUNTIME_DIR} "${folder}")
set(ENV{LC_ALL} C.UTF-8)
set(ENV{COLUMNS} 78)
execute_process(COMMAND ${COMMAND} --help OUTPUT_VARIABLE help COMMAND_ERROR_IS_FATAL ANY)

# The line with the call goes to the synopsis; the rest is shown as it is.
if(NOT help MATCHES "^Usage: ([^\n]*)\n+(.*)$")
  message(FATAL_ERROR "What ${NAME} --help says does not begin with its usage:\n${help}")
endif()
set(usage "${CMAKE_MATCH_1}")
set(text "${CMAKE_MATCH_2}")
string(REGEX REPLACE "^[^ ]+" "${NAME}" usage "${usage}")
foreach(part usage text NAME)
  string(REPLACE "\\" "\\e" ${part} "${${part}}")
  string(REPLACE "-" "\\-" ${part} "${${part}}")
endforeach()
string(REGEX REPLACE "(^|\n)([.'])" "\\1\\\\&\\2" text "${text}") # these would be requests
string(TOUPPER "${NAME}" title)
file(WRITE "${PAGE}" ".TH ${title} 1 \"\" \"${NAME} ${VERSION}\" \"User Commands\"
.SH NAME
${NAME} \\- ${SUMMARY}
.SH SYNOPSIS
${usage}
.SH DESCRIPTION
.nf
${text}
.fi
")
