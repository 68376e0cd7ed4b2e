// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <tests/images/picture_sources.hpp>
#include <utility>
#include <vector>
#include <zqswiftui/images/zq_shared_cached_image.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

using VM = ZQSharedCachedImageVM;

class ZQSharedCachedImageTest : public PictureSources {
 protected:
  // Ids of the test's own, of items that are files of the folder "record".
  std::string id(const std::string& name) const { return host + "/" + name; }
  ZQShareApp::Item item(const std::string& name, std::string remoteUrl = "") const {
    return {id(name), name, std::move(remoteUrl)};
  }
  ZQShareApp record(std::vector<ZQShareApp::Item> items, const std::string& place = "record") {
    EXPECT_TRUE(fu_createFolderIfNeeded(missing(place)));
    return ZQShareApp(missing(place), std::move(items));
  }
  View shown(const std::string& name, const ZQShareApp& of, std::optional<ContentMode> mode = {}) {
    return ZQSharedCachedImage(
        {.id = id(name), .shareApp = of, .cornerRadius = 20, .aspectRatio = mode});
  }
};

TEST_F(ZQSharedCachedImageTest, goesThroughItsStatusesAndTellsWhenItsLoadHasEnded) {
  const ZQShareApp of = record({item("here"), item("bad"), item("far", remote("far", 3, 1)),
                                item("lost", address("lost")), item("gone")});
  file("record/here", 2);
  write("record/bad", {'x'});
  struct Case {
    const char* what;
    std::optional<std::string> id;
    VM::Status end;
    const char* told;  // a plus for each notification with a picture, a minus without
    const char* printed;
    const char* reason;
  };
  for (const Case& row : std::vector<Case>{
           {"no id", std::nullopt, VM::Status::startup, "", "", ""},
           {"a local item", id("here"), VM::Status::ready, "+", "loadImage\n", ""},
           {"one that is downloaded", id("far"), VM::Status::ready, "+", "loadImage\n", ""},
           {"no picture", id("bad"), VM::Status::failed, "-", "loadImage\n", "no whole picture"},
           {"one that cannot be had", id("lost"), VM::Status::startup, "", "", ""},
           {"one without a file", id("gone"), VM::Status::startup, "", "", ""},
           {"an unknown one", id("unknown"), VM::Status::startup, "", "", ""}}) {
    SCOPED_TRACE(row.what);
    Printed printed;
    const auto model = VM::lookup(row.id, of);
    EXPECT_EQ(model->status, VM::Status::startup);
    std::string told;
    const Subscription changes = model->willChange.connect([&] {
      EXPECT_TRUE(platform.mainQueue().isMainThread());
      told += model->image_.get() ? '+' : '-';
    });
    platform.advance(3);
    EXPECT_EQ(model->status, row.end);
    EXPECT_EQ(told, row.told);
    EXPECT_EQ(printed.text(), row.printed);
    EXPECT_NE(model->failureReason().find(row.reason), std::string::npos);
  }
  EXPECT_EQ(decodedOnTheInterfaceThread(), 2U) << "in one turn with its statuses";
  const DecodeSize size{.points = 1, .scale = 1};
  EXPECT_EQ(seen(*VM::lookup(id("here"), of, size), "slrf"), "slr");
  EXPECT_EQ(seen(*VM::lookup(id("bad"), of, size), "slrf"), "slf");
  EXPECT_EQ(decoded().size(), 3U);
  EXPECT_EQ(decodedOnTheInterfaceThread(), 2U) << "small ones are decoded elsewhere";
}

TEST_F(ZQSharedCachedImageTest, aPictureOnceDecodedIsFoundByItsPathEvenAfterInvalidation) {
  const ZQShareApp of = record({item("a"), {id("other name"), "a", ""}});
  file("record/a", 5);
  const auto old = VM::lookup(id("a"), of);
  platform.runUntilIdle();
  EXPECT_EQ(decoded(), std::vector{5});
  std::filesystem::remove(folder.path("record/a"));
  file("record/a", 6);
  ZQSharedCachedImage::invalidate(id("a"));
  const auto fresh = VM::lookup(id("a"), of);
  EXPECT_NE(fresh, old);
  const auto same = VM::lookup(id("other name"), of);
  platform.runUntilIdle();
  EXPECT_EQ(fresh->status, VM::Status::ready);
  EXPECT_EQ(fresh->image_.get(), old->image_.get());
  EXPECT_EQ(same->image_.get(), old->image_.get());
  EXPECT_EQ(decoded(), std::vector<int>{}) << "no file is read for it";
}

TEST_F(ZQSharedCachedImageTest, aFileThatTwoNeedAtOnceIsDecodedOnceAndAFailureIsTriedAgain) {
  const ZQShareApp of = record({item("a"), {id("b"), "a", ""}});
  write("record/a", {'x'});
  for (int round = 0; round < 2; ++round) {
    const auto a = VM::lookup(id("a"), of);
    const auto b = VM::lookup(id("b"), of);
    const auto small = VM::lookup(id("a"), of, DecodeSize{.points = 1, .scale = 1});
    platform.runUntilIdle();
    const auto end = round == 0 ? VM::Status::failed : VM::Status::ready;
    EXPECT_EQ(a->status, end);
    EXPECT_EQ(b->status, end);
    EXPECT_EQ(small->status, end);
    for (const char* name : {"a", "b"}) ZQSharedCachedImage::invalidate(id(name));
    file("record/a", 4);
  }
  EXPECT_EQ(decoded(), (std::vector{4, 4})) << "one for each size";
}

TEST_F(ZQSharedCachedImageTest, aFileThatAForgottenOneAskedForGoesFirstOnceItIsShown) {
  std::vector<ZQShareApp::Item> items;
  std::filesystem::create_directory(folder.path("record"));
  for (int i = 0; i < 30; ++i) {
    items.push_back(item(std::to_string(i)));
    file("record/" + std::to_string(i), i + 1);
  }
  const ZQShareApp of = record(std::move(items));
  const DecodeSize size{.points = 50, .scale = 1};
  std::vector<std::shared_ptr<VM>> held;
  for (int i = 0; i < 30; ++i) held.push_back(VM::lookup(id(std::to_string(i)), of, size));
  ZQSharedCachedImage::invalidate(id("29"));
  held.pop_back();
  Harness screen(ZQSharedCachedImage({.id = id("29"), .shareApp = of, .decodeSize = size}));
  platform.runUntilIdle();
  const std::vector<int> all = decoded();
  ASSERT_EQ(all.size(), 30U);
  EXPECT_LT(std::find(all.begin(), all.end(), 30) - all.begin(), 4);
}

TEST_F(ZQSharedCachedImageTest, theRecordThatWasGivenFirstIsAskedAndOneDownloadServesAll) {
  const ZQShareApp first = record({item("x", remote("first", 3, 1))}, "first");
  const ZQShareApp second = record({item("x", remote("second", 8))}, "second");
  Harness screen(HStack({shown("x", first), shown("x", second)}));
  screen.advance(3);
  EXPECT_EQ(platform.downloads().fetched(), std::vector{address("first")});
  EXPECT_EQ(decoded(), std::vector{3});
  EXPECT_EQ(VM::lookup(id("x"), second)->image_.get()->width(), 3);
}

TEST_F(ZQSharedCachedImageTest, oneThatIsInvalidatedAndClosedMeanwhileIsLetGo) {
  const ZQShareApp of = record({item("x", remote("x", 3, 1))});
  std::weak_ptr<VM> old;
  {
    Harness closing(shown("x", of));
    old = VM::lookup(id("x"), of);
    ZQSharedCachedImage::invalidate(id("x"));
    closing.advance(0.5);
    EXPECT_FALSE(old.expired()) << "its view still holds it";
  }
  EXPECT_TRUE(old.expired()) << "its load does not";
  platform.advance(2);
  EXPECT_EQ(decoded(), std::vector<int>{});
  Harness screen(shown("x", of));
  EXPECT_EQ(screen.drawn().size(), 1U);
  EXPECT_EQ(platform.downloads().fetched().size(), 1U) << "the file is there by now";
}

// A picture of 2:1 in a room of 60 by 60, which an id and a mode decide about.
TEST_F(ZQSharedCachedImageTest, isDrawnByItsModeUnroundedAndWithoutAPlaceholder) {
  const ZQShareApp of =
      record({item("wide", remote("wide", 1)), item("late", remote("late", 1, 9))});
  platform.downloads().setAnswer(address("wide"), {HeadlessImageCodec::file(8, 4, 0, 0, 0), ""});
  struct Case {
    std::optional<ContentMode> mode;
    Rect bounds;
  };
  Harness screen(View(), {60, 60});
  for (const Case& row : std::vector<Case>{{std::nullopt, {0, 0, 60, 60}},
                                           {ContentMode::fit, {0, 15, 60, 30}},
                                           {ContentMode::fill, {-30, 0, 120, 60}}}) {
    screen.setRoot(shown("wide", of, row.mode).frame(60, 60));
    screen.advance(1);
    ASSERT_EQ(screen.drawn().size(), 1U);
    EXPECT_EQ(screen.drawn()[0].bounds, row.bounds);
    EXPECT_EQ(screen.displayList().find("clip"), std::string::npos) << screen.displayList();
    screen.setRoot(shown("late", of, row.mode));
    EXPECT_TRUE(screen.drawn().empty());
  }
  screen.setRoot(ZQSharedCachedImage({.shareApp = of}).background(Color::red()));
  ASSERT_FALSE(screen.drawn().empty());
  EXPECT_EQ(screen.drawn()[0].bounds, (Rect{0, 0, 60, 60})) << "a clear area takes the room";
}

}  // namespace
}  // namespace zq
