# The version, the man page and the completion of zqc.

target_compile_definitions(${name}-parts PRIVATE ZQ_VERSION="${PROJECT_VERSION}")
if(ZQ_INSTALL AND ZQ_PROGRAMS)
  install(FILES "${PROJECT_SOURCE_DIR}/docs/zqc.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
  install(FILES "${CMAKE_CURRENT_LIST_DIR}/zqc.bash-completion"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions" RENAME zqc)
endif()
