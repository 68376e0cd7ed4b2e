# Fuzz targets, one for each file of fuzz/. The libraries below them are instrumented by
# ZQ_SANITIZE; only the targets themselves link the engine.

if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  message(FATAL_ERROR "Fuzz targets need Clang: configure with the preset fuzz.")
endif()
file(GLOB fuzzers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/fuzz/*.cpp")
foreach(fuzzer IN LISTS fuzzers)
  cmake_path(GET fuzzer STEM name)
  add_executable(fuzz_${name} ${fuzzer})
  target_link_libraries(fuzz_${name} PRIVATE ZQSwiftUI::Core)
  target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
  set_target_properties(fuzz_${name} PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/fuzz")
  zq_warnings(fuzz_${name})
endforeach()

# Generated source is compiled, against a stand-in for the store.
if(TARGET fuzz_cpp_generator)
  target_compile_definitions(fuzz_cpp_generator PRIVATE
    ZQ_COMPILER="${CMAKE_CXX_COMPILER}" ZQ_STAND_IN="${PROJECT_SOURCE_DIR}/fuzz/stand_in"
    ZQ_INCLUDE="${ZQ_FLOOR_ROOT}/components")
endif()
