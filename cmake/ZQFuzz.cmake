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

# The list of documents is read beside Qt, but without it.
if(TARGET fuzz_recent_list)
  zq_stage(fuzz zqswiftui/platform/qt)
  target_include_directories(fuzz_recent_list PRIVATE "${ZQ_FLOOR_ROOT}/fuzz")
  target_sources(fuzz_recent_list PRIVATE
    "${PROJECT_SOURCE_DIR}/zqswiftui/platform/qt/recent_list.cpp"
    "${PROJECT_SOURCE_DIR}/zqswiftui/platform/qt/xml_events.cpp")
  target_link_libraries(fuzz_recent_list PRIVATE expat)
endif()

# Generated source is compiled, against a stand-in for the store.
if(TARGET fuzz_cpp_generator)
  target_compile_definitions(fuzz_cpp_generator PRIVATE
    ZQ_COMPILER="${CMAKE_CXX_COMPILER}" ZQ_STAND_IN="${PROJECT_SOURCE_DIR}/fuzz/stand_in"
    ZQ_INCLUDE="${ZQ_FLOOR_ROOT}/components")
endif()
