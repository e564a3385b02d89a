# qv_python_tests(name file [CLASSES class...] [ENVIRONMENT name=value...] [PROPERTIES name value...]): a unittest file
# becomes a test, or each of its classes one, with the file's name behind `name`.
find_package(Python3 3.8 REQUIRED COMPONENTS Interpreter)

function(qv_python_tests name file)
  cmake_parse_arguments(PARSE_ARGV 2 tests "" "" "CLASSES;ENVIRONMENT;PROPERTIES")
  get_filename_component(path ${file} ABSOLUTE)
  get_filename_component(folder ${path} DIRECTORY)
  get_filename_component(module ${path} NAME_WE)
  set(parts ${module})
  if(tests_CLASSES)
    list(TRANSFORM tests_CLASSES PREPEND ${module}. OUTPUT_VARIABLE parts)
  endif()
  foreach(part IN LISTS parts)
    add_test(NAME ${name}.${part} WORKING_DIRECTORY ${folder} COMMAND ${Python3_EXECUTABLE} -B -m unittest -v ${part})
    set_tests_properties(${name}.${part} PROPERTIES ENVIRONMENT "${tests_ENVIRONMENT}" ${tests_PROPERTIES})
  endforeach()
endfunction()
