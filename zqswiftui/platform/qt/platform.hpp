// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <string>
#include <zqswiftui/platform/qt/desktop.hpp>
#include <zqswiftui/platform/services/platform.hpp>

class QApplication;

namespace zq::qt {

// The desktop as Qt reaches it. Made on the interface thread once the application stands and
// has its names, before the first view; ends before the application does.
//   QApplication app(argc, argv);
//   zq::qt::Platform platform(app);
class Platform final : public zq::Platform {
 public:
  explicit Platform(QApplication& application);
  // The documents that are opened are brought into that file instead of the desktop's list, and
  // those of it are recent.
  Platform(QApplication& application, const std::string& recentDocuments);
  ~Platform() override;

  zq::MainQueue& mainQueue() override;
  zq::Clock& clock() override;
  zq::Background& background() override;
  zq::DistributedNotifications& notifications() override;
  zq::Pasteboard& pasteboard() override;
  zq::DragData& dragData() override;
  zq::FileDialogs& fileDialogs() override;
  zq::RecentDocuments& recentDocuments() override;
  zq::Workspace& workspace() override;
  zq::Preferences& preferences() override;
  zq::Bundle& bundle() override;
  zq::ImageCodec& imageCodec() override;
  zq::TextMeasurer& textMeasurer() override;
  zq::Downloads& downloads() override;
  // Lets the host choose what the desktop would.
  Appearance& appearance() override;

 private:
  struct Services;
  std::unique_ptr<Services> services_;
};

}  // namespace zq::qt
