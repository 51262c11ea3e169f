# Debian packages: `cpack -G DEB` in a build folder with the prefix /usr; scripts/packages.sh does all of it.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME halvex)
set(CPACK_PACKAGE_VENDOR "${HALVEX_VENDOR}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/packaging/add_debian_files.cmake")
set(CPACK_HALVEX_PACKAGING_DIR "${PROJECT_SOURCE_DIR}/packaging") # for that script
set(CPACK_HALVEX_LICENCE "${PROJECT_SOURCE_DIR}/LICENSES/LicenseRef-Halvex.txt")
set(CPACK_HALVEX_CHANGES "${PROJECT_SOURCE_DIR}/CHANGELOG.md")

set(HALVEX_MAINTAINER "The Halvex authors <halvex@example.org>" CACHE STRING "Who answers for the packages")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${HALVEX_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${HALVEX_URL}")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/plugins") # those of libHalvex are said below
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)

# halvex_package(<name> SECTION <section> COMPONENTS <components> SUMMARY <line> ABOUT <lines> [DEPENDS <packages>]
#                [RECOMMENDS <packages>] [SUGGESTS <packages>]): one package with the files of these components.
set(CPACK_COMPONENTS_ALL "")
function(halvex_package name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "SECTION;SUMMARY;DEPENDS;RECOMMENDS;SUGGESTS" "COMPONENTS;ABOUT")
  string(TOUPPER "${name}" key)
  list(JOIN arg_ABOUT "\n" about)
  foreach(setting NAME SECTION DEPENDS RECOMMENDS SUGGESTS)
    set(arg_NAME "${name}")
    set(CPACK_DEBIAN_${key}_PACKAGE_${setting} "${arg_${setting}}" PARENT_SCOPE)
  endforeach()
  set(CPACK_COMPONENT_GROUP_${key}_DESCRIPTION "${about}" PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_DESCRIPTION "${arg_SUMMARY}\n${about}" PARENT_SCOPE)
  foreach(component IN LISTS arg_COMPONENTS)
    string(TOUPPER "${component}" component_key)
    set(CPACK_COMPONENT_${component_key}_GROUP "${name}" PARENT_SCOPE)
  endforeach()
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${arg_COMPONENTS} PARENT_SCOPE)
endfunction()

set(same_version "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(library "libhalvex${PROJECT_VERSION_MAJOR}")
string(TOUPPER "${library}" library_key)

halvex_package(${library} SECTION libs COMPONENTS library
  SUMMARY "dataflow graph engine for camera viewers"
  ABOUT
    "Frames of cameras go through a graph of models: sources, filters and sinks"
    "with typed ports. Programs link this library, or load it as a plugin.")
set(CPACK_DEBIAN_${library_key}_PACKAGE_SHLIBDEPS ON)
# What other packages that link it depend on, and that the system's list of libraries is made anew.
set(control_files "${PROJECT_BINARY_DIR}/debian/shlibs" "${PROJECT_BINARY_DIR}/debian/triggers")
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/debian/shlibs" @ONLY
  CONTENT "libHalvex @PROJECT_VERSION_MAJOR@ @library@ (>= @PROJECT_VERSION@)\n")
file(CONFIGURE OUTPUT "${PROJECT_BINARY_DIR}/debian/triggers" @ONLY CONTENT "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_${library_key}_PACKAGE_CONTROL_EXTRA ${control_files})

set(development_components development)
if(HALVEX_BUILD_TESTING_KIT)
  list(APPEND development_components testing)
endif()
set(qt_package qtbase5-dev)
if(HALVEX_QT_MAJOR GREATER 5)
  set(qt_package qt${HALVEX_QT_MAJOR}-base-dev)
endif()
halvex_package(libhalvex-dev SECTION libdevel COMPONENTS ${development_components}
  SUMMARY "dataflow graph engine for camera viewers: development files"
  ABOUT
    "Headers and everything else that models, plugins and hosts are built with:"
    "files for CMake and pkg-config, halvex-new, which begins a plugin, and a kit"
    "that tests models, with the program halvex-check."
  DEPENDS "${library} ${same_version}, ${qt_package} (>= ${HALVEX_LEAST_QT})"
  RECOMMENDS "cmake (>= 3.20)"
  SUGGESTS "halvex-doc, halvex-host")
set(CPACK_DEBIAN_LIBHALVEX-DEV_PACKAGE_SHLIBDEPS ON)

if(HALVEX_BUILD_HOST)
  halvex_package(halvex-host SECTION video COMPONENTS host models
    SUMMARY "streams cameras through a graph, from the command line"
    ABOUT
      "Runs chains of filters and sinks over the frames of GigE Vision and USB3"
      "Vision cameras, of files, and of cameras that are simulated; checks, draws"
      "and compares documents; tests the way from a camera to the program."
    DEPENDS "${library} ${same_version}, plplot-driver-cairo, fonts-dejavu-core"
    SUGGESTS "halvex-viewer")
  set(CPACK_DEBIAN_HALVEX-HOST_PACKAGE_SHLIBDEPS ON)
endif()
if(HALVEX_BUILD_HOST AND HALVEX_BUILD_VIEWER)
  halvex_package(halvex-viewer SECTION video COMPONENTS viewer
    SUMMARY "shows cameras live, and the graphs that their frames go through"
    ABOUT
      "A window with the images of cameras, their features, and the graph of each,"
      "which can be changed while frames flow. Records what cameras see."
    DEPENDS "${library} ${same_version}, halvex-host ${same_version}")
  set(CPACK_DEBIAN_HALVEX-VIEWER_PACKAGE_SHLIBDEPS ON)
endif()

halvex_package(halvex-doc SECTION doc COMPONENTS manual examples
  SUMMARY "dataflow graph engine for camera viewers: manual and examples"
  ABOUT
    "Concepts, tutorials, the reference of every class, and small projects to"
    "begin with. The manual opens in a browser, from its folder.")
set(CPACK_DEBIAN_HALVEX-DOC_PACKAGE_ARCHITECTURE all)

include(CPack)
