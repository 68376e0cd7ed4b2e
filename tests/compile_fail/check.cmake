# Compiles BAD and its good twin without writing anything; see CompileFail.cmake.

string(REGEX REPLACE "\\.cpp$" ".good.cpp" good "${BAD}")
string(REPLACE "|" ";" folders "${INCLUDES}")
set(flags -std=c++20 -fsyntax-only)
foreach(folder IN LISTS folders)
  list(APPEND flags -I "${folder}")
endforeach()

execute_process(COMMAND ${COMPILER} ${flags} "${good}"
  RESULT_VARIABLE result ERROR_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "The good twin must compile, and does not: ${good}\n${output}")
endif()

execute_process(COMMAND ${COMPILER} ${flags} "${BAD}"
  RESULT_VARIABLE result ERROR_VARIABLE output)
if(result EQUAL 0)
  message(FATAL_ERROR "This must not compile, and does: ${BAD}")
endif()
if(SAYS AND NOT output MATCHES "${SAYS}")
  message(FATAL_ERROR "Refused, but not for the reason meant (${SAYS}): ${BAD}\n${output}")
endif()
