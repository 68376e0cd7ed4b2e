# A floor is a link target that sees its own headers and those of the floors below it, and
# nothing else. The folders of each floor are therefore staged, by links, under an include
# root of their own; the root of the repository is on no include path, so a header of a
# higher floor is simply not there.

set(ZQ_FLOOR_ROOT "${PROJECT_BINARY_DIR}/floors")

function(zq_stage root path)
  cmake_path(GET path PARENT_PATH parent)
  file(MAKE_DIRECTORY "${ZQ_FLOOR_ROOT}/${root}/${parent}")
  file(CREATE_LINK "${PROJECT_SOURCE_DIR}/${path}" "${ZQ_FLOOR_ROOT}/${root}/${path}" SYMBOLIC)
endfunction()

# zq_floor(<name> FOLDERS <below zqswiftui/>... [HEADERS <below zqswiftui/>...] [LINKS <floor>...])
function(zq_floor name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "FOLDERS;HEADERS;LINKS")
  set(target zq_${name})

  set(patterns)
  foreach(folder IN LISTS arg_FOLDERS)
    list(APPEND patterns "${PROJECT_SOURCE_DIR}/zqswiftui/${folder}/*.cpp")
    zq_stage(${name} zqswiftui/${folder})
  endforeach()
  foreach(header IN LISTS arg_HEADERS)
    zq_stage(${name} zqswiftui/${header})
  endforeach()

  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${patterns})
  if(NOT sources)
    # An archive needs a member; a floor of headers alone still is a target like the others.
    set(sources "${ZQ_FLOOR_ROOT}/${name}/nothing.cpp")
    file(CONFIGURE OUTPUT "${sources}" CONTENT "")
  endif()

  add_library(${target} STATIC ${sources})
  add_library(ZQSwiftUI::${name} ALIAS ${target})
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name})
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${ZQ_FLOOR_ROOT}/${name}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  target_link_libraries(${target} PUBLIC ${arg_LINKS})
  zq_warnings(${target})
  set_property(GLOBAL APPEND PROPERTY ZQ_FLOORS ${name})
  set_property(GLOBAL PROPERTY ZQ_FLOOR_FOLDERS_${name} ${arg_FOLDERS} ${arg_HEADERS})
endfunction()
