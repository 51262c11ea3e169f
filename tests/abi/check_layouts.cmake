# Compares the sizes and alignments of classes that SOURCE knows with EXPECTED, or with HALVEX_WRITE_LAYOUTS in the
# environment writes them there.
#
# A line of EXPECTED is "<class> <size> <alignment> <size as a base>", in bytes; the last one is where a subclass may
# put its own members. Of a class that is to be written the name is enough.

if(NOT PROCESSOR MATCHES "^(x86_64|AMD64)$" OR NOT QT_VERSION MATCHES "^5\\.15\\.")
  message("Skipped: the sizes are those of x86_64 with Qt 5.15, this is ${PROCESSOR} with Qt ${QT_VERSION}")
  return()
endif()

execute_process(COMMAND "${COMPILER}" -std=c++17 -fPIC ${INCLUDES} -fsyntax-only "-fdump-lang-class=${DUMP}" "${SOURCE}"
  COMMAND_ERROR_IS_FATAL ANY)
file(READ "${DUMP}" dump)
file(STRINGS "${EXPECTED}" expected)

set(actual "")
foreach(line IN LISTS expected)
  string(REGEX MATCH "^[^ ]+" class "${line}")
  string(FIND "${dump}" "\nClass ${class}\n" start)
  if(start EQUAL -1)
    message(FATAL_ERROR "The compiler knows no layout of ${class}")
  endif()
  string(SUBSTRING "${dump}" ${start} 1000 layout)
  if(NOT layout MATCHES "^\nClass [^\n]+\n +size=([0-9]+) align=([0-9]+)\n +base size=([0-9]+) ")
    message(FATAL_ERROR "Not in the form of a layout: ${layout}")
  endif()
  string(APPEND actual "${class} ${CMAKE_MATCH_1} ${CMAKE_MATCH_2} ${CMAKE_MATCH_3}\n")
endforeach()
if(actual STREQUAL "")
  message(FATAL_ERROR "${EXPECTED} names no class")
endif()

if(DEFINED ENV{HALVEX_WRITE_LAYOUTS})
  file(WRITE "${EXPECTED}" "${actual}")
  message("Written: ${EXPECTED}")
  return()
endif()
file(WRITE "${DUMP}.actual" "${actual}")
execute_process(COMMAND diff -u "${EXPECTED}" "${DUMP}.actual" RESULT_VARIABLE difference)
if(NOT difference EQUAL 0)
  message(FATAL_ERROR "The layouts are not those of ${EXPECTED}")
endif()
