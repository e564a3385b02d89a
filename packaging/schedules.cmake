# Ready-made schedules that the user only has to switch on: a timer for systemd, a task for the Task Scheduler.
if(WIN32)
  install(FILES ${CMAKE_CURRENT_LIST_DIR}/windows/quorvane-task.xml DESTINATION .)
else()
  # The place is known only when the program is installed; what goes into a package is gathered elsewhere first.
  install(CODE "
    set(QV_PROGRAM \"\${CMAKE_INSTALL_PREFIX}/bin/quorvane\")
    if(CMAKE_INSTALL_PREFIX MATCHES \"/_CPack_Packages/\")
      set(QV_PROGRAM /usr/bin/quorvane)
    endif()
    configure_file(\"${CMAKE_CURRENT_LIST_DIR}/linux/quorvane.service\"
                   \"${CMAKE_CURRENT_BINARY_DIR}/quorvane.service\" @ONLY)")
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/quorvane.service ${CMAKE_CURRENT_LIST_DIR}/linux/quorvane.timer
          DESTINATION share/systemd/user)  # of all users, and below ~/.local
endif()
