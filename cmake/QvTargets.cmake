# One target per folder. A target sees the headers of the targets it links and no others: its headers are offered
# through a folder of links of its own, so an include against the direction of dependencies does not compile. Where the
# user may make no links, as on Windows, headers that include the real ones stand in for them.

function(qv_offer_headers target folder visibility)
  set(root ${PROJECT_BINARY_DIR}/headers/${target})
  file(GLOB headers CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.h)
  foreach(header IN LISTS headers)
    get_filename_component(name ${header} NAME)
    set(link ${root}/${folder}/${name})
    file(MAKE_DIRECTORY ${root}/${folder})
    if(NOT EXISTS ${link} OR IS_SYMLINK ${link})
      file(CREATE_LINK ${header} ${link} RESULT failure SYMBOLIC)
      if(failure)
        file(WRITE ${link} "#include \"${header}\"\n")
      endif()
    endif()
  endforeach()
  target_include_directories(${target} ${visibility} ${root})
endfunction()

# qv_library(target folder [links...]): the sources directly in `folder`, without those of its subfolders.
function(qv_library target folder)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  if(sources)
    add_library(${target} STATIC ${sources})
    qv_offer_headers(${target} ${folder} PUBLIC)
    target_link_libraries(${target} PUBLIC ${ARGN} PRIVATE qv_strict)
  else()
    add_library(${target} INTERFACE)
    qv_offer_headers(${target} ${folder} INTERFACE)
    target_link_libraries(${target} INTERFACE ${ARGN})
  endif()
endfunction()
