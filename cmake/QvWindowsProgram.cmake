# What every Windows program of ours needs beside its code.

# qv_windows_manifest(target): the manifest alone, for tests: common controls 6, UTF-8 and the DPI awareness that the
# windows count on.
function(qv_windows_manifest target)
  qv_windows_resource(${target} manifest.rc)
endfunction()

# qv_windows_program(target): manifest, icon and version information; a program with windows and no console, in one
# file. Its main() is a plain main(int, char**): the manifest makes the arguments UTF-8. Standard output reaches a file
# or pipe that the program was started with, and nothing otherwise: a program of this kind has no console.
function(qv_windows_program target)
  qv_windows_resource(${target} quorvane.rc)
  set_target_properties(${target} PROPERTIES WIN32_EXECUTABLE ON)
  if(MINGW)
    target_link_options(${target} PRIVATE -static -s)
  elseif(MSVC)
    target_link_options(${target} PRIVATE /ENTRY:mainCRTStartup /MANIFEST:NO)
  endif()
endfunction()

function(qv_windows_resource target script)
  set(folder ${PROJECT_SOURCE_DIR}/packaging/windows)
  set(made ${PROJECT_BINARY_DIR}/windows-resources)
  configure_file(${folder}/quorvane.manifest.in ${made}/quorvane.manifest @ONLY)
  target_sources(${target} PRIVATE ${folder}/${script})
  set_source_files_properties(
    ${folder}/${script} TARGET_DIRECTORY ${target}
    PROPERTIES OBJECT_DEPENDS "${made}/quorvane.manifest;${folder}/quorvane.ico"
               INCLUDE_DIRECTORIES ${made}
               COMPILE_DEFINITIONS
               "QV_MAJOR=${PROJECT_VERSION_MAJOR};QV_MINOR=${PROJECT_VERSION_MINOR};QV_PATCH=${PROJECT_VERSION_PATCH}")
endfunction()
