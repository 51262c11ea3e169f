# What makes libHalvex.so a plugin: the metadata that hosts read before they load it, and its translations.
#
# Whoever ships the plugin sets these. A text of the form @<file> stands for what is in that file, which is the way for
# texts of several lines.

set(HALVEX_PLUGIN_IID "org.example.core.plugin" CACHE STRING "Interface identifier of the host's plugins")
set(HALVEX_COPYRIGHT "Copyright 2026 The Halvex authors" CACHE STRING "Copyright notice, or @<file>")
set(HALVEX_LICENSE "LicenseRef-Halvex" CACHE STRING "Licence text, or @<file>")
set(HALVEX_URL "https://example.org/halvex" CACHE STRING "The vendor's web address, or @<file>")
set(HALVEX_VENDOR "The Halvex authors" CACHE STRING "The vendor's name, or @<file>")

if(NOT HALVEX_PLUGIN_IID MATCHES "^[A-Za-z0-9_./-]+$")
  message(FATAL_ERROR "HALVEX_PLUGIN_IID is no interface identifier: ${HALVEX_PLUGIN_IID}")
endif()

# halvex_json_string(<result> <variable>): the text in the variable as JSON writes it, with its quotation marks.
function(halvex_json_string result variable)
  set(text "${${variable}}")
  if(text MATCHES "\n")
    message(FATAL_ERROR "CMake's cache would cut ${variable} at its first line: give the text in a file, @<file>")
  elseif(text MATCHES "^@")
    string(SUBSTRING "${text}" 1 -1 file)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    file(READ "${file}" text)
  endif()
  string(REPLACE "\\" "\\\\" text "${text}")
  string(REPLACE "\"" "\\\"" text "${text}")
  foreach(code RANGE 1 31)
    string(ASCII ${code} character)
    math(EXPR escape "0x10000 + ${code}" OUTPUT_FORMAT HEXADECIMAL)
    string(REGEX REPLACE "^0x1" "\\\\u" escape "${escape}")
    string(REPLACE "${character}" "${escape}" text "${text}")
  endforeach()
  set(${result} "\"${text}\"" PARENT_SCOPE)
endfunction()

function(halvex_write_metadata)
  halvex_json_string(copyright HALVEX_COPYRIGHT)
  halvex_json_string(license HALVEX_LICENSE)
  halvex_json_string(url HALVEX_URL)
  halvex_json_string(vendor HALVEX_VENDOR)
  configure_file(service/Halvex.json.in "${HALVEX_GENERATED_DIR}/Halvex.json" @ONLY)
endfunction()
halvex_write_metadata()

# Everybody who has to do with the same host needs the identifier: the host itself, and other plugins for it.
target_compile_definitions(HalvexInterface INTERFACE "HALVEX_PLUGIN_IID=\"${HALVEX_PLUGIN_IID}\"")
target_compile_definitions(Halvex PRIVATE
  QT_NO_VERSION_TAGGING) # or the file would ask for the very Qt it was built with

halvex_add_translations(Halvex
  service/translations/Halvex_en.ts
  service/translations/Halvex_ja.ts
  service/translations/Halvex_ko.ts
  service/translations/Halvex_zh.ts)
