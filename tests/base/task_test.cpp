// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/base/url_loader.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>

namespace zq {
namespace {

bool onInterfaceThread() {
  return Platform::current().mainQueue().isMainThread();
}

Task<std::string> greeting(std::string name) {
  co_await onBackground();
  co_return "hello " + name;
}

Task<void> report(std::shared_ptr<std::vector<std::string>> lines) {
  lines->push_back(onInterfaceThread() ? "main" : "background");
  lines->push_back(co_await greeting("you"));
  co_await afterDelay(1);
  co_await onMain();
  lines->push_back(onInterfaceThread() ? "main" : "background");
}

class TaskTest : public testing::TestWithParam<BackgroundMode> {
 protected:
  HeadlessPlatform platform{GetParam()};
  std::shared_ptr<std::vector<std::string>> lines = std::make_shared<std::vector<std::string>>();
};

INSTANTIATE_TEST_SUITE_P(Modes, TaskTest,
                         testing::Values(BackgroundMode::deterministic, BackgroundMode::threads));

TEST_P(TaskTest, beginsInTheBackgroundAndEndsOnTheInterfaceThread) {
  detach(report(lines));
  platform.advance(1);
  EXPECT_EQ(*lines, (std::vector<std::string>{"background", "hello you", "main"}));
  EXPECT_EQ(lines.use_count(), 1);
}

TEST_P(TaskTest, droppingTheTokenUnwindsAtTheNextWait) {
  Subscription token = start(report(lines));
  platform.advance(0.5);
  EXPECT_EQ(lines->size(), 2U);
  token.reset();
  platform.advance(1);
  EXPECT_EQ(lines->size(), 2U);
  EXPECT_EQ(lines.use_count(), 1);
}

TEST_P(TaskTest, aTaskThatNeverBeganLetsGoOfWhatItHolds) {
  { const Task<void> unused = report(lines); }
  EXPECT_EQ(lines.use_count(), 1);
}

TEST_P(TaskTest, aDownloadsAnswerIsCarriedAcrossThreads) {
  platform.downloads().setAnswer("http://host/a", {{7, 8}, ""}, 2);
  std::vector<std::string> heard;
  for (const std::string url : {"http://host/a", "http://host/b"}) {
    detach(thenOnMain<Result<Bytes>>(loadUrl(*Url::parse(url)), [&](const Result<Bytes>& bytes) {
      EXPECT_TRUE(onInterfaceThread());
      heard.push_back(bytes.ok() ? std::to_string(bytes.value().size()) : bytes.error().sentence);
    }));
  }
  platform.advance(3);
  EXPECT_EQ(heard, (std::vector<std::string>{
                       "cannot load http://host/b: the server has no http://host/b", "2"}));
}

TEST(TaskAtTheEnd, aPlatformThatEndsUnwindsWhatStillWaits) {
  const auto lines = std::make_shared<std::vector<std::string>>();
  {
    HeadlessPlatform platform;
    detach(report(lines));
    platform.advance(0.5);
    detach(report(lines));
  }
  EXPECT_EQ(lines->size(), 2U);
  EXPECT_EQ(lines.use_count(), 1);
}

TEST(Work, aSerialQueueKeepsItsOrderOnThreadsAndSyncComesAfterWhatWasPosted) {
  HeadlessPlatform platform(BackgroundMode::threads);
  SerialQueue queue("test");
  std::vector<int> order;  // without a lock: the queue is the lock
  for (int i = 0; i < 200; ++i) queue.post([&order, i] { order.push_back(i); });
  std::size_t seen = 0;
  queue.sync([&] { seen = order.size(); });
  EXPECT_EQ(seen, 200U);
  platform.runUntilIdle();
  for (int i = 0; i < 200; ++i) EXPECT_EQ(order[static_cast<std::size_t>(i)], i);
}

TEST(Work, aSlowPieceOfASerialQueueKeepsNoOtherThreadFromItsWork) {
  HeadlessPlatform platform(BackgroundMode::threads);
  SerialQueue queue("slow");
  std::promise<void> release, done;
  queue.post([slow = release.get_future().share()] { slow.wait(); });
  for (int i = 0; i < 20; ++i) queue.post([] {});
  Queue::execute(false, [&] { done.set_value(); });
  const auto waited = done.get_future().wait_for(std::chrono::seconds(20));
  EXPECT_EQ(waited, std::future_status::ready);
  release.set_value();
  platform.runUntilIdle();
}

TEST(Work, aSerialQueueThatLostATurnWithOnePlatformGoesOnWithTheNext) {
  SerialQueue queue("two platforms");
  int runs = 0;
  {
    HeadlessPlatform platform;
    queue.post([&] { ++runs; });
  }
  HeadlessPlatform platform;
  queue.post([&] { ++runs; });
  platform.runUntilIdle();
  EXPECT_EQ(runs, 2);
}

TEST(Work, executeRunsAtOnceOnlyOnTheInterfaceThread) {
  HeadlessPlatform platform;
  std::string order;
  XMain::execute([&] { order += 'a'; });
  XMain::post([&] { order += 'c'; });
  order += 'b';
  Queue::execute(false, [&] {
    XMain::execute([&] { order += 'e'; });
    order += 'd';
  });
  platform.runUntilIdle();
  EXPECT_EQ(order, "abcde");
}

}  // namespace
}  // namespace zq
