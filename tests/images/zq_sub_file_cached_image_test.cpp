// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <tests/images/picture_sources.hpp>
#include <vector>
#include <zqswiftui/images/zq_sub_file_cached_image.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

using VM = ZQSubFileCachedImageVM;

class ZQSubFileCachedImageTest : public PictureSources {
 protected:
  // The id of a new item of the store, with bytes.
  std::string add(const std::string& place, const Bytes& bytes) {
    const std::string id = ZQId::newId("item", "", true);
    EXPECT_TRUE(fu_createFolderIfNeeded(missing(place)));
    write(place + "/" + id, bytes);
    return id;
  }
  std::string addPicture(const std::string& place, int width, int height = 1) {
    return add(place, HeadlessImageCodec::file(width, height, 0, 0, 0));
  }
  ZQSubFiles store(const std::string& place = "store") { return ZQSubFiles(missing(place)); }
};

TEST_F(ZQSubFileCachedImageTest, goesThroughItsStatusesAndTellsOfASuccessAlone) {
  struct Case {
    const char* what;
    std::optional<std::string> id;
    VM::Status end;
    const char* told;
    const char* printed;
    const char* reason;
  };
  const std::string secret = "../" + host;
  file(host, 2);
  for (const Case& row : std::vector<Case>{
           {"no id", std::nullopt, VM::Status::startup, "", "", ""},
           {"a picture", addPicture("store", 2), VM::Status::ready, "+", "loadImage\n", ""},
           {"no picture", add("store", {'x'}), VM::Status::failed, "", "loadImage\n", "no whole"},
           {"no bytes", add("store", {}), VM::Status::failed, "", "loadImage\n", "no whole"},
           {"no item", host + "-unknown", VM::Status::failed, "", "loadImage\n", "no item"},
           {"one outside", secret, VM::Status::failed, "", "loadImage\n", "no item"}}) {
    SCOPED_TRACE(row.what);
    Printed printed;
    const auto model = VM::lookup(row.id, store());
    EXPECT_EQ(model->status, VM::Status::startup) << "until its turn in the background";
    std::string told;
    const Subscription changes = model->willChange.connect([&] {
      EXPECT_TRUE(platform.mainQueue().isMainThread());
      EXPECT_EQ(model->status, VM::Status::ready);
      told += model->image_.get() ? '+' : '-';
    });
    platform.runUntilIdle();
    EXPECT_EQ(model->status, row.end);
    EXPECT_EQ(told, row.told);
    EXPECT_EQ(printed.text(), row.printed);
    EXPECT_NE(model->failureReason().find(row.reason), std::string::npos);
  }
  EXPECT_EQ(decodedOnTheInterfaceThread(), 1U) << "in one turn with its statuses";
  const std::string id = addPicture("store", 3);
  EXPECT_EQ(seen(*VM::lookup(id, store(), DecodeSize{.points = 1, .scale = 1}), "slrf"), "slr");
  EXPECT_EQ(decodedOnTheInterfaceThread(), 1U) << "small ones are decoded elsewhere";
}

TEST_F(ZQSubFileCachedImageTest, theStoreThatWasGivenFirstIsReadOnce) {
  const std::string id = addPicture("first", 3);
  EXPECT_TRUE(fu_createFolderIfNeeded(missing("second")));
  file("second/" + id, 9);
  Harness screen(
      HStack({ZQSubFileCachedImageView({.id = id, .subFiles = store("first")}),
              ZQSubFileCachedImageView({.id = id, .subFiles = store("second")}),
              ZQSubFileCachedImageView(
                  {.id = id, .subFiles = store("first"), .decodeSize = DecodeSize{1, 1}})}));
  EXPECT_EQ(decoded(), (std::vector{3, 3}));
  EXPECT_EQ(screen.drawn().size(), 3U);
  const std::string other = addPicture("first", 4);
  const auto whole = VM::lookup(other, store("first"));
  const auto small = VM::lookup(other, store("second"), DecodeSize{1, 1});
  EXPECT_EQ(seen(*small, "slrf"), "slr");
  EXPECT_TRUE(whole->image_.get()) << "two sizes of one reading";
  EXPECT_EQ(seen(*VM::lookup(addPicture("first", 5), store("first")), "slrf"), "slr");
}

TEST_F(ZQSubFileCachedImageTest, afterInvalidationNewViewsReadAgainAndOldOnesKeepTheirPicture) {
  const std::string id = addPicture("store", 3);
  const auto old = VM::lookup(id, store());
  platform.runUntilIdle();
  file("store/" + id, 4);
  ZQSubFileCachedImageView::invalidate(id);
  const auto fresh = VM::lookup(id, store());
  platform.runUntilIdle();
  EXPECT_EQ(old->image_.get()->width(), 3);
  EXPECT_EQ(fresh->image_.get()->width(), 4);
}

TEST_F(ZQSubFileCachedImageTest, whatNobodyHoldsAnyMoreIsNeitherReadNorDecoded) {
  const std::string id = addPicture("store", 3);
  const auto without = VM::lookup(std::nullopt, store());
  Printed printed;
  std::weak_ptr<VM> dropped;
  {
    const ZQSubFileCachedImageView closed({.id = id, .subFiles = store()});
    dropped = VM::lookup(id, store());
  }
  ZQSubFileCachedImageView::invalidate(id);
  EXPECT_TRUE(dropped.expired());
  platform.runUntilIdle();
  EXPECT_EQ(printed.text(), "");
  EXPECT_EQ(decoded(), std::vector<int>{});
  EXPECT_EQ(VM::lookup(std::nullopt, store()), without) << "no id names it";
}

TEST_F(ZQSubFileCachedImageTest, isDrawnByItsModeUnroundedAndWithoutAPlaceholder) {
  const std::string wide = addPicture("store", 8, 4);
  struct Case {
    std::optional<ContentMode> mode;
    Rect bounds;
  };
  Harness screen(View(), {60, 60});
  for (const Case& row : std::vector<Case>{{std::nullopt, {0, 0, 60, 60}},
                                           {ContentMode::fit, {0, 15, 60, 30}},
                                           {ContentMode::fill, {-30, 0, 120, 60}}}) {
    screen.setRoot(
        ZQSubFileCachedImageView(
            {.id = wide, .subFiles = store(), .cornerRadius = 20, .aspectRatio = row.mode})
            .frame(60, 60));
    ASSERT_EQ(screen.drawn().size(), 1U);
    EXPECT_EQ(screen.drawn()[0].bounds, row.bounds);
    EXPECT_EQ(screen.displayList().find("clip"), std::string::npos);
    screen.setRoot(ZQSubFileCachedImageView({.id = host, .subFiles = store()}));
    EXPECT_TRUE(screen.drawn().empty()) << "nothing after a failure";
  }
}

}  // namespace
}  // namespace zq
