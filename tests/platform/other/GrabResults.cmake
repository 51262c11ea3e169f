# Compiles what the kit for tests does with grab results against ours without one of its members, and with one of
# another type, each in turn. A platform may tell less of a frame, or tell it otherwise: the kit has no frames there, and
# compiles all the same.

set(stand_in "${PROJECT_SOURCE_DIR}/platform/CGrabResultPtr.h")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${stand_in}")
file(READ "${stand_in}" ours)
string(REPLACE ";" "<end>" ours "${ours}") # lists are parted by semicolons
# A type, the name, perhaps a value; and a comment.
string(REGEX MATCHALL "\n    [^\n/]+<end> +///<" members "${ours}")
list(LENGTH members count)
if(NOT count EQUAL 10)
  message(FATAL_ERROR "${stand_in} has ${count} members with a comment behind them, not 10")
endif()

foreach(member IN LISTS members)
  string(REGEX REPLACE "( = .*)?<end>.*$" "" name "${member}")
  string(REGEX REPLACE "^.* " "" name "${name}")
  string(REPLACE "${member}" "\n    ///<" lacking "${ours}")
  string(REPLACE "${member}" "\n    struct {} ${name}<end> ///<" other "${ours}")
  foreach(kind lacking other)
    set(target "${kind}_${name}")
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}")
    string(REPLACE "<end>" ";" header "${${kind}}")
    file(CONFIGURE OUTPUT "${folder}/Halvex/platform/CGrabResultPtr.h" CONTENT "${header}" @ONLY)
    add_library(${target} OBJECT "${PROJECT_SOURCE_DIR}/testing/Samples.cpp")
    set_target_properties(${target} PROPERTIES AUTOMOC OFF)
    target_include_directories(${target} BEFORE PRIVATE "${folder}")
    target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}")
    target_link_libraries(${target} PRIVATE Halvex)
  endforeach()
endforeach()
