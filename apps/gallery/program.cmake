# Each page shows its own code: what stands between the marks in its source becomes a text of
# the program, so that the two can never drift apart.

file(GLOB page_sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/pages/*.cpp")
set(page_code "${PROJECT_BINARY_DIR}/generated/gallery/page_code.cpp")
add_custom_command(
  OUTPUT "${page_code}"
  COMMAND "${CMAKE_COMMAND}" "-DOUTPUT=${page_code}" "-DPAGES=${CMAKE_CURRENT_LIST_DIR}/pages"
          -P "${CMAKE_CURRENT_LIST_DIR}/embed_code.cmake"
  DEPENDS ${page_sources} "${CMAKE_CURRENT_LIST_DIR}/embed_code.cmake"
  COMMENT "Embedding the code of the gallery's pages"
  VERBATIM)
target_sources(${name}-parts PRIVATE "${page_code}")
