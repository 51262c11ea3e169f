# halvex.spdx.json, an SPDX 2.3 bill of materials of everything that is installed: what each file of ours links, and
# what was compiled into it of libraries that are headers only, with the versions of Debian's packages.

set(programs Halvex)
foreach(target halvex-check HalvexHostModels halvex-host halvex-viewer)
  if(TARGET ${target})
    list(APPEND programs ${target})
  endif()
endforeach()
set(compiled_into_halvex-host libcli11-dev,rapidjson-dev,libvalijson-dev)
set(compiled_into_halvex-viewer rapidjson-dev,libvalijson-dev)

set(bill "${PROJECT_BINARY_DIR}/halvex.spdx.json")
set(script "${PROJECT_SOURCE_DIR}/cmake/HalvexWriteBillOfMaterials.cmake")
set(files "")
foreach(target IN LISTS programs)
  list(APPEND files "$<TARGET_FILE:${target}>,${compiled_into_${target}}")
endforeach()
add_custom_command(OUTPUT "${bill}"
  COMMAND "${CMAKE_COMMAND}" -D "BILL=${bill}" -D "VERSION=${PROJECT_VERSION}" -D "VENDOR=${HALVEX_VENDOR}"
    -D "LICENSE=${HALVEX_LICENSE}" -D "URL=${HALVEX_URL}" -D "READELF=${CMAKE_READELF}" -D "FILES=${files}" -P "${script}"
  DEPENDS ${programs} "${script}"
  VERBATIM)
add_custom_target(halvex-bill-of-materials ALL DEPENDS "${bill}")
install(FILES "${bill}" DESTINATION "${HALVEX_DOC_DIR}")
