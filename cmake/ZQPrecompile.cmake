# What most sources of a target read first is read once: a third of a clean build. GCC alone does
# so for the library and the programs; with Clang each source must name all that it uses, and a
# missing include is found there.

# ccache keeps what is compiled with such a start only if it is told that it may.
if(CMAKE_CXX_COMPILER_LAUNCHER MATCHES "ccache$")
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CMAKE_COMMAND}" -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros "${CMAKE_CXX_COMPILER_LAUNCHER}")
endif()
if(PROJECT_IS_TOP_LEVEL AND CMAKE_CXX_COMPILER_ID STREQUAL GNU)
  set(ZQ_PRECOMPILE ON)
  add_compile_options(-fpch-preprocess)
endif()

# Tests and programs themselves need not be fast where they are debugged, and are more than half of
# a build; under the sanitizers they are slow enough.
if(PROJECT_IS_TOP_LEVEL AND CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT ZQ_SANITIZE)
  set(ZQ_QUICKLY $<$<CONFIG:Debug>:-O0>)
endif()

# zq_precompile(<target> <header>...), beside what every source has of the standard library.
function(zq_precompile target)
  if(ZQ_PRECOMPILE)
    target_precompile_headers(${target} PRIVATE
      <algorithm> <cmath> <functional> <limits> <memory> <mutex> <optional> <string> <string_view>
      <unordered_map> <utility> <vector> ${ARGN})
    zq_in_batches(${target})
  endif()
endfunction()

# Sources are compiled eight at a time: what each makes of the templates that all use is the larger
# part of its time. Within a floor, and a folder of tests, their names must differ, also those that
# only they see.
function(zq_in_batches target)
  if(ZQ_PRECOMPILE)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
    # A name of the next file is no shadow, and what only a file sees is seen by no header.
    target_compile_options(${target} PRIVATE -Wno-shadow -Wno-subobject-linkage)
  endif()
endfunction()

# zq_start(<name> LINKS <target>... HEADERS <header>...): such a start for several targets that link
# the same, which take it by target_precompile_headers(... REUSE_FROM <name>).
function(zq_start name)
  cmake_parse_arguments(arg "" "" "LINKS;HEADERS" ${ARGN})
  set(empty "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
  file(CONFIGURE OUTPUT "${empty}" CONTENT "")
  add_library(${name} OBJECT "${empty}")
  target_link_libraries(${name} PRIVATE ${arg_LINKS})
  zq_warnings(${name})
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()
