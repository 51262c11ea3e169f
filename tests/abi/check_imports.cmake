# Every Qt symbol that LIBRARY imports was there in Qt 5.12, by the distribution's own list of the symbols of Qt 5 Core
# and of the release that each came with.

find_program(DPKG_QUERY dpkg-query)
if(DPKG_QUERY)
  execute_process(COMMAND "${DPKG_QUERY}" --control-path libqt5core5a symbols
    OUTPUT_VARIABLE list OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()
if(NOT list)
  message("Skipped: no list of symbols, for want of dpkg or the package libqt5core5a")
  return()
endif()

execute_process(COMMAND "${NM}" -D --undefined-only "${LIBRARY}" OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^ \n]+@Qt_5[^ \n]*" imports "${symbols}")
if(NOT imports)
  message(FATAL_ERROR "No imported symbol of Qt 5 in\n${symbols}")
endif()

# A line is " <symbol>@<version of the interface> <release> ...".
file(READ "${list}" known)
foreach(import IN LISTS imports)
  string(FIND "${known}" "\n ${import} " position)
  if(position EQUAL -1)
    message(SEND_ERROR "Unknown to the distribution: ${import}")
    continue()
  endif()
  string(SUBSTRING "${known}" ${position} 1000 line)
  string(REGEX MATCH "^\n [^ ]+ ([0-9.]+)" line "${line}")
  if(CMAKE_MATCH_1 VERSION_GREATER_EQUAL 5.13)
    message(SEND_ERROR "Newer than Qt 5.12, from ${CMAKE_MATCH_1}: ${import}")
  elseif(import MATCHES "PRIVATE_API|qt_version_tag")
    message(SEND_ERROR "Tied to one release of Qt: ${import}")
  endif()
endforeach()
list(LENGTH imports count)
message("${count} imported symbols of Qt 5 Core")
