# A package for Debian and its relatives and, where rpmbuild is at hand, one for Fedora and its relatives.
include(GNUInstallDirs)

# What is read in compressed form, as `gzip -9` makes it without the time of the file.
function(qv_install_compressed file folder name)
  find_program(QV_GZIP gzip REQUIRED)
  execute_process(COMMAND ${QV_GZIP} -9nc ${file} OUTPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/${name} COMMAND_ERROR_IS_FATAL ANY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name} DESTINATION ${folder})
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
endfunction()

set(here ${CMAKE_CURRENT_LIST_DIR})
set(made ${CMAKE_CURRENT_BINARY_DIR})
set(documents ${CMAKE_INSTALL_DATAROOTDIR}/doc/quorvane)
execute_process(COMMAND env LC_ALL=C date -u -R -d ${QV_RELEASE_DATE} OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
foreach(name quorvane.1 quorvane.metainfo.xml changelog.Debian)
  configure_file(${here}/${name}.in ${made}/${name} @ONLY)
endforeach()
install(TARGETS quorvane DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${here}/quorvane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${made}/quorvane.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
qv_install_compressed(${made}/quorvane.1 ${CMAKE_INSTALL_MANDIR}/man1 quorvane.1.gz)
foreach(size 16 22 24 32 48 64 128 256)
  install(FILES ${here}/icons/${size}.png DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
          RENAME quorvane.png)
endforeach()
install(FILES ${here}/../quorvane.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES ${QV_LICENCES} DESTINATION ${documents} RENAME copyright)
qv_install_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${documents} CHANGELOG.md.gz)
qv_install_compressed(${made}/changelog.Debian ${documents} changelog.gz)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
find_program(QV_RPMBUILD rpmbuild)
if(QV_RPMBUILD)
  list(APPEND CPACK_GENERATOR RPM)
endif()
set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_PACKAGE_DESCRIPTION "${CPACK_PACKAGE_DESCRIPTION}")
set(CPACK_RPM_PACKAGE_LICENSE "MIT AND BSD-2-Clause")
set(CPACK_RPM_PACKAGE_GROUP Applications/Archiving)
set(CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
    /usr/share/applications /usr/share/metainfo /usr/share/man /usr/share/man/man1 /usr/share/doc /usr/share/icons
    /usr/share/icons/hicolor /usr/share/icons/hicolor/scalable /usr/share/icons/hicolor/scalable/apps)
foreach(size 16 22 24 32 48 64 128 256)
  list(APPEND CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION /usr/share/icons/hicolor/${size}x${size}
       /usr/share/icons/hicolor/${size}x${size}/apps)
endforeach()
