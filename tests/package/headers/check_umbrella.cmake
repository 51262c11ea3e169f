# Every line of HEADERS is among the DEPENDENCIES that the compiler found.

file(READ "${DEPENDENCIES}" dependencies)
file(STRINGS "${HEADERS}" headers)
if(NOT headers)
  message(FATAL_ERROR "${HEADERS} names no header")
endif()
foreach(header IN LISTS headers)
  string(FIND "${dependencies}" "/include/${header}" position)
  if(position EQUAL -1)
    message(SEND_ERROR "<Halvex/Halvex.h> does not bring in ${header}")
  endif()
endforeach()
