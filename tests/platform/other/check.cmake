# HALVEX_PLATFORM_DIR puts another folder in the place of our stand-in: builds the library with it and looks for the
# other framework's mark in the symbols.

function(run)
  execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${BINARY_DIR}" -G "${GENERATOR}"
  -D "CMAKE_CXX_COMPILER=${COMPILER}" -D CMAKE_BUILD_TYPE=Release -D BUILD_TESTING=OFF -D HALVEX_BUILD_HOST=OFF
  -D "HALVEX_PLATFORM_DIR=${CMAKE_CURRENT_LIST_DIR}")
run("${CMAKE_COMMAND}" --build "${BINARY_DIR}")

execute_process(COMMAND "${NM}" -DC --defined-only "${BINARY_DIR}/plugins/libHalvex.so"
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
set(set_info "CNodeDataModel::setInfo\\(QSharedPointer<Core::AppCoreComponents::")
if(NOT symbols MATCHES "${set_info}OtherFramework::IBaseInfo>")
  message(FATAL_ERROR "The library was not compiled against the other framework")
endif()
