# Why this version does not do; find_package() shows it behind the version.
if(NOT PACKAGE_VERSION_COMPATIBLE AND PACKAGE_FIND_VERSION)
  if(PACKAGE_FIND_VERSION VERSION_GREATER PACKAGE_VERSION)
    string(APPEND PACKAGE_VERSION " (older than ${PACKAGE_FIND_VERSION}: install that, or ask for what this one offers)")
  else()
    string(APPEND PACKAGE_VERSION " (another major version than ${PACKAGE_FIND_VERSION}: programs for that do not run with it)")
  endif()
endif()
