# What is installed of the reference host: the components "host" and "viewer", which are programs, and "models", the
# plugins that both load. The programs find them and the library from where they lie, so that the prefix can be moved.

set(HALVEX_HOST_PLUGIN_DIR "${CMAKE_INSTALL_LIBDIR}/halvex/plugins")
set_source_files_properties(plugins/CPluginHost.cpp PROPERTIES
  COMPILE_DEFINITIONS "HALVEX_INSTALLED_PLUGINS=\"${HALVEX_LIB_FROM_BIN}/halvex/plugins\"")
set_target_properties(halvex-host PROPERTIES INSTALL_RPATH "$ORIGIN/${HALVEX_LIB_FROM_BIN}")

# The library is a plugin like any other, and lies where other programs link with it.
set(library_link "${CMAKE_CURRENT_BINARY_DIR}/installed/libHalvex.so")
file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/installed")
file(CREATE_LINK "../../libHalvex.so.${PROJECT_VERSION_MAJOR}" "${library_link}" SYMBOLIC)
install(FILES "${library_link}" DESTINATION "${HALVEX_HOST_PLUGIN_DIR}" COMPONENT models)

if(TARGET halvex-viewer)
  set_target_properties(halvex-viewer PROPERTIES INSTALL_RPATH "$ORIGIN/${HALVEX_LIB_FROM_BIN}")
  install(TARGETS halvex-viewer RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT viewer)
  halvex_install_man_page(halvex-viewer viewer "shows cameras live, and the graphs that their frames go through"
    COMMAND "$<TARGET_FILE:halvex-viewer>" DEPENDS halvex-viewer)
endif()
install(TARGETS halvex-host RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT host)
install(FILES schemas/chain.schema.json schemas/scene.schema.json
  DESTINATION "${CMAKE_INSTALL_DATADIR}/halvex/schemas" COMPONENT host)
install(FILES chains/demo.json DESTINATION "${CMAKE_INSTALL_DATADIR}/halvex/chains" COMPONENT host)
install(FILES completion/halvex-host.bash DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions"
  RENAME halvex-host COMPONENT host)
halvex_install_man_page(halvex-host host MAN_PAGE halvex-host --man-page DEPENDS halvex-host)
