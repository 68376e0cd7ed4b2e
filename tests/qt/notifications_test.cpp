// ZQSwiftUI, MIT licence; see LICENSE.
// What other threads post while a window changes its size.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <tests/qt/support.hpp>
#include <thread>
#include <zqswiftui/bindings/zq_notificable_image_view.hpp>
#include <zqswiftui/bindings/zq_notificable_percentage_view.hpp>
#include <zqswiftui/bindings/zq_notificable_text_view.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>
#include <zqswiftui/platform/qt/host_widget.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq::qt {
namespace {

void postAll(int i) {
  const auto mark = static_cast<std::uint8_t>(i);
  ZQNotify::notify("resized", "text " + std::to_string(i));
  ZQNotify::notify("resized", i % 100 / 1e2);
  ZQNotify::notify("resized", ZQImage::fromPixels({1, 1, {mark, mark, mark, 255}}));
}

TEST(Notifications, aSecondThreadFeedsAWindowThatIsBeingResized) {
  HostWidget host(
      VStack({ZQNotificableTextView("resized"), ZQNotificablePercentageView({.key = "resized"}),
              ZQNotificableImageView("resized")}));
  host.resize(100, 100);
  host.show();
  settle();
  std::atomic<bool> done{false};
  std::thread feeder([&] {
    for (int i = 0; !done; ++i) postAll(i);
  });
  for (int i = 0; i < 100; ++i) {
    const WorkCounts before = host.host().counts();
    host.resize(100 + i * 3 % 200, 80 + i * 7 % 120);
    settle();
    const WorkCounts after = host.host().counts();
    EXPECT_LE(after.bodies - before.bodies, 4 * (after.frames - before.frames))
        << "three views and the bar of one, at most once a frame";
  }
  done = true;
  feeder.join();
  postAll(75);
  const auto shows = [&](const std::string& text) {
    return host.host().displayListText().find(text) != std::string::npos;
  };
  EXPECT_TRUE(waitFor([&] { return shows("text 75") && shows("75 %"); }));
  EXPECT_TRUE(waitFor([&] { return !host.host().animating(); }));
  const QImage all = host.grab().toImage();
  EXPECT_EQ(all.pixelColor(all.width() / 2, all.height() - 10), QColor(75, 75, 75));
}

}  // namespace
}  // namespace zq::qt
