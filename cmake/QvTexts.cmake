# qv_compile_in(target function file): makes `std::string_view text::function()`, declared in text/built_in.h, return the
# content of the file. It follows every change of the file.
function(qv_compile_in target function file)
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${target}_${function}.cpp)
  set(script ${PROJECT_SOURCE_DIR}/cmake/CompileIn.cmake)
  add_custom_command(
    OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} -D FUNCTION=${function} -D FILE=${file} -D SOURCE=${source} -P ${script}
    DEPENDS ${file} ${script} VERBATIM)
  target_sources(${target} PRIVATE ${source})
endfunction()
