// ZQSwiftUI, MIT licence; see LICENSE.
#include <QApplication>
#include <zqswiftui/platform/base/pressure_task.hpp>
#include <zqswiftui/platform/base/saves.hpp>
#include <zqswiftui/platform/base/thread_pool.hpp>
#include <zqswiftui/platform/qt/accessibility.hpp>
#include <zqswiftui/platform/qt/bundle.hpp>
#include <zqswiftui/platform/qt/bus_notifications.hpp>
#include <zqswiftui/platform/qt/desktop_documents.hpp>
#include <zqswiftui/platform/qt/downloads.hpp>
#include <zqswiftui/platform/qt/drag_data.hpp>
#include <zqswiftui/platform/qt/file_dialogs.hpp>
#include <zqswiftui/platform/qt/image_codec.hpp>
#include <zqswiftui/platform/qt/main_queue.hpp>
#include <zqswiftui/platform/qt/pasteboard.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/platform/qt/preferences.hpp>
#include <zqswiftui/platform/qt/text_measurer.hpp>

namespace zq::qt {
namespace {

void writeWhatWaits() {
  ZQPressureTask::flushAll();
  Saves::finish();
}

}  // namespace

struct Platform::Services {
  explicit Services(const std::string& list) : recentDocuments(list) {}

  Clock clock;
  MainQueue mainQueue;
  BusNotifications notifications{mainQueue};
  Pasteboard pasteboard{mainQueue};
  DragData dragData{mainQueue};
  FileDialogs fileDialogs;
  DesktopDocuments recentDocuments;
  Workspace workspace;
  Preferences preferences{mainQueue};
  Bundle bundle;
  ImageCodec imageCodec;
  TextMeasurer textMeasurer;
  Downloads downloads{mainQueue};
  Appearance appearance;
  ThreadPool background;
};

Platform::Platform(QApplication& application)
    : Platform(application, DesktopDocuments::desktopList()) {}

Platform::Platform(QApplication& application, const std::string& recentDocuments)
    : services_(std::make_unique<Services>(recentDocuments)) {
  installAccessibility();
  install();
  // What waits to be written is written while the event loop's services still stand.
  QObject::connect(&application, &QCoreApplication::aboutToQuit, &application, writeWhatWaits);
}

Platform::~Platform() {
  writeWhatWaits();
  services_->recentDocuments.finish();
  ZQPressureTask::dropAll();
  services_->background.close();
  // What is dropped may still ask for services as it goes.
  services_->downloads.dropAll();
  services_->mainQueue.dropAll();
  uninstall();
}

zq::MainQueue& Platform::mainQueue() {
  return services_->mainQueue;
}

zq::Clock& Platform::clock() {
  return services_->clock;
}

zq::Background& Platform::background() {
  return services_->background;
}

zq::DistributedNotifications& Platform::notifications() {
  return services_->notifications;
}

zq::Pasteboard& Platform::pasteboard() {
  return services_->pasteboard;
}

zq::DragData& Platform::dragData() {
  return services_->dragData;
}

zq::FileDialogs& Platform::fileDialogs() {
  return services_->fileDialogs;
}

zq::RecentDocuments& Platform::recentDocuments() {
  return services_->recentDocuments;
}

zq::Workspace& Platform::workspace() {
  return services_->workspace;
}

zq::Preferences& Platform::preferences() {
  return services_->preferences;
}

zq::Bundle& Platform::bundle() {
  return services_->bundle;
}

zq::ImageCodec& Platform::imageCodec() {
  return services_->imageCodec;
}

zq::TextMeasurer& Platform::textMeasurer() {
  return services_->textMeasurer;
}

zq::Downloads& Platform::downloads() {
  return services_->downloads;
}

Appearance& Platform::appearance() {
  return services_->appearance;
}

}  // namespace zq::qt
