# Programs are found by folder: apps/<name>, tools/<name>, and one for each file of examples/.
# Who takes the library as a folder of their project gets the tools alone, built when needed:
# zq_add_settings uses one.

zq_stage(programs apps)
zq_stage(programs tools)

# All but main.cpp goes into a library, so that tests can reach what a program is made of.
function(zq_program folder name link)
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${folder}/*.cpp")
  list(FILTER sources EXCLUDE REGEX "/${folder}/main\\.cpp$")
  if(NOT EXISTS "${PROJECT_SOURCE_DIR}/${folder}/main.cpp")
    return()
  endif()
  # What is there in two forms stands in with_qt and without_qt.
  if(ZQ_QT)
    list(FILTER sources EXCLUDE REGEX "/without_qt/")
  else()
    list(FILTER sources EXCLUDE REGEX "/with_qt/")
  endif()
  add_executable(${name} "${PROJECT_SOURCE_DIR}/${folder}/main.cpp")
  zq_warnings(${name})
  target_compile_options(${name} PRIVATE ${ZQ_QUICKLY})
  if(sources)
    add_library(${name}-parts STATIC ${sources})
    target_include_directories(${name}-parts PUBLIC "${ZQ_FLOOR_ROOT}/programs")
    target_link_libraries(${name}-parts PUBLIC ${link})
    zq_warnings(${name}-parts)
    target_compile_options(${name}-parts PRIVATE ${ZQ_QUICKLY})
    target_link_libraries(${name} PRIVATE ${name}-parts)
    # What a program generates for itself it adds to ${name}-parts.
    include("${PROJECT_SOURCE_DIR}/${folder}/program.cmake" OPTIONAL)
  endif()
  target_include_directories(${name} PRIVATE "${ZQ_FLOOR_ROOT}/programs")
  target_link_libraries(${name} PRIVATE ${link})
endfunction()

file(GLOB tools CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
  "${PROJECT_SOURCE_DIR}/tools/*/main.cpp")
foreach(main IN LISTS tools)
  cmake_path(GET main PARENT_PATH folder)
  cmake_path(GET folder FILENAME name)
  zq_program(${folder} ${name} $<IF:$<BOOL:${ZQ_QT}>,ZQSwiftUI::Qt,ZQSwiftUI::Core>)
  # A tool shows nothing: what it does not use of Qt is not even loaded.
  target_link_options(${name} PRIVATE LINKER:--as-needed)
  add_executable(ZQSwiftUI::${name} ALIAS ${name})
  if(NOT ZQ_PROGRAMS)
    set_target_properties(${name} ${name}-parts PROPERTIES EXCLUDE_FROM_ALL TRUE)
  endif()
endforeach()
if(NOT ZQ_PROGRAMS)
  return()
endif()

if(ZQ_PRECOMPILE AND ZQ_QT)
  zq_start(zq_programs_start LINKS ZQSwiftUI::Qt
    HEADERS <QApplication> <zqswiftui/platform/qt/host_widget.hpp>
      <zqswiftui/platform/qt/platform.hpp> <zqswiftui/zqswiftui.hpp>)
  target_compile_options(zq_programs_start PRIVATE ${ZQ_QUICKLY})
endif()

# zq_starts(<target>...): those that link Qt and show something.
function(zq_starts)
  foreach(target IN LISTS ARGN)
    if(TARGET zq_programs_start AND TARGET ${target})
      target_precompile_headers(${target} REUSE_FROM zq_programs_start)
    endif()
  endforeach()
endfunction()

file(GLOB apps CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
  "${PROJECT_SOURCE_DIR}/apps/*/main.cpp")
foreach(main IN LISTS apps)
  cmake_path(GET main PARENT_PATH folder)
  cmake_path(GET folder FILENAME name)
  if(ZQ_QT)
    zq_program(${folder} zq-${name} ZQSwiftUI::Qt)
    zq_starts(zq-${name} zq-${name}-parts)
    zq_in_batches(zq-${name}-parts)
  endif()
endforeach()

file(GLOB examples CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/examples/*.cpp")
foreach(example IN LISTS examples)
  cmake_path(GET example STEM name)
  zq_uses_qt(with_qt ${example})
  if(with_qt AND NOT ZQ_QT)
    continue()
  endif()
  add_executable(example_${name} ${example})
  target_link_libraries(example_${name} PRIVATE $<IF:${with_qt},ZQSwiftUI::Qt,ZQSwiftUI::Core>)
  zq_warnings(example_${name})
  target_compile_options(example_${name} PRIVATE ${ZQ_QUICKLY})
  if(with_qt)
    zq_starts(example_${name})
  endif()
  # An example with settings reads their file beside it, where they can be edited by hand.
  set(settings "${PROJECT_SOURCE_DIR}/examples/${name}.zquic")
  if(EXISTS "${settings}")
    zq_add_settings(example_${name} "${settings}" CLASS ExampleSettings)
    add_custom_command(TARGET example_${name} POST_BUILD
      COMMAND "${CMAKE_COMMAND}" -E copy_if_different "${settings}"
              "$<TARGET_FILE_DIR:example_${name}>/${name}.zquic")
  endif()
endforeach()
