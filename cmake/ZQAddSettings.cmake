# zq_add_settings(<target> <project.zquic> [CLASS <name>] [NAMESPACE <name>]
#                 [HEADER <file> | SPLIT])
#
# Makes the settings of a project file a header that the target can include: "settings.hpp",
# or the name of the class in lower case. It is made again whenever the project file changes,
# and rewritten only when its text does, so that nothing is compiled for nothing. SPLIT makes
# one small header a group besides, for projects of thousands of settings.
#
# The generator is the zqc of this library; ZQ_ZQC names another one, for instance where the
# program is built for another machine.

function(zq_add_settings target project)
  cmake_parse_arguments(PARSE_ARGV 2 arg "SPLIT" "CLASS;NAMESPACE;HEADER" "")
  if(arg_UNPARSED_ARGUMENTS OR arg_KEYWORDS_MISSING_VALUES)
    message(FATAL_ERROR "zq_add_settings(<target> <project.zquic> [CLASS <name>] "
      "[NAMESPACE <name>] [HEADER <file> | SPLIT]) cannot take: "
      "${arg_UNPARSED_ARGUMENTS} ${arg_KEYWORDS_MISSING_VALUES}")
  endif()
  if(arg_SPLIT AND arg_HEADER)
    message(FATAL_ERROR "zq_add_settings: with SPLIT the headers have the names of their classes.")
  endif()
  cmake_path(ABSOLUTE_PATH project BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" NORMALIZE)
  if(NOT arg_CLASS)
    set(arg_CLASS Settings)
  endif()
  if(NOT arg_HEADER)
    string(REGEX REPLACE "([a-z0-9])([A-Z])" "\\1_\\2" arg_HEADER "${arg_CLASS}.hpp")
    string(TOLOWER "${arg_HEADER}" arg_HEADER)
  endif()
  if(ZQ_ZQC)
    set(zqc "${ZQ_ZQC}")
  elseif(TARGET ZQSwiftUI::zqc)
    set(zqc ZQSwiftUI::zqc)
  else()
    message(FATAL_ERROR "zq_add_settings needs zqc, which this ZQSwiftUI was built without: "
      "build it with ZQ_PROGRAMS=ON, or name one by ZQ_ZQC.")
  endif()

  set(folder "${CMAKE_CURRENT_BINARY_DIR}/zq_settings/${target}")
  set(header "${folder}/${arg_HEADER}")
  file(MAKE_DIRECTORY "${folder}")
  set(output -o "${header}")
  if(arg_SPLIT)
    set(output --split "${folder}")
  endif()
  # The header keeps its age when its text stays; the stamp tells that it was looked at.
  add_custom_command(
    OUTPUT "${header}.stamp"
    BYPRODUCTS "${header}"
    COMMAND ${zqc} cpp "${project}" --class "${arg_CLASS}" --namespace "${arg_NAMESPACE}"
            ${output}
    COMMAND "${CMAKE_COMMAND}" -E touch "${header}.stamp"
    DEPENDS "${project}" ${zqc}
    COMMENT "Settings of ${target}: ${arg_HEADER}"
    VERBATIM)
  string(MAKE_C_IDENTIFIER "${target}_${arg_HEADER}" made)
  add_custom_target(${made} DEPENDS "${header}.stamp")
  add_dependencies(${target} ${made})
  target_include_directories(${target} PRIVATE "${folder}")
endfunction()
