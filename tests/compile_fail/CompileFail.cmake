# Programs that must not compile. `name.cpp` must be refused and its twin `name.good.cpp`
# accepted, both with the include path of one floor: the twin proves that the refusal has
# the reason that we mean, and not a missing header. Comments near the top of name.cpp:
#   // floor: toolkit         whose include path (required)
#   // says: some words       what the compiler's message must contain, a regular expression

function(zq_compile_fail source)
  cmake_path(GET source STEM name)
  file(STRINGS "${source}" floor REGEX "^// floor: " LIMIT_COUNT 1)
  file(STRINGS "${source}" says REGEX "^// says: " LIMIT_COUNT 1)
  string(REGEX REPLACE "^// floor: *([a-z]+).*$" "\\1" floor "${floor}")
  string(REGEX REPLACE "^// says: *" "" says "${says}")
  if(floor STREQUAL "qt" AND NOT ZQ_QT)
    return()
  endif()
  if(NOT TARGET zq_${floor})
    message(FATAL_ERROR "${source} names no floor: write `// floor: toolkit` below the licence line.")
  endif()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}")

  add_test(NAME compile_fail.${name} COMMAND ${CMAKE_COMMAND}
    "-DCOMPILER=${CMAKE_CXX_COMPILER}" "-DBAD=${source}" "-DSAYS=${says}"
    "-DINCLUDES=$<JOIN:$<TARGET_PROPERTY:zq_${floor},INCLUDE_DIRECTORIES>,|>"
    -P "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/check.cmake")
  set_tests_properties(compile_fail.${name} PROPERTIES LABELS compile_fail TIMEOUT 120)
endfunction()

file(GLOB bad_sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/*.cpp")
list(FILTER bad_sources EXCLUDE REGEX "\\.good\\.cpp$")
foreach(bad_source IN LISTS bad_sources)
  zq_compile_fail("${bad_source}")
endforeach()
