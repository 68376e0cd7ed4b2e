# What every target of the project shares: language, warnings, sanitizers, ccache.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC OFF)

if(PROJECT_IS_TOP_LEVEL)
  set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
  set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
  if(NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(ZQ_CCACHE ccache)
    if(ZQ_CCACHE)
      set(CMAKE_CXX_COMPILER_LAUNCHER "${ZQ_CCACHE}")
    endif()
  endif()
endif()

if(ZQ_SANITIZE)
  add_compile_options(-fsanitize=${ZQ_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ZQ_SANITIZE})
  if(ZQ_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
endif()

# The warnings are ours alone: they never travel to who links us.
function(zq_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(ZQ_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

# 1 where one of the sources reaches for the Qt floor. The sources become inputs of the
# configure step, so that an include added later is seen. 0 otherwise.
function(zq_uses_qt result)
  set(found 0)
  foreach(source IN LISTS ARGN)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}")
    file(STRINGS "${source}" lines REGEX "^#include <(zqswiftui/platform/qt/|Q[A-Z])" LIMIT_COUNT 1)
    if(lines)
      set(found 1)
    endif()
  endforeach()
  set(${result} ${found} PARENT_SCOPE)
endfunction()
