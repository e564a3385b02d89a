# An installer and a portable archive; the program is one file in both.
install(TARGETS quorvane DESTINATION .)
install(FILES ${QV_LICENCES} DESTINATION .)
set(CPACK_GENERATOR NSIS ZIP)
set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_LIST_DIR}/package_names.cmake)
# CPack's own script for the installer takes administrator rights for granted: NSIS.template.in here stands in for it.
list(APPEND CMAKE_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR})
set(CPACK_MODULE_PATH ${CMAKE_CURRENT_LIST_DIR})
set(CPACK_NSIS_DEFINES "!define PICTURES \"${CMAKE_CURRENT_LIST_DIR}\"")
if(CMAKE_CROSSCOMPILING)
  # Debian's NSIS makes 64-bit installers; the one for Windows does not.
  string(APPEND CPACK_NSIS_DEFINES "\nTarget amd64-unicode")
endif()
