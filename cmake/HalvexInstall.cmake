# What is installed of the library: the component "library" is what programs load, "development" what compilers need.

install(TARGETS Halvex HalvexInterface EXPORT HalvexTargets
  LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT library NAMELINK_COMPONENT development
  RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT library)
foreach(header IN LISTS HALVEX_PUBLIC_HEADERS)
  get_filename_component(folder "${header}" DIRECTORY)
  install(FILES "${header}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/Halvex/${folder}")
endforeach()
install(FILES "${HALVEX_GENERATED_DIR}/Halvex/Halvex.h" "${HALVEX_GENERATED_DIR}/Halvex/HalvexExport.h"
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/Halvex")

# For CMake. The library is there and not only its link, or nothing could be linked.
install(EXPORT HalvexTargets NAMESPACE Halvex:: DESTINATION "${HALVEX_CMAKE_DIR}")
configure_package_config_file(cmake/HalvexConfig.cmake.in "${PROJECT_BINARY_DIR}/HalvexConfig.cmake"
  INSTALL_DESTINATION "${HALVEX_CMAKE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/HalvexConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
file(READ cmake/HalvexVersionInWords.cmake version_in_words)
file(APPEND "${PROJECT_BINARY_DIR}/HalvexConfigVersion.cmake" "\n${version_in_words}")
install(FILES "${PROJECT_BINARY_DIR}/HalvexConfig.cmake" "${PROJECT_BINARY_DIR}/HalvexConfigVersion.cmake"
  cmake/HalvexAddPlugin.cmake
  cmake/halvexConfig.cmake
  DESTINATION "${HALVEX_CMAKE_DIR}")

# For everything else: pkg-config, from wherever the prefix lies.
set(pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH prefix_from_pkgconfig "/${pkgconfig_dir}" "/")
string(REGEX REPLACE "/$" "" prefix_from_pkgconfig "${prefix_from_pkgconfig}")
configure_file(cmake/halvex.pc.in "${PROJECT_BINARY_DIR}/halvex.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/halvex.pc" DESTINATION "${pkgconfig_dir}")

# A beginning for projects that use the library, and projects to read.
install(PROGRAMS templates/halvex-new DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(DIRECTORY templates/plugin DESTINATION "${CMAKE_INSTALL_DATADIR}/halvex/templates" USE_SOURCE_PERMISSIONS)
halvex_install_man_page(halvex-new development "begins a plugin with a model of one's own"
  COMMAND "${PROJECT_SOURCE_DIR}/templates/halvex-new" DEPENDS "${PROJECT_SOURCE_DIR}/templates/halvex-new")
install(DIRECTORY examples DESTINATION "${HALVEX_DOC_DIR}" COMPONENT examples PATTERN README.md EXCLUDE)

# Where it is installed, the pages that it links to are those of the manual.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS examples/README.md)
file(READ examples/README.md examples_page)
string(REGEX REPLACE "\\(\\.\\./docs/([a-z/-]+)\\.md" "(../manual/docs/\\1.html" examples_page "${examples_page}")
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/examples/README.md" CONTENT "${examples_page}" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/examples/README.md" DESTINATION "${HALVEX_DOC_DIR}/examples" COMPONENT examples)

# The manual, if scripts/manual.sh has made it.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/build/manual" DESTINATION "${HALVEX_DOC_DIR}" COMPONENT manual OPTIONAL
  PATTERN "sitemap.xml*" EXCLUDE) # is for servers
