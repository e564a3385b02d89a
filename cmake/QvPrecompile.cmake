# Reading the standard library takes most of the time of a small file: with QV_PRECOMPILE each kind of target reads it once.
# Not where a compiler cache does better: it cannot keep what was compiled that way.
option(QV_PRECOMPILE "Read the standard library's headers once for all targets" OFF)

set(QV_STANDARD_HEADERS <algorithm> <array> <atomic> <chrono> <condition_variable> <cstdint> <deque> <filesystem> <functional>
                        <map> <memory> <mutex> <optional> <set> <string> <string_view> <thread> <unordered_map> <utility> <vector>)

# qv_precompile(kind target [headers...]): all targets of a kind share what the first of them read, and so have to be
# compiled with the same options. Those that use Qt are not: it asks for some of its own.
function(qv_precompile kind target)
  if(NOT QV_PRECOMPILE OR CMAKE_CXX_COMPILER_LAUNCHER OR target MATCHES "_qt$")
    return()
  endif()
  get_property(first GLOBAL PROPERTY QV_FIRST_${kind})
  if(first)
    target_precompile_headers(${target} REUSE_FROM ${first})
  else()
    target_precompile_headers(${target} PRIVATE ${QV_STANDARD_HEADERS} ${ARGN})
    set_property(GLOBAL PROPERTY QV_FIRST_${kind} ${target})
  endif()
endfunction()
