# halvex_forward(<headers>): makes them available in the build tree as they are installed, as <Halvex/folder/name.h>.
#
# A small file under that name includes the header from its folder in the repository. So each header has one path, for
# "#pragma once", for messages and for the tools that count lines.

function(halvex_forward)
  foreach(header IN LISTS ARGN)
    file(CONFIGURE OUTPUT "${HALVEX_GENERATED_DIR}/Halvex/${header}" @ONLY
      CONTENT "#pragma once\n\n#include \"@PROJECT_SOURCE_DIR@/@header@\"\n")
  endforeach()
endfunction()
