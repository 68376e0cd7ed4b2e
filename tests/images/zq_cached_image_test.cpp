// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <tests/images/picture_sources.hpp>
#include <tests/toolkit/painted_host.hpp>
#include <vector>
#include <zqswiftui/images/zq_cached_image.hpp>
#include <zqswiftui/images/zq_local_url_image.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

using VM = ZQCachedImageVM;
constexpr const char* kLetters = "slrf";

class ZQCachedImageTest : public PictureSources {
 protected:
  ~ZQCachedImageTest() override { setPicturePixelLimit(limit_); }

  View shown(const std::optional<Url>& url) { return ZQCachedImage(url); }
  // The width of the picture, absent where there is none.
  static std::optional<int> width(const VM& model) {
    const auto image = model.image_.get();
    return image ? std::optional(image->width()) : std::nullopt;
  }

 private:
  const std::int64_t limit_ = picturePixelLimit();
};

TEST_F(ZQCachedImageTest, goesThroughItsStatusesByWhatItsSourceIs) {
  std::filesystem::create_directory(folder.path("folder"));
  setPicturePixelLimit(100);
  struct Case {
    const char* what;
    std::optional<Url> url;
    VM::Status begin;
    const char* heard;
    const char* printed;
    const char* reason;
  };
  const Bytes cut = [] {
    Bytes whole = HeadlessImageCodec::file(3, 3, 0, 0, 0);
    whole.pop_back();
    return whole;
  }();
  const auto loading = VM::Status::loading;
  const std::vector<Case> cases{
      {"nothing", std::nullopt, VM::Status::startup, "", "", ""},
      {"a file", file("a.png", 2), loading, "l+ r+", "loadImage\nloadImage done\n", ""},
      {"a blank in its name", file("a b.png", 2), loading, "l+ r+", "loadImage\nloadImage done\n",
       ""},
      {"remote", Url::parse(remote("r.png", 2, 1)), loading, "l+ r+", "loadImage\nloadImage done\n",
       ""},
      {"at the limit", file("limit", 100), loading, "l+ r+", "loadImage\nloadImage done\n", ""},
      {"above the limit", file("above", 101), loading, "f-*", "loadImage\n", "101 pixels"},
      {"a missing file", missing("none.png"), loading, "f-*", "loadImage\n", "cannot open"},
      {"a folder", missing("folder"), loading, "f-*", "loadImage\n", "not a file"},
      {"no bytes", write("empty.png", {}), loading, "f-*", "loadImage\n", "no whole picture"},
      {"a text", write("text.png", {'t', 'e', 'x', 't'}), loading, "f-*", "loadImage\n",
       "no whole picture"},
      {"a cut picture", write("cut.png", cut), loading, "f-*", "loadImage\n", "no whole picture"},
      {"nowhere", Url::parse(address("nowhere")), loading, "f-*", "loadImage\n",
       "the server has no"},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.what);
    Printed printed;
    const auto model = VM::lookup(row.url);
    EXPECT_EQ(model->status, row.begin);
    EXPECT_EQ(heard(*model, kLetters), row.heard);
    EXPECT_EQ(printed.text(), row.printed);
    EXPECT_NE(model->failureReason().find(row.reason), std::string::npos) << model->failureReason();
    EXPECT_EQ(model->failureReason().empty(), std::string(row.reason).empty());
    EXPECT_EQ(VM::lookup(row.url), model);
    EXPECT_EQ(heard(*model, kLetters), "") << "it is never loaded again";
  }
  EXPECT_EQ(decodedOnTheInterfaceThread(), 0U);
}

TEST_F(ZQCachedImageTest, viewsOfOneSourceShareItsLoadAndThoseWithoutASourceTheirModel) {
  const Url url = file("shared.png", 7);
  Harness screen(HStack({shown(url), shown(url), shown(std::nullopt), shown(std::nullopt)}));
  EXPECT_EQ(decoded(), std::vector{7});
  EXPECT_EQ(ZQCachedImage(url), ZQCachedImage(url));
  EXPECT_EQ(VM::lookup(std::nullopt)->status, VM::Status::startup);
  const auto bodies = screen.counts().bodies;
  screen.setRoot(HStack({shown(url), shown(url), shown(std::nullopt), shown(std::nullopt)}));
  EXPECT_EQ(screen.counts().bodies, bodies) << "an equal view is not evaluated again";
  EXPECT_EQ(decoded(), std::vector<int>{});
}

TEST_F(ZQCachedImageTest, showsASymbolUntilThereIsAPictureWhichIsStretchedAndRounded) {
  const auto url = Url::parse(remote("later.png", 9, 1));
  Harness screen(ZQCachedImage(url, {.cornerRadius = 12}), {80, 60});
  EXPECT_TRUE(screen.findSymbol("icloud.and.arrow.down"));
  screen.advance(2);
  ASSERT_EQ(screen.drawn().size(), 1U);
  EXPECT_TRUE(std::holds_alternative<DrawPicture>(screen.drawn()[0].command));
  EXPECT_EQ(screen.drawn()[0].bounds, (Rect{0, 0, 80, 60}));
  const auto outline = [&] {
    OutlineNotingCanvas canvas({80, 60});
    screen.host().paintAll(canvas);
    return canvas.outlines().at(0);
  };
  const std::string rounded = outline();
  screen.setRoot(ZQCachedImage(url));
  EXPECT_NE(outline(), rounded);
  for (const Url& bad : {missing("gone.png"), write("bad.png", {'x'})}) {
    screen.setRoot(shown(bad));
    screen.advance(60);
    EXPECT_TRUE(screen.findSymbol("icloud.and.arrow.down"));
  }
  screen.setRoot(shown(std::nullopt));
  EXPECT_TRUE(screen.findSymbol("photo"));
}

TEST_F(ZQCachedImageTest, afterInvalidationNewViewsReadAgainAndOldOnesKeepTheirPicture) {
  const Url url = file("changing.png", 3);
  const Url other = file("standing.png", 4);
  const auto old = VM::lookup(url);
  const auto small = VM::lookup(url, DecodeSize{.points = 1, .scale = 1});
  const auto standing = VM::lookup(other);
  platform.runUntilIdle();
  file("changing.png", 5);
  ZQCachedImage::invalidate(url);
  ZQCachedImage::invalidate(missing("never seen"));
  const auto fresh = VM::lookup(url);
  EXPECT_NE(VM::lookup(url, DecodeSize{.points = 1, .scale = 1}), small);
  platform.runUntilIdle();
  EXPECT_EQ(width(*old), 3);
  EXPECT_EQ(width(*fresh), 5);
  EXPECT_EQ(VM::lookup(other), standing);
}

TEST_F(ZQCachedImageTest, whatIsInvalidatedOrClosedWhileItLoadsIsLoadedToItsEnd) {
  const auto url = Url::parse(remote("slow.png", 6, 1));
  auto old = VM::lookup(url);
  {
    Harness closing(shown(url));
    closing.advance(0.5);
  }
  ZQCachedImage::invalidate(*url);
  const auto fresh = VM::lookup(url);
  platform.advance(0.5);
  EXPECT_EQ(old->status, VM::Status::ready);
  EXPECT_EQ(fresh->status, VM::Status::loading);
  ZQCachedImage::invalidate(*url);
  const std::weak_ptr<VM> released = VM::lookup(url);
  ZQCachedImage::invalidate(*url);
  platform.advance(2);
  EXPECT_EQ(fresh->status, VM::Status::ready);
  EXPECT_EQ(decoded().size(), 3U) << "also the one that nobody holds any more";
  EXPECT_TRUE(released.expired());
  old.reset();
}

TEST_F(ZQCachedImageTest, aPlatformThatEndsMeanwhileLeavesItLoadingAndHeldByNothing) {
  std::weak_ptr<VM> held;
  const Url url = *Url::parse(address("elsewhere"));
  held = VM::lookup(url);
  ZQCachedImage::invalidate(url);
  platform.mainQueue().dropAll();
  EXPECT_TRUE(held.expired());
}

TEST_F(ZQCachedImageTest, aPictureThatIsShownSmallIsDecodedSmallOncePerSize) {
  const Url url = write("large.png", HeadlessImageCodec::file(40, 20, 0, 0, 0));
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const auto whole = VM::lookup(url);
  const auto small = VM::lookup(url, DecodeSize{.points = 5, .scale = 2});
  EXPECT_NE(whole, small);
  EXPECT_EQ(VM::lookup(url, DecodeSize{.points = 10, .scale = 1}), small);
  for (const DecodeSize none : {DecodeSize{}, {-1, 2}, {nan, 2}, {5, nan}, {5, 0}}) {
    EXPECT_EQ(VM::lookup(url, none), whole);
  }
  const auto larger = VM::lookup(url, DecodeSize{.points = 1e300});
  platform.runUntilIdle();
  EXPECT_EQ(width(*whole), 40);
  EXPECT_EQ(width(*small), 10);
  EXPECT_EQ(small->image_.get()->height(), 5);
  EXPECT_EQ(width(*larger), 40) << "never enlarged";
}

TEST_F(ZQCachedImageTest, sizesThatAreAskedForTogetherShareOneDownloadUntilItIsForgotten) {
  const Url url = *Url::parse(remote("shared", 40, 1));
  const auto whole = VM::lookup(url);
  const auto small = VM::lookup(url, DecodeSize{.points = 10, .scale = 1});
  platform.advance(0.5);
  const auto late = VM::lookup(url, DecodeSize{.points = 20, .scale = 1});
  const auto kin = ZQLocalURLImage::lookup(url);
  platform.runUntilIdle();
  EXPECT_EQ(platform.downloads().fetched().size(), 1U);
  ZQCachedImage::invalidate(url);
  const auto afresh = VM::lookup(url);
  platform.runUntilIdle();
  EXPECT_EQ(platform.downloads().fetched().size(), 2U);
  platform.advance(2);
  EXPECT_EQ(width(*whole), 40);
  EXPECT_EQ(width(*small), 10);
  EXPECT_EQ(width(*late), 20);
  EXPECT_EQ(width(*afresh), 40);
  EXPECT_EQ(kin->image_.get(), whole->image_.get()) << "one picture of one size";
}

TEST_F(ZQCachedImageTest, aLimitThatIsRaisedLetsALargePictureIn) {
  const Url url = file("panorama.png", 50);
  setPicturePixelLimit(0);
  EXPECT_EQ(picturePixelLimit(), 1);
  const auto refused = VM::lookup(url);
  platform.runUntilIdle();
  EXPECT_EQ(refused->status, VM::Status::failed);
  setPicturePixelLimit(50);
  ZQCachedImage::invalidate(url);
  const auto accepted = VM::lookup(url);
  platform.runUntilIdle();
  EXPECT_EQ(accepted->status, VM::Status::ready);
}

TEST_F(ZQCachedImageTest, amongManyTheRightOneIsFound) {
  std::vector<std::shared_ptr<VM>> models;
  std::vector<Url> urls;
  for (int i = 0; i < 10000; ++i) {
    urls.push_back(missing("many/" + std::to_string(i)));
    models.push_back(VM::lookup(urls.back()));
  }
  for (std::size_t i = 0; i < urls.size(); i += 7) {
    ASSERT_EQ(VM::lookup(urls[i]), models[i]);
    ASSERT_EQ(models[i]->url, urls[i]);
  }
  ZQCachedImage::invalidate(urls[70]);
  EXPECT_NE(VM::lookup(urls[70]), models[70]);
  EXPECT_EQ(VM::lookup(urls[77]), models[77]);
}

}  // namespace
}  // namespace zq
