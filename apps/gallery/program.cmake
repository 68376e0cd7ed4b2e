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

# The frames of the animation: three moons on their way around, of one, two and three turns.
foreach(number RANGE 29)
  math(EXPR once "12 * ${number}")
  math(EXPR back "0 - 24 * ${number}")
  math(EXPR fast "36 * ${number}")
  string(LENGTH "${number}" digits)
  math(EXPR zeros "5 - ${digits}")
  string(REPEAT "0" ${zeros} padding)
  file(GENERATE OUTPUT "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/resources/orbit${padding}${number}.svg"
    CONTENT "<svg xmlns='http://www.w3.org/2000/svg' width='192' height='192' viewBox='0 0 96 96'>
<rect width='96' height='96' rx='16' fill='#1d2540'/>
<g fill='none' stroke='#51608f'><circle cx='48' cy='48' r='18'/><circle cx='48' cy='48' r='28'/><circle cx='48' cy='48' r='38'/></g>
<circle cx='48' cy='48' r='9' fill='#ffc94d'/>
<circle cx='48' cy='10' r='5' fill='#7fd1ae' transform='rotate(${once} 48 48)'/>
<circle cx='48' cy='20' r='4' fill='#f08a8a' transform='rotate(${back} 48 48)'/>
<circle cx='48' cy='30' r='3' fill='#8fb7ff' transform='rotate(${fast} 48 48)'/>
</svg>
")
endforeach()
