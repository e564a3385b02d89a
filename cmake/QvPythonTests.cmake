# qv_python_tests(name file [ENVIRONMENT name=value...] [PROPERTIES name value...]): every class of a unittest file that has a
# base class becomes a test called name.Class; what its stories share is made once.
find_package(Python3 3.8 REQUIRED COMPONENTS Interpreter)

function(qv_python_tests name file)
  cmake_parse_arguments(PARSE_ARGV 2 tests "" "" "ENVIRONMENT;PROPERTIES")
  get_filename_component(path ${file} ABSOLUTE)
  get_filename_component(folder ${path} DIRECTORY)
  get_filename_component(module ${path} NAME_WE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${path})
  file(STRINGS ${path} lines REGEX "^class [A-Za-z0-9_]+[(]")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "^class ([A-Za-z0-9_]+).*" "\\1" class ${line})
    add_test(NAME ${name}.${class} WORKING_DIRECTORY ${folder}
             COMMAND ${Python3_EXECUTABLE} -B -m unittest ${module}.${class})
    set_tests_properties(${name}.${class} PROPERTIES TIMEOUT 300 SKIP_REGULAR_EXPRESSION "OK [(]skipped=[0-9]"
                         ENVIRONMENT "${tests_ENVIRONMENT}" ${tests_PROPERTIES})
  endforeach()
endfunction()
