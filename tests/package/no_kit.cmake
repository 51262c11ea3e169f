# Installs the library, without the kit, and configures a project that asks for the kit.

file(REMOVE_RECURSE "${TEST_DIR}")
foreach(component library development)
  execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BINARY_DIR}" --prefix "${TEST_DIR}/prefix"
    --component ${component} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
execute_process(COMMAND "${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${TEST_DIR}/build" -G "${GENERATOR}"
  -D "CMAKE_CXX_COMPILER=${COMPILER}" -D "CMAKE_PREFIX_PATH=${TEST_DIR}/prefix")
