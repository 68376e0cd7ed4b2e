// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <string>
#include <tests/images/pictures.hpp>
#include <zqswiftui/platform/base/image_cache.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/base/zq_pasteboard.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>

namespace zq {
namespace {

// "128x64", or nothing.
std::string sizeOf(const std::optional<Image>& image) {
  if (!image) return "nothing";
  Harness screen(*image, {1, 1});
  const Size size = screen.host().sizeThatFits(ProposedSize::unspecified());
  return std::to_string(static_cast<int>(size.width)) + "x" +
         std::to_string(static_cast<int>(size.height));
}

TEST(Conversions, ofBytesFilesAndTheNetworkGiveAPictureOrNothing) {
  HeadlessPlatform platform;
  const TempFolder folder;
  const Bytes good = HeadlessImageCodec::file(1024, 512, 1, 2, 3);
  const Bytes bad{'n', 'o'};
  ASSERT_TRUE(replaceFile(folder.path("a b.png"), good).ok());
  ASSERT_TRUE(replaceFile(folder.path("text.png"), bad).ok());
  platform.downloads().setAnswer("http://host/a.png", {good, ""}, 1000);
  platform.downloads().setAnswer("http://host/bad.png", {bad, ""});

  EXPECT_EQ(sizeOf(swiftUIImage(good)), "1024x512");
  EXPECT_EQ(sizeOf(swiftUIImage(bad)), "nothing");
  EXPECT_EQ(sizeOf(swiftUIImage({})), "nothing");
  const struct {
    Url url;
    const char* whole;
    int side;
    const char* resized;
  } rows[] = {
      {Url::file(folder.path("a b.png")), "1024x512", 128, "128x64"},
      {Url::file(folder.path("a b.png")), "1024x512", 2048, "2048x1024"},
      {Url::file(folder.path("a b.png")), "1024x512", 16385, "1024x512"},
      {Url::file(folder.path("a b.png")), "1024x512", 0, "nothing"},
      {Url::file(folder.path("a b.png")), "1024x512", -5, "nothing"},
      {Url::file(folder.path("text.png")), "nothing", 128, "nothing"},
      {Url::file(folder.path("missing.png")), "nothing", 128, "nothing"},
      {Url::file(folder.path()), "nothing", 128, "nothing"},
      {*Url::parse("http://host/bad.png"), "nothing", 128, "nothing"},
      {*Url::parse("http://host/missing.png"), "nothing", 128, "nothing"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(sizeOf(Image::fromUrl(row.url)), row.whole) << row.url.text();
    EXPECT_EQ(sizeOf(Image::fromUrl(row.url, row.side)), row.resized) << row.url.text();
  }
  // Only the one that is scaled has no time limit.
  const Url slow = *Url::parse("http://host/a.png");
  EXPECT_EQ(sizeOf(Image::fromUrl(slow)), "nothing");
  EXPECT_EQ(sizeOf(Image::fromUrl(slow, 128)), "128x64");
}

// Whatever way a picture comes.
TEST(Conversions, keepToTheLimitOfTheHost) {
  HeadlessPlatform platform;
  const TempFolder folder;
  const std::int64_t limit = picturePixelLimit();
  addPicture(platform, folder, "named", 1);
  const Url url = Url::file(folder.path("named.png"));
  for (const bool large : {false, true}) {
    setPicturePixelLimit(large ? 16 : 15);
    int answers = 0;
    platform.pasteboard().setImage(HeadlessImageCodec::file(4, 4, 1, 0, 0));
    ZQPasteboard::getImage([&](const std::optional<ZQImage>& found) {
      EXPECT_EQ(found.has_value(), large);
      ++answers;
    });
    platform.runUntilIdle();
    EXPECT_EQ(answers, 1);
    EXPECT_EQ(Image::fromUrl(url).has_value(), large);
    EXPECT_EQ(Image::fromUrl(url, 8).has_value(), large);
    EXPECT_EQ(ImageCache::getImage("named").has_value(), large);
  }
  setPicturePixelLimit(limit);
}

}  // namespace
}  // namespace zq
