// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <memory>
#include <vector>
#include <zqswiftui/platform/base/pressure_task.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>

namespace zq {
namespace {

class PressureTask : public testing::Test {
 protected:
  HeadlessPlatform platform;
  std::vector<double> ranAt;
  std::vector<int> ran;

  std::function<void()> note(int value) {
    return [this, value] {
      ran.push_back(value);
      ranAt.push_back(platform.clock().now());
    };
  }
};

TEST_F(PressureTask, aBurstRunsOnceAfterItsLastRequest) {
  ZQPressureTask task;
  for (int i = 1; i <= 10; ++i) {
    task.perform(0.25, note(i));
    platform.advance(0.1);
  }
  EXPECT_TRUE(ran.empty());
  platform.advance(1);
  EXPECT_EQ(ran, (std::vector{10}));
  EXPECT_NEAR(ranAt.front(), 0.9 + 0.25, 1e-6);
}

TEST_F(PressureTask, aShorterDelayDoesNotWaitForTheLongerOneItReplaces) {
  ZQPressureTask task;
  task.perform(5, note(1));
  task.perform(0.1, note(2));
  platform.advance(0.1);
  EXPECT_EQ(ran, (std::vector{2}));
  platform.advance(10);
  EXPECT_EQ(ran, (std::vector{2}));
}

TEST_F(PressureTask, anActionMayAskAgainForItself) {
  ZQPressureTask task;
  task.perform(0.1, [&] {
    note(1)();
    task.perform(0.1, note(2));
  });
  platform.advance(0.15);
  EXPECT_EQ(ran, (std::vector{1}));
  platform.advance(0.05);
  EXPECT_EQ(ran, (std::vector{1, 2}));
}

TEST_F(PressureTask, destructionDropsTheActionUnlessTheActionHoldsTheTask) {
  auto dropped = std::make_unique<ZQPressureTask>();
  dropped->perform(0.1, note(1));
  dropped.reset();
  auto held = std::make_shared<ZQPressureTask>();
  const std::weak_ptr<ZQPressureTask> watch = held;
  held->perform(0.1, [this, held] { note(2)(); });
  held.reset();
  platform.advance(1);
  EXPECT_EQ(ran, (std::vector{2}));
  EXPECT_TRUE(watch.expired());
}

TEST_F(PressureTask, aNormalExitRunsWhatIsPendingOnce) {
  ZQPressureTask first;
  ZQPressureTask second;
  first.perform(100, note(1));
  second.perform(100, note(2));
  second.flush();
  EXPECT_EQ(ran, (std::vector{2}));
  platform.quit();
  EXPECT_EQ(ran, (std::vector{2, 1}));
  platform.advance(200);
  EXPECT_EQ(ran, (std::vector{2, 1}));
}

TEST(PressureTaskAcrossPlatforms, aTaskThatOutlivesAPlatformWorksOnTheNext) {
  ZQPressureTask task;
  int ran = 0;
  {
    const HeadlessPlatform platform;
    task.perform(0.1, [&] { ran += 100; });
  }
  HeadlessPlatform platform;
  task.perform(0.25, [&] { ++ran; });
  platform.advance(1);
  EXPECT_EQ(ran, 1);
}

}  // namespace
}  // namespace zq
