// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>
#include <zqswiftui/platform/headless/headless_platform.hpp>

namespace zq {
namespace {

TEST(PlatformDeathTest, askingForAServiceWithoutAPlatformStopsTheProgram) {
  EXPECT_DEATH(Platform::current(), "none is installed");
}

TEST(PlatformDeathTest, aSecondPlatformStopsTheProgram) {
  const HeadlessPlatform first;
  EXPECT_DEATH(const HeadlessPlatform second, "another one is installed");
}

TEST(Platform, isInstalledFromConstructionToDestruction) {
  EXPECT_FALSE(Platform::installed());
  {
    const HeadlessPlatform platform;
    EXPECT_EQ(&Platform::current(), &platform);
  }
  EXPECT_FALSE(Platform::installed());
}

TEST(HeadlessPlatform, dueCallsRunByDeadlineThenByPostingOrderWithPostedWorkBetween) {
  HeadlessPlatform platform;
  std::string order;
  auto& queue = platform.mainQueue();
  queue.postDelayed(0.2, [&] { order += 'c'; });
  queue.postDelayed(0.1, [&] {
    order += 'a';
    queue.post([&] { order += 'p'; });
    queue.postDelayed(0.05, [&] { order += 'n'; });
  });
  queue.postDelayed(0.1, [&] { order += 'b'; });
  const auto cancelled = queue.postDelayed(0.15, [&] { order += 'x'; });
  queue.cancel(cancelled);
  platform.advance(0.2);
  EXPECT_EQ(order, "apbnc");
}

TEST(HeadlessPlatform, backgroundWorkIsOffTheInterfaceThreadAndFastWorkComesFirst) {
  HeadlessPlatform platform;
  std::string order;
  platform.background().post([&] { order += 's'; }, false);
  platform.background().post(
      [&] {
        order += platform.mainQueue().isMainThread() ? '!' : 'f';
        platform.mainQueue().post(
            [&] { order += platform.mainQueue().isMainThread() ? 'm' : '!'; });
      },
      true);
  platform.runUntilIdle();
  EXPECT_EQ(order, "fms");
}

TEST(HeadlessPlatform, postsOfRealThreadsArriveAtTheNextDrain) {
  HeadlessPlatform platform(BackgroundMode::threads);
  int arrived = 0;
  for (int i = 0; i < 100; ++i) {
    platform.background().post([&] { platform.mainQueue().post([&] { ++arrived; }); }, i % 2 == 0);
  }
  platform.runUntilIdle();
  EXPECT_EQ(arrived, 100);
}

TEST(HeadlessPlatform, downloadsFollowTheVirtualClockAndTheirLimits) {
  HeadlessPlatform platform;
  platform.downloads().setAnswer("http://host/slow", {{1, 2, 3}, ""}, 5);
  struct Case {
    DownloadRequest request;
    double answeredAfter;
    bool ok;
  };
  const std::vector<Case> cases{{{"http://host/slow"}, 5, true},
                                {{"http://host/slow", 2}, 2, false},
                                {{"http://host/slow", 60, 2}, 5, false},
                                {{"http://host/missing"}, 0, false}};
  for (const Case& row : cases) {
    const double start = platform.clock().now();
    double answeredAt = -1;
    bool ok = false;
    platform.downloads().fetch(row.request, [&](const DownloadAnswer& answer) {
      answeredAt = platform.clock().now() - start;
      ok = answer.ok();
    });
    platform.advance(10);
    EXPECT_NEAR(answeredAt, row.answeredAfter, 1e-6) << row.request.url;
    EXPECT_EQ(ok, row.ok) << row.request.url;
  }
  bool answered = false;
  const auto id = platform.downloads().fetch({"http://host/slow"},
                                             [&](const DownloadAnswer&) { answered = true; });
  platform.downloads().cancel(id);
  platform.advance(10);
  EXPECT_FALSE(answered);
}

TEST(HeadlessPlatform, onlyObserversOfTheExactNameHearANotification) {
  HeadlessPlatform platform;
  auto& notifications = platform.notifications();
  std::string heard;
  notifications.observe("a.b.", [&](const std::string& payload) { heard += "1" + payload; });
  notifications.observe("a.b.c", [&](const std::string& payload) { heard += "2" + payload; });
  const auto gone = notifications.observe("a.b.c", [&](const std::string&) { heard += "!"; });
  notifications.stopObserving(gone);
  notifications.post("a.b.c", "x");
  EXPECT_EQ(heard, "");
  platform.runUntilIdle();
  EXPECT_EQ(heard, "2x");
}

TEST(HeadlessImageCodec, filesThatAreCutOrLieAboutTheirSizeAreRefused) {
  const HeadlessImageCodec codec;
  const Bytes good = HeadlessImageCodec::file(2, 1, 1, 2, 3);
  ASSERT_TRUE(codec.decode(good, {}));
  EXPECT_EQ(codec.decode(good, {})->rgba, (Bytes{1, 2, 3, 255, 1, 2, 3, 255}));
  EXPECT_FALSE(codec.decode(good, {.maxPixels = 1}));
  for (std::size_t size = 0; size < good.size(); ++size) {
    EXPECT_FALSE(codec.decode(std::span(good).first(size), {})) << size;
  }
  for (const std::string text :
       {"ZQIMG -1 -1\n", "ZQIMG 99999999999 1\n", "ZQIMG 2147483647 2147483647\n"}) {
    EXPECT_FALSE(codec.decode(Bytes(text.begin(), text.end()), {})) << text;
  }
}

TEST(HeadlessTextMeasurer, wrapsAtBlanksAndBreaksOnlyWordsThatAreTooLong) {
  const HeadlessTextMeasurer measurer;
  FontSpec font;
  font.size = 10;  // 6 points a character, 12 a line
  const double unlimited = std::numeric_limits<double>::infinity();
  struct Case {
    std::string text;
    double maxWidth;
    int maxLines;
    TextSize expected;
  };
  const std::vector<Case> cases{{"", unlimited, 0, {0, 12, 1}},
                                {"ab cd", unlimited, 0, {30, 12, 1}},
                                {"ab cd", 30, 0, {30, 12, 1}},
                                {"ab cd", 29, 0, {12, 24, 2}},
                                {"ab\ncde", unlimited, 0, {18, 24, 2}},
                                {"abcdefg", 18, 0, {18, 36, 3}},
                                {"a bcdefg", 18, 0, {18, 36, 3}},
                                {"ab cd ef", 12, 2, {12, 24, 2}},
                                {"ab ", unlimited, 0, {18, 12, 1}},
                                {"\xC3\xA9\xFF", unlimited, 0, {12, 12, 1}},
                                {"ab", 0, 0, {6, 24, 2}}};
  for (const Case& row : cases) {
    const TextSize size = measurer.wrapped(row.text, font, row.maxWidth, row.maxLines);
    EXPECT_EQ(size.width, row.expected.width) << row.text << row.maxWidth;
    EXPECT_EQ(size.height, row.expected.height) << row.text << row.maxWidth;
    EXPECT_EQ(size.lines, row.expected.lines) << row.text << row.maxWidth;
  }
  EXPECT_EQ(measurer.counts().wrapped, static_cast<int>(cases.size()));
}

}  // namespace
}  // namespace zq
