// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/services/appearance.hpp>
#include <zqswiftui/platform/services/background.hpp>
#include <zqswiftui/platform/services/bundle.hpp>
#include <zqswiftui/platform/services/downloads.hpp>
#include <zqswiftui/platform/services/drag_data.hpp>
#include <zqswiftui/platform/services/file_dialogs.hpp>
#include <zqswiftui/platform/services/image_codec.hpp>
#include <zqswiftui/platform/services/main_queue.hpp>
#include <zqswiftui/platform/services/notifications.hpp>
#include <zqswiftui/platform/services/pasteboard.hpp>
#include <zqswiftui/platform/services/preferences.hpp>
#include <zqswiftui/platform/services/recent_documents.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/services/text_measurer.hpp>
#include <zqswiftui/platform/services/workspace.hpp>

namespace zq {

class Clock;  // in clock.hpp, whose dates are dear to read

// One of each service. A program has one platform at a time, from its constructor to its
// destructor; it outlives every view and all background work.
//   zq::Platform::current().mainQueue().post([] { ... });
class Platform {
 public:
  // Stops the program where no platform is installed. Any thread.
  static Platform& current();
  static bool installed();
  // Runs the work with the platform, which stands until it returns; false, and nothing runs, where
  // there is none. For threads that may outlive it: brief work, that waits for nothing. Any thread.
  static bool use(const std::function<void(Platform& platform)>& work);

  Platform() = default;
  virtual ~Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;

  virtual MainQueue& mainQueue() = 0;
  virtual Clock& clock() = 0;
  virtual Background& background() = 0;
  virtual DistributedNotifications& notifications() = 0;
  virtual Pasteboard& pasteboard() = 0;
  virtual DragData& dragData() = 0;
  virtual FileDialogs& fileDialogs() = 0;
  virtual RecentDocuments& recentDocuments() = 0;
  virtual Workspace& workspace() = 0;
  virtual Preferences& preferences() = 0;
  virtual Bundle& bundle() = 0;
  virtual ImageCodec& imageCodec() = 0;
  virtual TextMeasurer& textMeasurer() = 0;
  virtual Downloads& downloads() = 0;
  virtual Appearance& appearance() = 0;

 protected:
  // Last in the constructor of a concrete platform, when its services stand; a second
  // platform stops the program.
  void install();
  // In its destructor, once nothing of the program uses the services any more.
  void uninstall();
};

}  // namespace zq
