# halvex_add_plugin(<name> METADATA <file> SOURCES <files> [DESTINATION <folder>] [COMPONENT <component>] [NO_INSTALL])
#
#   find_package(Halvex 1.3 REQUIRED)
#   halvex_add_plugin(MyFilters METADATA MyFilters.json SOURCES CMyFiltersPlugin.cpp CMyFiltersPlugin.h)
#
# A plugin that links the library and brings models of its own: moc runs over its sources, its symbols are hidden, and it
# can be unloaded. METADATA is the JSON file that Q_PLUGIN_METADATA names, without its folder; of one that ends in ".in"
# the ending goes, and variables in it are replaced: "Version": "@PROJECT_VERSION@". The plugin is installed into
# lib/halvex/plugins, where a reference host of the same prefix looks for plugins, or into DESTINATION, unless with
# NO_INSTALL.

function(halvex_add_plugin name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "NO_INSTALL" "METADATA;DESTINATION;COMPONENT" "SOURCES")
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "halvex_add_plugin(${name}): nothing is known of '${arg_UNPARSED_ARGUMENTS}'; it takes METADATA, "
                        "SOURCES, DESTINATION, COMPONENT and NO_INSTALL")
  elseif(NOT arg_SOURCES)
    message(FATAL_ERROR "halvex_add_plugin(${name}): SOURCES are missing")
  elseif(NOT arg_METADATA)
    message(FATAL_ERROR "halvex_add_plugin(${name}): METADATA is missing, the JSON file that Q_PLUGIN_METADATA names")
  endif()

  set(metadata_folder "${CMAKE_CURRENT_BINARY_DIR}/${name}_metadata")
  halvex_write_plugin_metadata("${name}" "${arg_METADATA}" "${metadata_folder}")

  add_library(${name} MODULE ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES
    AUTOMOC ON
    CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_include_directories(${name} PRIVATE "${metadata_folder}") # where moc looks for it
  # A file with one unique symbol is never unloaded.
  target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
  target_link_libraries(${name} PRIVATE Halvex::Halvex)

  if(NOT arg_NO_INSTALL)
    halvex_install_plugin("${name}" "${arg_DESTINATION}" "${arg_COMPONENT}")
  endif()
endfunction()

function(halvex_install_plugin name destination component)
  include(GNUInstallDirs)
  if(NOT destination)
    set(destination "${CMAKE_INSTALL_LIBDIR}/halvex/plugins")
  endif()
  if(NOT component)
    set(component ${name})
  endif()
  if(NOT IS_ABSOLUTE "${destination}")
    # Where the library lies in the same prefix, which may then be moved.
    file(RELATIVE_PATH libraries "/${destination}" "/${CMAKE_INSTALL_LIBDIR}")
    set_target_properties(${name} PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries}")
  endif()
  install(TARGETS ${name} LIBRARY DESTINATION "${destination}" COMPONENT ${component})
endfunction()

# What is wrong with it is told now: moc would say less, and a host not much more than that it is no plugin.
function(halvex_write_plugin_metadata name file folder)
  get_filename_component(file "${file}" ABSOLUTE)
  if(NOT EXISTS "${file}")
    message(FATAL_ERROR "halvex_add_plugin(${name}): there is no file ${file}")
  endif()
  get_filename_component(written "${file}" NAME)
  if(written MATCHES "\\.in$")
    string(REGEX REPLACE "\\.in$" "" written "${written}")
    configure_file("${file}" "${folder}/${written}" @ONLY)
  else()
    configure_file("${file}" "${folder}/${written}" COPYONLY)
  endif()

  file(READ "${folder}/${written}" json)
  foreach(key Name Version)
    string(JSON value ERROR_VARIABLE error GET "${json}" ${key})
    if(error)
      message(FATAL_ERROR "halvex_add_plugin(${name}): no \"${key}\" in ${file}: ${error}")
    endif()
  endforeach()
endfunction()
