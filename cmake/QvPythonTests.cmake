# qv_python_tests(name file [ENVIRONMENT name=value...] [PROPERTIES name value...]): a unittest file becomes a test, with
# the file's name behind `name`.
find_package(Python3 3.8 REQUIRED COMPONENTS Interpreter)

function(qv_python_tests name file)
  cmake_parse_arguments(PARSE_ARGV 2 tests "" "" "ENVIRONMENT;PROPERTIES")
  get_filename_component(path ${file} ABSOLUTE)
  get_filename_component(folder ${path} DIRECTORY)
  get_filename_component(module ${path} NAME_WE)
  add_test(NAME ${name}.${module} WORKING_DIRECTORY ${folder} COMMAND ${Python3_EXECUTABLE} -B -m unittest -v ${module})
  set_tests_properties(${name}.${module} PROPERTIES ENVIRONMENT "${tests_ENVIRONMENT}" ${tests_PROPERTIES})
endfunction()
