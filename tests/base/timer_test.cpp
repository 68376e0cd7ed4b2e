// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>

namespace zq {
namespace {

TEST(Timer, aSecondAtThirtyFramesIsThirtyTicks) {
  HeadlessPlatform platform;
  ZQTimer timer;
  int ticks = 0;
  timer.loop("", 1.0 / 30, std::nullopt, false, [&] { ++ticks; });
  for (int second = 1; second <= 20; ++second) {
    platform.advance(1);
    EXPECT_EQ(ticks, 30 * second);
  }
}

TEST(Timer, ticksMissedByABusyThreadAreDroppedAndTheNextKeepTheirTimes) {
  HeadlessPlatform platform;
  ZQTimer timer;
  std::vector<double> ticks;
  timer.loop("", 0.5, std::nullopt, false, [&] { ticks.push_back(platform.clock().now()); });
  platform.advance(0.5);
  platform.stall(3.2);
  platform.advance(0.4);
  ASSERT_EQ(ticks.size(), 3U);
  EXPECT_NEAR(ticks[1], 3.7, 1e-6);
  EXPECT_NEAR(ticks[2], 4.0, 1e-6);
}

TEST(Timer, aOneShotArmedAgainWaitsAnewAndRunsOnce) {
  HeadlessPlatform platform;
  ZQTimer timer;
  int fired = 0;
  for (int i = 0; i < 3; ++i) {
    timer.fireOnce(0.1, false, [&] { ++fired; });
    platform.advance(0.09);
  }
  EXPECT_EQ(fired, 0);
  platform.advance(1);
  EXPECT_EQ(fired, 1);
  EXPECT_FALSE(timer.isActive());
}

TEST(Timer, immediatelyMeansNowAndForALoopAgainAfterEachInterval) {
  HeadlessPlatform platform;
  ZQTimer once;
  ZQTimer loop;
  int fired = 0;
  int ticks = 0;
  once.fireOnce(1, true, [&] { ++fired; });
  loop.loop("", 1, std::nullopt, true, [&] { ++ticks; });
  EXPECT_EQ(fired + ticks, 2);
  platform.advance(2);
  EXPECT_EQ(fired, 1);
  EXPECT_EQ(ticks, 3);
}

TEST(Timer, aTickMayStopOrDestroyItsTimer) {
  HeadlessPlatform platform;
  int ticks = 0;
  auto timer = std::make_unique<ZQTimer>();
  timer->loop("", 0.1, std::nullopt, false, [&] {
    ++ticks;
    timer.reset();
  });
  platform.advance(1);
  EXPECT_EQ(ticks, 1);
}

TEST(Timer, intervalsThatMakeNoSenseNeitherSpinNorFire) {
  HeadlessPlatform platform;
  ZQTimer zero;
  ZQTimer never;
  int ticks = 0;
  zero.loop("", 0, std::nullopt, false, [&] { ++ticks; });
  never.loop("", std::numeric_limits<double>::quiet_NaN(), std::nullopt, false,
             [&] { ticks += 1000; });
  platform.advance(0.01);
  EXPECT_EQ(ticks, 10);
}

}  // namespace
}  // namespace zq
