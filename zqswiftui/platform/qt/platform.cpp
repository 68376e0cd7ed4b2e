// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <zqswiftui/platform/base/pressure_task.hpp>
#include <zqswiftui/platform/base/saves.hpp>
#include <zqswiftui/platform/qt/accessibility.hpp>
#include <zqswiftui/platform/qt/platform.hpp>

namespace zq::qt {
namespace {

void writeWhatWaits() {
  ZQPressureTask::flushAll();
  Saves::finish();
}

}  // namespace

Platform::Platform(QApplication& application, const std::string& recentDocuments)
    : recentDocuments_(recentDocuments) {
  installAccessibility();
  install();
  // What waits to be written is written while the event loop's services still stand.
  QObject::connect(&application, &QCoreApplication::aboutToQuit, &application, writeWhatWaits);
}

Platform::~Platform() {
  writeWhatWaits();
  recentDocuments_.finish();
  ZQPressureTask::dropAll();
  background_.close();
  // What is dropped may still ask for services as it goes.
  downloads_.dropAll();
  mainQueue_.dropAll();
  uninstall();
}

}  // namespace zq::qt
