# xxHash is one header that needs no library (Debian: libxxhash-dev). It is offered from a folder that holds nothing else,
# so that a build for another system sees no further header of this one.
find_file(QV_XXHASH xxhash.h PATHS /usr/include /usr/local/include NO_CMAKE_FIND_ROOT_PATH DOC "The header of xxHash")
if(NOT QV_XXHASH)
  message(FATAL_ERROR "xxhash.h was not found (Debian: libxxhash-dev; vcpkg: xxhash). -DQV_XXHASH=PATH says where it is.")
endif()
configure_file(${QV_XXHASH} ${PROJECT_BINARY_DIR}/headers/xxhash/xxhash.h COPYONLY)

function(qv_use_xxhash target)
  target_include_directories(${target} SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/headers/xxhash)
endfunction()
