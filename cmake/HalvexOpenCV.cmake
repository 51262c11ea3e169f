# halvex_link_opencv(<target> <PUBLIC|PRIVATE|INTERFACE> <modules>...): some modules of OpenCV. Its own package
# configuration insists on every module that was built with it; looking for these alone spares a machine the rest.
function(halvex_link_opencv target scope)
  find_path(HALVEX_OPENCV_INCLUDE_DIR opencv2/core.hpp PATH_SUFFIXES opencv4 REQUIRED)
  target_include_directories(${target} SYSTEM ${scope} "${HALVEX_OPENCV_INCLUDE_DIR}")
  foreach(module IN LISTS ARGN)
    find_library(HALVEX_OPENCV_${module}_LIBRARY opencv_${module} REQUIRED)
    target_link_libraries(${target} ${scope} "${HALVEX_OPENCV_${module}_LIBRARY}")
  endforeach()
endfunction()
