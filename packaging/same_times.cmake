# Gives everything in a package the time SOURCE_DATE_EPOCH, where it is set, so that two builds make the same package.
if(DEFINED ENV{SOURCE_DATE_EPOCH} AND CMAKE_HOST_UNIX)
  file(GLOB_RECURSE entries LIST_DIRECTORIES true ${CPACK_TEMPORARY_DIRECTORY}/*)
  execute_process(COMMAND touch -h -d @$ENV{SOURCE_DATE_EPOCH} -- ${entries} ${CPACK_TEMPORARY_DIRECTORY})
endif()
