# Each component by itself brings what belongs to it, and all together bring every file that is installed.

file(REMOVE_RECURSE "${TEST_DIR}")

function(install_component component)
  execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BINARY_DIR}" --prefix "${TEST_DIR}/${component}"
    --component ${component} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(GLOB_RECURSE files RELATIVE "${TEST_DIR}/${component}" "${TEST_DIR}/${component}/*")
  set(files "${files}" PARENT_SCOPE)
  foreach(expected IN LISTS ARGN)
    set(of_this "${files}")
    list(FILTER of_this INCLUDE REGEX "^${expected}$")
    if(NOT of_this)
      message(SEND_ERROR "The component ${component} brings no ${expected}, but ${files}")
    endif()
  endforeach()
endfunction()

set(lib "lib[^/]*(/[^/]+)?")
set(library "${lib}/libHalvex\\.so\\.1")
set(development "include/Halvex/Halvex\\.h" "include/Halvex/platform/CId\\.h" "${lib}/libHalvex\\.so"
  "${lib}/cmake/Halvex/HalvexConfig\\.cmake" "${lib}/pkgconfig/halvex\\.pc" bin/halvex-new
  "share/man/man1/halvex-new\\.1" "share/doc/halvex/halvex\\.spdx\\.json")
set(testing "include/Halvex/testing/CheckModel\\.h" bin/halvex-check "share/man/man1/halvex-check\\.1")
set(models "${lib}/halvex/plugins/libHalvexHostModels\\.so" "${lib}/halvex/plugins/libHalvex\\.so")
set(host bin/halvex-host "share/man/man1/halvex-host\\.1" "share/halvex/schemas/chain\\.schema\\.json")
set(viewer bin/halvex-viewer "share/man/man1/halvex-viewer\\.1")
set(examples "share/doc/halvex/examples/smallest_graph/main\\.cpp")
set(manual "") # it is there if somebody made it

set(by_component "")
foreach(component IN LISTS COMPONENTS)
  install_component(${component} ${${component}})
  list(APPEND by_component ${files})
endforeach()

execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BINARY_DIR}" --prefix "${TEST_DIR}/all"
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE all RELATIVE "${TEST_DIR}/all" "${TEST_DIR}/all/*")
list(LENGTH all count)
if(count LESS 40)
  message(SEND_ERROR "Only ${count} files are installed: ${all}")
endif()
list(REMOVE_ITEM all ${by_component})
if(all)
  message(SEND_ERROR "Installed with no component: ${all}")
endif()
set(twice "${by_component}")
list(REMOVE_DUPLICATES by_component)
list(LENGTH twice count_twice)
list(LENGTH by_component count_once)
if(NOT count_twice EQUAL count_once)
  message(SEND_ERROR "Something is installed by two components")
endif()
