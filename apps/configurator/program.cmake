# What a desktop needs to show the program and to open its files.
if(ZQ_INSTALL)
  set(desktop "${CMAKE_CURRENT_LIST_DIR}/desktop")
  set(share "${CMAKE_INSTALL_DATADIR}")
  install(TARGETS ${name})
  install(FILES "${desktop}/zq-configurator.desktop" DESTINATION "${share}/applications")
  install(FILES "${desktop}/zq-configurator.xml" DESTINATION "${share}/mime/packages")
  install(FILES "${desktop}/zq-configurator.svg" DESTINATION "${share}/icons/hicolor/scalable/apps")
endif()
# The window's own icon, where no desktop knows the program.
file(COPY "${CMAKE_CURRENT_LIST_DIR}/desktop/zq-configurator.svg"
  DESTINATION "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
