# Compares the virtual tables of the classes in SOURCE with EXPECTED.
#
# EXPECTED holds one paragraph per class: "class <name>", then one line per slot. A destructor takes two slots, one for
# any object and one for objects on the heap. "this-<n>" begins the table of the second base, n bytes into the object.

execute_process(COMMAND "${COMPILER}" -std=c++17 -fPIC ${INCLUDES} -fsyntax-only "-fdump-lang-class=${DUMP}" "${SOURCE}"
  COMMAND_ERROR_IS_FATAL ANY)
file(READ "${DUMP}" dump)
file(READ "${EXPECTED}" expected)

set(actual "")
string(REGEX MATCHALL "class [^\n]+" classes "${expected}")
if(NOT classes)
  message(FATAL_ERROR "${EXPECTED} names no class")
endif()
foreach(class IN LISTS classes)
  string(REPLACE "class " "" class "${class}")
  # A table reaches from its heading to the empty line; its slots are lines of "<offset> <type of any function><entry>".
  string(FIND "${dump}" "Vtable for ${class}\n" start)
  if(start EQUAL -1)
    message(FATAL_ERROR "The compiler knows no virtual table of ${class}")
  endif()
  string(SUBSTRING "${dump}" ${start} -1 table)
  string(FIND "${table}" "\n\n" end)
  string(SUBSTRING "${table}" 0 ${end} table)
  string(REGEX MATCHALL "\n[0-9]+ +[^\n]+" slots "${table}")
  string(APPEND actual "class ${class}\n")
  foreach(slot IN LISTS slots)
    string(REGEX REPLACE "^\n[0-9]+ +(\\(int \\(\\*\\)\\(\\.\\.\\.\\)\\))?" "" slot "${slot}")
    if(slot MATCHES "^-[0-9]+$")
      string(APPEND actual "  this${slot}\n")
    elseif(NOT slot MATCHES "^(0|\\(& ?_ZTI.*)$") # not the primary table's start, nor type information
      string(APPEND actual "  ${slot}\n")
    endif()
  endforeach()
  string(APPEND actual "\n")
endforeach()

string(STRIP "${actual}" actual)
string(STRIP "${expected}" expected)
if(NOT actual STREQUAL expected)
  file(WRITE "${DUMP}.actual" "${actual}\n")
  execute_process(COMMAND diff -u "${EXPECTED}" "${DUMP}.actual")
  message(FATAL_ERROR "The virtual tables are not those of ${EXPECTED}")
endif()
