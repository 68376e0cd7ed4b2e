// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/base/thread_pool.hpp>
#include <zqswiftui/platform/qt/bundle.hpp>
#include <zqswiftui/platform/qt/bus_notifications.hpp>
#include <zqswiftui/platform/qt/desktop.hpp>
#include <zqswiftui/platform/qt/desktop_documents.hpp>
#include <zqswiftui/platform/qt/downloads.hpp>
#include <zqswiftui/platform/qt/drag_data.hpp>
#include <zqswiftui/platform/qt/file_dialogs.hpp>
#include <zqswiftui/platform/qt/image_codec.hpp>
#include <zqswiftui/platform/qt/main_queue.hpp>
#include <zqswiftui/platform/qt/pasteboard.hpp>
#include <zqswiftui/platform/qt/preferences.hpp>
#include <zqswiftui/platform/qt/text_measurer.hpp>
#include <zqswiftui/platform/services/platform.hpp>

class QApplication;

namespace zq::qt {

// The desktop as Qt reaches it. Made on the interface thread once the application stands and
// has its names, before the first view; ends before the application does.
//   QApplication app(argc, argv);
//   zq::qt::Platform platform(app);
class Platform final : public zq::Platform {
 public:
  // The documents that are opened are brought into that file, and those of it are recent.
  explicit Platform(QApplication& application,
                    const std::string& recentDocuments = DesktopDocuments::desktopList());
  ~Platform() override;

  MainQueue& mainQueue() override { return mainQueue_; }
  Clock& clock() override { return clock_; }
  Background& background() override { return background_; }
  DistributedNotifications& notifications() override { return notifications_; }
  Pasteboard& pasteboard() override { return pasteboard_; }
  DragData& dragData() override { return dragData_; }
  FileDialogs& fileDialogs() override { return fileDialogs_; }
  RecentDocuments& recentDocuments() override { return recentDocuments_; }
  Workspace& workspace() override { return workspace_; }
  Preferences& preferences() override { return preferences_; }
  Bundle& bundle() override { return bundle_; }
  ImageCodec& imageCodec() override { return imageCodec_; }
  TextMeasurer& textMeasurer() override { return textMeasurer_; }
  Downloads& downloads() override { return downloads_; }
  // Lets the host choose what the desktop would.
  Appearance& appearance() override { return appearance_; }

 private:
  Clock clock_;
  MainQueue mainQueue_;
  BusNotifications notifications_{mainQueue_};
  Pasteboard pasteboard_{mainQueue_};
  DragData dragData_{mainQueue_};
  FileDialogs fileDialogs_;
  DesktopDocuments recentDocuments_;
  Workspace workspace_;
  Preferences preferences_{mainQueue_};
  Bundle bundle_;
  ImageCodec imageCodec_;
  TextMeasurer textMeasurer_;
  Downloads downloads_{mainQueue_};
  Appearance appearance_;
  ThreadPool background_;
};

}  // namespace zq::qt
