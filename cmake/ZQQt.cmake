# The one floor that knows Qt.

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets Network DBus)
zq_floor(qt FOLDERS platform/qt LINKS zq_core
  Qt6::Core Qt6::Gui Qt6::Widgets Qt6::Network Qt6::DBus)
set_target_properties(zq_qt PROPERTIES EXPORT_NAME Qt)
add_library(ZQSwiftUI::Qt ALIAS zq_qt)
target_compile_definitions(zq_qt PRIVATE QT_NO_KEYWORDS)
zq_precompile(zq_qt <zqswiftui/platform/toolkit/toolkit.hpp> <QApplication> <QImage> <QPainter>
  <QStaticText> <QTextLayout> <QThread> <QUrl>)

# libdbus itself: its limit on waiting messages can be raised only there.
find_library(ZQ_DBUS_LIBRARY dbus-1)
find_path(ZQ_DBUS_INCLUDE dbus/dbus.h PATH_SUFFIXES dbus-1.0)
find_path(ZQ_DBUS_ARCH_INCLUDE dbus/dbus-arch-deps.h
  PATHS /usr/lib/${CMAKE_LIBRARY_ARCHITECTURE}/dbus-1.0/include
        /usr/lib/dbus-1.0/include /usr/lib64/dbus-1.0/include)
if(NOT ZQ_DBUS_LIBRARY OR NOT ZQ_DBUS_INCLUDE OR NOT ZQ_DBUS_ARCH_INCLUDE)
  message(FATAL_ERROR "libdbus is missing: install libdbus-1-dev, or configure with -DZQ_QT=OFF.")
endif()
target_include_directories(zq_qt SYSTEM PRIVATE ${ZQ_DBUS_INCLUDE} ${ZQ_DBUS_ARCH_INCLUDE})
target_link_libraries(zq_qt PRIVATE dbus-1)

# libxcb: what another program has on the clipboard or drops is asked for without waiting in Qt.
find_library(ZQ_XCB_LIBRARY xcb)
find_path(ZQ_XCB_INCLUDE xcb/xcb.h)
if(NOT ZQ_XCB_LIBRARY OR NOT ZQ_XCB_INCLUDE)
  message(FATAL_ERROR "libxcb is missing: install libxcb1-dev, or configure with -DZQ_QT=OFF.")
endif()
target_include_directories(zq_qt SYSTEM PRIVATE ${ZQ_XCB_INCLUDE})
target_link_libraries(zq_qt PRIVATE xcb)

# libpng: Qt's reader lets it print what is wrong with a file on standard error.
find_library(ZQ_PNG_LIBRARY NAMES png16 png)
find_path(ZQ_PNG_INCLUDE png.h)
if(NOT ZQ_PNG_LIBRARY OR NOT ZQ_PNG_INCLUDE)
  message(FATAL_ERROR "libpng is missing: install libpng-dev, or configure with -DZQ_QT=OFF.")
endif()
target_include_directories(zq_qt SYSTEM PRIVATE ${ZQ_PNG_INCLUDE})
target_link_libraries(zq_qt PRIVATE png16)

# libexpat: reads the desktop's list of documents three times as fast as Qt does, and tells where in
# it each element stands.
find_library(ZQ_EXPAT_LIBRARY expat)
find_path(ZQ_EXPAT_INCLUDE expat.h)
if(NOT ZQ_EXPAT_LIBRARY OR NOT ZQ_EXPAT_INCLUDE)
  message(FATAL_ERROR "libexpat is missing: install libexpat1-dev, or configure with -DZQ_QT=OFF.")
endif()
target_include_directories(zq_qt SYSTEM PRIVATE ${ZQ_EXPAT_INCLUDE})
target_link_libraries(zq_qt PRIVATE expat)
