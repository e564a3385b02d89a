# qv_python_tests(name file [test properties...]): every test method of a unittest file becomes a test of its own, called
# name.Class.method, so that it is counted, chosen and timed like any other.
find_package(Python3 3.8 REQUIRED COMPONENTS Interpreter)

function(qv_python_tests name file)
  get_filename_component(path ${file} ABSOLUTE)
  get_filename_component(folder ${path} DIRECTORY)
  get_filename_component(module ${path} NAME_WE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${path})
  file(STRINGS ${path} lines REGEX "^class |^    def test_")
  foreach(line IN LISTS lines)
    if(line MATCHES "^class ([A-Za-z0-9_]+)")
      set(class ${CMAKE_MATCH_1})
    elseif(line MATCHES "def (test_[A-Za-z0-9_]+)")
      set(test ${name}.${class}.${CMAKE_MATCH_1})
      add_test(NAME ${test} WORKING_DIRECTORY ${folder}
               COMMAND ${Python3_EXECUTABLE} -B -m unittest ${module}.${class}.${CMAKE_MATCH_1})
      set_tests_properties(${test} PROPERTIES TIMEOUT 120 SKIP_REGULAR_EXPRESSION "skipped=[0-9]" ${ARGN})
    endif()
  endforeach()
endfunction()
