// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <apps/gallery/gallery_page.hpp>
#include <thread>
#include <zqswiftui/platform/headless/harness.hpp>

namespace zq::gallery {
namespace {

TEST(NotificationsPage, itsWorkerStopsWhenItIsAskedToMayBeginAgainAndGoesWithThePage) {
  Harness screen(findPage("notifications")->content(), {600, 600});
  for (int i = 0; i < 2; ++i) {
    screen.click(screen.button("Start"));
    ASSERT_TRUE(screen.button("Stop"));
    screen.click(screen.button("Stop"));
    while (!screen.button("Start")) {
      std::this_thread::yield();
      screen.settle();
    }
    EXPECT_TRUE(screen.findText("Stopped"));
  }
  screen.click(screen.button("Start"));
  screen.setRoot(View());  // the page goes while it works
}

}  // namespace
}  // namespace zq::gallery
