# Two export sets: who wants ZQSwiftUI::Core alone must not be asked for Qt.

include(CMakePackageConfigHelpers)
set(ZQ_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/ZQSwiftUI")

install(TARGETS zq_services zq_base zq_toolkit zq_headless zq_components zq_core
  EXPORT ZQSwiftUICoreTargets)
if(ZQ_PROGRAMS)
  install(TARGETS zqc EXPORT ZQSwiftUICoreTargets)
endif()
install(EXPORT ZQSwiftUICoreTargets NAMESPACE ZQSwiftUI:: DESTINATION "${ZQ_PACKAGE_DIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/zqswiftui" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
  FILES_MATCHING PATTERN "*.hpp" PATTERN "platform/qt" EXCLUDE)
if(ZQ_QT)
  install(TARGETS zq_qt EXPORT ZQSwiftUIQtTargets)
  install(EXPORT ZQSwiftUIQtTargets NAMESPACE ZQSwiftUI:: DESTINATION "${ZQ_PACKAGE_DIR}")
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/zqswiftui/platform/qt"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/zqswiftui/platform" FILES_MATCHING PATTERN "*.hpp")
endif()

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/ZQSwiftUIConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/package/ZQSwiftUIConfig.cmake" INSTALL_DESTINATION "${ZQ_PACKAGE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/package/ZQSwiftUIConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_SOURCE_DIR}/cmake/ZQAddSettings.cmake" DESTINATION "${ZQ_PACKAGE_DIR}")
install(DIRECTORY "${PROJECT_BINARY_DIR}/package/" DESTINATION "${ZQ_PACKAGE_DIR}")
