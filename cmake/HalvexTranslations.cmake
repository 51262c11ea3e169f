# halvex_add_translations(<target> <.ts files>): compiles them and embeds them in the target as ":/translation/<name>.qm".

find_package(${HALVEX_QT} ${HALVEX_LEAST_QT} REQUIRED COMPONENTS LinguistTools)

function(halvex_add_translations target)
  cmake_language(CALL qt${HALVEX_QT_MAJOR}_add_translation qm_files ${ARGN})
  set(entries "")
  foreach(qm_file IN LISTS qm_files)
    get_filename_component(name "${qm_file}" NAME)
    string(APPEND entries "<file alias=\"${name}\">${qm_file}</file>\n")
  endforeach()
  set(qrc_file "${CMAKE_CURRENT_BINARY_DIR}/${target}_translations.qrc")
  file(CONFIGURE OUTPUT "${qrc_file}" @ONLY
    CONTENT "<RCC version=\"1.0\"><qresource prefix=\"/translation\">\n@entries@</qresource></RCC>\n")
  # Version 3, which a newer rcc writes unasked, is unknown to Qt 5.12.
  cmake_language(CALL qt${HALVEX_QT_MAJOR}_add_resources sources "${qrc_file}" OPTIONS --format-version 2)
  set_source_files_properties(${sources} PROPERTIES SKIP_AUTOGEN ON)
  target_sources(${target} PRIVATE ${sources})
endfunction()
