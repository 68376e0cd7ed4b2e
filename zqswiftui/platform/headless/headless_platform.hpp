// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/headless/headless_services.hpp>
#include <zqswiftui/platform/headless/headless_text_measurer.hpp>
#include <zqswiftui/platform/headless/headless_time.hpp>

namespace zq {

// A platform without a display, for tests and command lines: nothing happens but what is
// asked for, time is virtual, and two runs are identical. Created, advanced and destroyed on
// one thread, which is the interface thread. What still waits at its end is dropped.
//   HeadlessPlatform platform;
//   task.perform(0.25, save);
//   platform.advance(0.25);  // save has run
class HeadlessPlatform : public Platform {
 public:
  explicit HeadlessPlatform(BackgroundMode mode = BackgroundMode::deterministic);
  ~HeadlessPlatform() override;

  // Drains, then moves the clock from one due call to the next, draining after each.
  void advance(double seconds) { time_.advance(seconds); }
  // Runs what was posted and all background work, until nothing is left that needs no time.
  void runUntilIdle() { time_.runUntilIdle(); }
  // Lets time pass without running anything, as when the interface thread is busy.
  void stall(double seconds) { time_.stall(seconds); }
  // What a normal exit does: pending debounced actions run now.
  void quit();

  HeadlessTime& mainQueue() override { return time_; }
  HeadlessTime& clock() override { return time_; }
  HeadlessTime& background() override { return time_; }
  HeadlessNotifications& notifications() override { return notifications_; }
  HeadlessPasteboard& pasteboard() override { return pasteboard_; }
  HeadlessDragData& dragData() override { return dragData_; }
  HeadlessFileDialogs& fileDialogs() override { return fileDialogs_; }
  HeadlessRecentDocuments& recentDocuments() override { return recentDocuments_; }
  HeadlessWorkspace& workspace() override { return workspace_; }
  HeadlessPreferences& preferences() override { return preferences_; }
  HeadlessBundle& bundle() override { return bundle_; }
  HeadlessImageCodec& imageCodec() override { return imageCodec_; }
  HeadlessTextMeasurer& textMeasurer() override { return textMeasurer_; }
  HeadlessDownloads& downloads() override { return downloads_; }
  HeadlessAppearance& appearance() override { return appearance_; }

 private:
  HeadlessTime time_;
  HeadlessNotifications notifications_{time_};
  HeadlessPasteboard pasteboard_{time_};
  HeadlessDragData dragData_{time_};
  HeadlessFileDialogs fileDialogs_{time_};
  HeadlessRecentDocuments recentDocuments_{time_};
  HeadlessWorkspace workspace_;
  HeadlessPreferences preferences_;
  HeadlessBundle bundle_;
  HeadlessImageCodec imageCodec_;
  HeadlessTextMeasurer textMeasurer_;
  HeadlessDownloads downloads_{time_};
  HeadlessAppearance appearance_;
};

}  // namespace zq
