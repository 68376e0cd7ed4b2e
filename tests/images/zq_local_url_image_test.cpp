// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tests/images/picture_sources.hpp>
#include <vector>
#include <zqswiftui/images/zq_local_url_image.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

using VM = ZQLocalURLImage;

class ZQLocalURLImageTest : public PictureSources {};

TEST_F(ZQLocalURLImageTest, goesThroughItsStatusesInSilence) {
  struct Case {
    const char* what;
    std::optional<Url> url;
    VM::Status begin;
    const char* heard;
  };
  for (const Case& row :
       std::vector<Case>{{"nothing", std::nullopt, VM::Status::startup, ""},
                         {"a file", file("a b.png", 2), VM::Status::loading, "l+ r+"},
                         {"a missing file", missing("none"), VM::Status::loading, "f-*"},
                         {"a text", write("text", {'x'}), VM::Status::loading, "f-*"}}) {
    SCOPED_TRACE(row.what);
    Printed printed;
    const auto model = VM::lookup(row.url);
    EXPECT_EQ(model->status, row.begin);
    EXPECT_EQ(heard(*model, "slrf"), row.heard);
    EXPECT_EQ(printed.text(), "");
    EXPECT_EQ(VM::lookup(row.url), model);
    EXPECT_EQ(heard(*model, "slrf"), "") << "it is never loaded again";
  }
  EXPECT_EQ(decodedOnTheInterfaceThread(), 0U);
}

TEST_F(ZQLocalURLImageTest, showsThePictureInTheMiddleAndNothingWithoutOne) {
  const Url wide = write("wide", HeadlessImageCodec::file(8, 4, 0, 0, 0));
  Harness screen(HStack({.spacing = 0}, {ZQLocalURLImageView(wide), ZQLocalURLImageView(wide)}),
                 {240, 100});
  EXPECT_EQ(decoded(), std::vector{8});
  ASSERT_EQ(screen.drawn().size(), 2U);
  const Rect first = screen.drawn()[0].bounds, second = screen.drawn()[1].bounds;
  EXPECT_DOUBLE_EQ(first.width, 120);
  EXPECT_DOUBLE_EQ(first.height, 60);
  EXPECT_DOUBLE_EQ(first.midX(), 60);
  EXPECT_DOUBLE_EQ(second.midX(), 180);
  EXPECT_DOUBLE_EQ(first.midY(), 50);
  for (const std::optional<Url>& none : {std::optional<Url>(), std::optional(missing("none"))}) {
    screen.setRoot(ZQLocalURLImageView(none));
    screen.advance(10);
    EXPECT_TRUE(screen.drawn().empty());
  }
  screen.setRoot(ZQLocalURLImageView(wide, {.decodeSize = DecodeSize{.points = 1, .scale = 4}}));
  EXPECT_EQ(VM::lookup(wide, DecodeSize{4, 1})->image_.get()->width(), 4);
}

}  // namespace
}  // namespace zq
