# HALVEX_PLATFORM_DIR puts another folder in the place of our stand-in: builds the library with it, and with a shipper's
# texts, and looks for the other framework's mark in the symbols. tst_ShippersTexts looks for the texts.

function(run)
  execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${BINARY_DIR}" -G "${GENERATOR}"
  -D "CMAKE_CXX_COMPILER=${COMPILER}" -D CMAKE_BUILD_TYPE=Release -D HALVEX_BUILD_TESTING=OFF -D HALVEX_BUILD_HOST=OFF
  -D CMAKE_UNITY_BUILD=ON # quicker
  -D "HALVEX_QT_MAJOR=${QT_MAJOR}"
  -D "HALVEX_PLATFORM_DIR=${CMAKE_CURRENT_LIST_DIR}"
  -D "HALVEX_PLUGIN_IID=com.example.other-host/2.0"
  -D "HALVEX_COPYRIGHT=© 2026 \"Größe\" \\ 카메라"
  -D "HALVEX_LICENSE=@${CMAKE_CURRENT_LIST_DIR}/license.txt"
  -D "HALVEX_URL=https://example.com/?a=1&b=[2]#c"
  -D "HALVEX_VENDOR=Example's $")
run("${CMAKE_COMMAND}" --build "${BINARY_DIR}")

execute_process(COMMAND "${NM}" -DC --defined-only "${BINARY_DIR}/plugins/libHalvex.so"
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
set(set_info "CNodeDataModel::setInfo\\(QSharedPointer<Core::AppCoreComponents::")
if(NOT symbols MATCHES "${set_info}OtherFramework::IBaseInfo>")
  message(FATAL_ERROR "The library was not compiled against the other framework")
endif()
