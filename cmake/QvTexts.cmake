# qv_place_texts(target): the program's texts and its help lie beside the executable `target`, and follow every change
# of their files.
function(qv_place_texts target)
  file(GLOB texts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/text/qvr_*.txt)
  add_custom_target(${target}_texts
    COMMAND ${CMAKE_COMMAND} -E make_directory $<TARGET_FILE_DIR:${target}>
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${texts} $<TARGET_FILE_DIR:${target}>
    DEPENDS ${texts} VERBATIM)
  add_dependencies(${target} ${target}_texts)
endfunction()
