# The translations TRANSLATIONS_<language>.ts have every text of the folders SOURCES and no other: lupdate, run on copies,
# adds no entry and finds none that is no longer asked for, and each has its translation. They are embedded in the format
# that Qt 5.12 reads.

set(copies "")
get_filename_component(name "${TRANSLATIONS}" NAME)
foreach(language en ja ko zh)
  configure_file("${SOURCE_DIR}/${TRANSLATIONS}_${language}.ts" "${BINARY_DIR}" COPYONLY)
  list(APPEND copies "${BINARY_DIR}/${name}_${language}.ts")
endforeach()
execute_process(COMMAND "${LUPDATE}" -silent -locations none -I . -I "${INCLUDE_DIR}" ${SOURCES} -ts ${copies}
  WORKING_DIRECTORY "${SOURCE_DIR}" COMMAND_ERROR_IS_FATAL ANY)

foreach(copy IN LISTS copies)
  file(READ "${copy}" content)
  string(REGEX MATCHALL "<message.*</message>" messages "${content}")
  if(NOT messages)
    message(SEND_ERROR "${copy} has no text at all")
  endif()
  if(content MATCHES "type=\"(unfinished|vanished|obsolete)\"|<translation></translation>|<translation/>|<numerusform></numerusform>")
    message(SEND_ERROR "${copy} is not complete:\n${content}")
  endif()
endforeach()

file(STRINGS "${RESOURCE_SOURCE}" versions REGEX "int version = ")
if(NOT versions OR versions MATCHES "version = [^2]")
  message(SEND_ERROR "${RESOURCE_SOURCE} is not of resource format 2:\n${versions}")
endif()
