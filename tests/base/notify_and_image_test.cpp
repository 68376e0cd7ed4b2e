// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <tests/base/temp_folder.hpp>
#include <thread>
#include <vector>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/image_cache.hpp>
#include <zqswiftui/platform/base/last_texts.hpp>
#include <zqswiftui/platform/base/prefs.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/base/zq_cache.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>
#include <zqswiftui/platform/base/zq_pasteboard.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>

namespace zq {
namespace {

TEST(Notify, eachKindKeywordAndSenderIsHeardByItsOwnObserversAlone) {
  const int sender = 0;
  std::string heard;
  const auto text =
      ZQNotify::observeString(nullptr, "k", [&](const auto& t) { heard += "t" + t.value_or("-"); });
  const auto ofSender = ZQNotify::observeString(&sender, "k", [&](const auto&) { heard += "s"; });
  const auto number =
      ZQNotify::observeDouble(nullptr, "k", [&](const auto& n) { heard += n == 2.5 ? "n" : "?"; });
  const auto other = ZQNotify::observeString(nullptr, "k.", [&](const auto&) { heard += "!"; });
  ZQNotify::notify("k", "one");
  ZQNotify::notify("k", std::optional<std::string>(), &sender);
  ZQNotify::notify("k", 2.5);
  EXPECT_EQ(heard, "tonet-sn");
}

// Of threads that race, each text has a number of its own, and the one with the highest stays.
TEST(LastTextsTest, theHighestNumberStaysAndNoneChangesNothing) {
  constexpr std::size_t kThreads = 8, kTexts = 500;
  std::vector<std::map<std::uint64_t, std::string>> remembered(kThreads);
  std::vector<std::thread> threads;
  for (std::size_t t = 0; t < kThreads; ++t) {
    threads.emplace_back([t, &mine = remembered[t]] {
      for (std::size_t i = 0; i < kTexts; ++i) {
        const std::string text = std::to_string(t) + "." + std::to_string(i);
        const std::uint64_t order = LastTexts::remember("last.a", text);
        mine.emplace_hint(mine.end(), order, text);
      }
      EXPECT_EQ(mine.rbegin()->second, std::to_string(t) + ".499") << "its own rise";
    });
  }
  for (std::thread& thread : threads) thread.join();
  std::map<std::uint64_t, std::string> all;
  for (auto& mine : remembered) all.merge(mine);
  EXPECT_EQ(all.size(), kThreads * kTexts);
  const auto& [order, text] = *all.rbegin();
  EXPECT_EQ(LastTexts::of("last.a"), (LastTexts::Entry{text, order}));
  EXPECT_GT(LastTexts::remember("last.a", std::nullopt), order);
  EXPECT_EQ(LastTexts::of("last.a"), (LastTexts::Entry{text, order}));
  EXPECT_FALSE(LastTexts::of("last.b"));
}

TEST(Notify, aBroadcastArrivesLaterAndEndsWithItsToken) {
  HeadlessPlatform platform;
  std::string heard;
  auto token = ZQNotify::observeBroadcast("name", [&](const std::string& text) { heard += text; });
  ZQNotify::broadcast("name", "a");
  EXPECT_EQ(heard, "");
  platform.runUntilIdle();
  ZQNotify::broadcast("name", "b");
  token.reset();
  platform.runUntilIdle();
  EXPECT_EQ(heard, "a");
}

TEST(Image, theLongerSideBecomesTheGivenSize) {
  const auto image = ZQImage::fromPixels({1024, 512, Bytes(1024 * 512 * 4, 200)});
  ASSERT_TRUE(image);
  struct Case {
    double side;
    int width;
    int height;
  };
  for (const Case& row :
       std::vector<Case>{{128, 128, 64}, {1, 1, 1}, {2048, 2048, 1024}, {1024, 1024, 512}}) {
    const auto resized = image->resizeWithMaxSide(row.side);
    ASSERT_TRUE(resized) << row.side;
    EXPECT_EQ(resized->width(), row.width);
    EXPECT_EQ(resized->height(), row.height);
    EXPECT_EQ(resized->pixels().rgba, Bytes(resized->pixels().rgba.size(), 200));
  }
  for (const double side : {0.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_FALSE(image->resizeWithMaxSide(side)) << side;
  }
  for (const double side : {16385.0, 1e9, std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(image->resizeWithMaxSide(side), image) << side;
  }
  const auto long_ = ZQImage::fromPixels({20000, 1, Bytes(80000)});
  EXPECT_EQ(long_->resizeWithMaxSide(19000)->width(), 19000) << "it does not grow";
  EXPECT_FALSE(ZQImage::fromPixels({2, 2, Bytes(15)}));
  EXPECT_FALSE(ZQImage::fromPixels({-2, -2, Bytes(16)}));
}

TEST(Image, shrinkingAveragesWhatItCovers) {
  const auto image = ZQImage::fromPixels({2, 1, {0, 0, 0, 255, 200, 100, 50, 255}});
  EXPECT_EQ(image->resizeWithMaxSide(1)->pixels().rgba, (Bytes{100, 50, 25, 255}));
}

TEST(ImageCacheTest, aNamedResourceIsDecodedOnceWhileItIsShown) {
  HeadlessPlatform platform;
  const TempFolder folder;
  ASSERT_TRUE(replaceFile(folder.path("0.png"), HeadlessImageCodec::file(2, 1, 1, 2, 3)).ok());
  ASSERT_TRUE(replaceFile(folder.path("1.png"), "no image").ok());
  platform.bundle().addResource("spin00000.png", folder.path("0.png"));
  platform.bundle().addResource("spin00001.png", folder.path("1.png"));
  const auto first = ImageCache::getImage("spin00000");
  ASSERT_TRUE(first);
  EXPECT_EQ(ImageCache::getImage("spin00000"), first);
  EXPECT_FALSE(ImageCache::getImage("spin00001"));
  EXPECT_FALSE(ImageCache::getImage("spin00002"));
}

TEST(ImageCacheTest, severalThreadsThatAskAtOnceDecodeOnce) {
  HeadlessPlatform platform(BackgroundMode::threads);
  const TempFolder folder;
  ASSERT_TRUE(replaceFile(folder.path("0.png"), HeadlessImageCodec::file(500, 500, 1, 2, 3)).ok());
  platform.bundle().addResource("large.png", folder.path("0.png"));
  std::mutex mutex;
  std::vector<std::optional<ZQImage>> found;
  for (int i = 0; i < 16; ++i) {
    Queue::execute(false, [&] {
      auto image = ImageCache::getImage("large");
      const std::lock_guard lock(mutex);
      found.push_back(std::move(image));
    });
  }
  platform.runUntilIdle();
  EXPECT_EQ(platform.imageCodec().decoded().size(), 1U);
  EXPECT_THAT(found, testing::Each(found.front()));
}

TEST(PasteboardTest, anImageIsDecodedAndATextIsNone) {
  HeadlessPlatform platform;
  std::vector<int> widths;
  const auto ask = [&] {
    ZQPasteboard::getImage(
        [&](const auto& image) { widths.push_back(image ? image->width() : -1); });
    platform.runUntilIdle();
  };
  ask();
  platform.pasteboard().setImage(HeadlessImageCodec::file(3, 1, 0, 0, 0));
  ask();
  ZQPasteboard::setString("text");
  ask();
  EXPECT_EQ(widths, (std::vector{-1, 3, -1}));
}

TEST(CacheTest, aMissIsComputedOnceAndAFailureAgain) {
  ZQCache cache;
  int computed = 0;
  const auto ask = [&](std::optional<int> answer) {
    return cache.getCachedOrExecute<int>("k", [&] { return ++computed, answer; });
  };
  EXPECT_EQ(ask(std::nullopt), std::nullopt);
  EXPECT_EQ(ask(1), 1);
  EXPECT_EQ(ask(2), 1);
  EXPECT_EQ(computed, 2);
  EXPECT_EQ(
      cache.getCachedOrExecute<std::string>("k", [] { return std::optional<std::string>("x"); }),
      std::nullopt);
}

TEST(Prefs, aFlagReadsAsANumberAndNonsenseAsTheDefault) {
  const HeadlessPlatform platform;
  EXPECT_EQ(prefs_getValueInt("k", 0), 0);
  prefs_setValueBool("k", true);
  EXPECT_EQ(prefs_getValueInt("k", 0), 1);
  prefs_setValueString("k", "12x");
  EXPECT_EQ(prefs_getValueInt("k", 7), 7);
  prefs_setValueDouble("k", 1e300);
  EXPECT_EQ(prefs_getValueInt("k", 7), 7);
  prefs_setValueStringList("k", {"a"});
  EXPECT_EQ(prefs_getValueDouble("k", 0.5), 0.5);
}

}  // namespace
}  // namespace zq
