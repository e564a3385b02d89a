# Read by cpack for each kind of package.
set(kind portable)
if(CPACK_GENERATOR STREQUAL "NSIS")
  set(kind setup)
endif()
set(CPACK_PACKAGE_FILE_NAME quorvane-${CPACK_PACKAGE_VERSION}-windows-${kind})
