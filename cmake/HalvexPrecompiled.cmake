# halvex_precompile(<target> [<header>...]): reads Qt's headers once for all these targets, which nearly halves what a
# build of the tests costs; more headers once for the target that names them. For tests and the host: the library is
# built with what its sources name and nothing besides.
#
# A compiler cache cannot share objects that were built so, and the linters are to see what each file includes: the
# preset "dev" sets CMAKE_DISABLE_PRECOMPILE_HEADERS.

function(halvex_precompile target)
  if(CMAKE_CXX_COMPILER_LAUNCHER OR CMAKE_DISABLE_PRECOMPILE_HEADERS OR HALVEX_BUILD_FUZZERS)
    return()
  endif()
  set(headers <QtCore> <functional> <memory> <vector>)
  if(ARGN)
    target_precompile_headers(${target} PRIVATE ${headers} ${ARGN})
    return()
  endif()
  # Sanitizers look at the library, which is optimized for them; that the tests are not saves a part of each build.
  set(unoptimized $<$<CONFIG:Debug>:-O0>)
  if(NOT TARGET HalvexPrecompiled)
    file(WRITE "${PROJECT_BINARY_DIR}/generated/HalvexPrecompiled.cpp" "// CMake wants a source.\n")
    add_library(HalvexPrecompiled OBJECT "${PROJECT_BINARY_DIR}/generated/HalvexPrecompiled.cpp")
    halvex_target(HalvexPrecompiled)
    set_target_properties(HalvexPrecompiled PROPERTIES AUTOMOC OFF)
    target_link_libraries(HalvexPrecompiled PRIVATE ${HALVEX_QT}::Core)
    # Some libraries ask for threads, and all must have the same.
    target_compile_options(HalvexPrecompiled PRIVATE -pthread ${unoptimized})
    target_precompile_headers(HalvexPrecompiled PRIVATE ${headers})
  endif()
  target_precompile_headers(${target} REUSE_FROM HalvexPrecompiled)
  # Where a target differs in more than that, the headers are read again.
  target_compile_options(${target} PRIVATE -pthread ${unoptimized} -Wno-error=invalid-pch)
endfunction()

# halvex_unite(<target>): compiles eight sources at a time, where headers are read once too. For the host.
function(halvex_unite target)
  if(NOT CMAKE_CXX_COMPILER_LAUNCHER AND NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
  endif()
endfunction()
