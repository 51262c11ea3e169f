# Builds and installs the library without tests and host, then asks the installed file what it needs and offers.

function(run)
  execute_process(COMMAND ${ARGV} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(prefix "${BINARY_DIR}/prefix")
file(REMOVE_RECURSE "${prefix}")
run("${CMAKE_COMMAND}" -S "${SOURCE_DIR}" -B "${BINARY_DIR}" -G "${GENERATOR}"
  -D "CMAKE_CXX_COMPILER=${COMPILER}" -D CMAKE_BUILD_TYPE=Release -D CMAKE_INSTALL_LIBDIR=lib
  -D "HALVEX_QT_MAJOR=${QT_MAJOR}"
  -D HALVEX_BUILD_TESTING=OFF -D HALVEX_BUILD_TESTING_KIT=OFF -D HALVEX_BUILD_HOST=OFF
  -D CMAKE_UNITY_BUILD=ON) # quicker
run("${CMAKE_COMMAND}" --build "${BINARY_DIR}")
run("${CMAKE_COMMAND}" --install "${BINARY_DIR}" --prefix "${prefix}")

file(GLOB_RECURSE installed RELATIVE "${prefix}" "${prefix}/*")
foreach(file IN LISTS installed)
  if(NOT file MATCHES "^(include/Halvex/.*\\.h|lib/libHalvex\\.so(\\.[0-9.]+)?|lib/cmake/Halvex/.*\\.cmake|lib/pkgconfig/halvex\\.pc)$"
     AND NOT file MATCHES "^(bin/halvex-new|share/man/man1/halvex-new\\.1|share/halvex/templates/.*|share/doc/halvex/.*)$")
    message(SEND_ERROR "Installed, but of none of what belongs to the library: ${file}")
  endif()
endforeach()

# Needs: Qt's Core and what every C++ program has.
execute_process(COMMAND "${READELF}" -d "${prefix}/lib/libHalvex.so" OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\\(NEEDED\\)[^[]*\\[[^]]+\\]" needed "${dynamic}")
set(qt_core "libQt${QT_MAJOR}Core\\.so\\.${QT_MAJOR}")
foreach(entry IN LISTS needed)
  if(NOT entry MATCHES "\\[(${qt_core}|libstdc\\+\\+\\.so\\.6|libm\\.so\\.6|libgcc_s\\.so\\.1|libc\\.so\\.6|ld-linux.*)\\]")
    message(SEND_ERROR "libHalvex.so needs more than Qt's Core: ${entry}")
  endif()
endforeach()
if(NOT dynamic MATCHES "\\(NEEDED\\)[^\n]*${qt_core}" OR NOT dynamic MATCHES "\\(SONAME\\)[^\n]*\\[libHalvex\\.so\\.1\\]")
  message(SEND_ERROR "libHalvex.so lacks its soname or Qt's Core:\n${dynamic}")
endif()

# Offers: its own namespace, with the tables and type information of its classes, and to Qt a plugin's entry points and
# its types. Weak symbols are what inline functions and templates of others left behind here too; the ones of the
# standard library are visible by their own declaration, those of the platform's interfaces must be, so that casts
# across libraries work.
execute_process(COMMAND "${NM}" -D --defined-only "${prefix}/lib/libHalvex.so"
  OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" symbols "${symbols}")
set(own "_Z(TV|TT|TI|TS|GV|Th[n0-9]+_)?Z*NK?6Plugin6Halvex")
set(for_qt "qt_plugin_(instance|query_metadata(_v2)?)$|_ZN11QMetaTypeIdI.*6Plugin6Halvex.*14qt_metatype_idEv$")
set(foreign_weak "_Z(TV|TI|TS)?Z*(NK?)?(St|9__gnu_cxx|4Core|6Plugin7AppCore)")
foreach(symbol IN LISTS symbols)
  if(NOT symbol MATCHES " [A-Za-z] ${own}| T (${for_qt})| [WVu] ${foreign_weak}")
    message(SEND_ERROR "libHalvex.so exports what is not its own: ${symbol}")
  endif()
endforeach()
