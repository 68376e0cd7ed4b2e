// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <optional>
#include <tests/toolkit/painted_host.hpp>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

Image picture(int width, int height) {
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  return Image(*ZQImage::fromPixels({width, height, Bytes(count * 4, 255)}));
}

TEST(PictureModes, aPictureFitsFillsOrIsStretchedInTheRoomThatItIsOffered) {
  struct Case {
    Image image;
    Rect bounds;  // in a room of 60 by 40
  };
  for (const Case& row :
       std::vector<Case>{{picture(20, 10).resizable(false), {0, 0, 60, 40}},
                         {picture(20, 10).resizable(), {0, 5, 60, 30}},
                         {picture(20, 10).resizable(ContentMode::fit), {0, 5, 60, 30}},
                         {picture(20, 10).resizable(ContentMode::fill), {-10, 0, 80, 40}},
                         {picture(10, 20).resizable(ContentMode::fit), {20, 0, 20, 40}},
                         {picture(10, 20).resizable(ContentMode::fill), {0, -40, 60, 120}},
                         {picture(3, 2).resizable(ContentMode::fill), {0, 0, 60, 40}}}) {
    Harness screen(View(row.image).frame(60, 40), {60, 40});
    ASSERT_EQ(screen.drawn().size(), 1U);
    EXPECT_EQ(screen.drawn()[0].bounds, row.bounds) << screen.displayList();
  }
}

TEST(PictureModes, oneDimensionDecidesWhereTheOtherIsOpen) {
  // A scroll view offers its content no height, and a stack in it asks for the ideal one.
  Harness screen(ScrollView(picture(20, 10).resizable(ContentMode::fill)), {60, 40});
  ASSERT_EQ(screen.drawn().size(), 1U);
  EXPECT_EQ(screen.drawn()[0].bounds, (Rect{0, 0, 60, 30}));
  Harness ideal(View(picture(20, 10).resizable(ContentMode::fill)).fixedSize(), {60, 40});
  EXPECT_EQ(ideal.drawn()[0].bounds.width, 20);
  Harness nothing(View(picture(20, 10).resizable(ContentMode::fill)).frame(0, 0), {60, 40});
  EXPECT_TRUE(nothing.drawn().empty());
}

TEST(PictureModes, whatReachesOutOfTheRoomIsPaintedAgainToo) {
  const auto framed = [](const Image& image, std::optional<double> side = 20) {
    return View(image).frame({.width = side, .height = 20});
  };
  const Image wide = picture(30, 10);
  const std::vector<View> views{
      framed(wide.resizable(ContentMode::fill)), framed(wide.resizable(ContentMode::fit)),
      framed(wide.resizable(false)), framed(picture(10, 30).resizable(ContentMode::fill)),
      framed(wide.resizable(ContentMode::fill), 40)};
  for (const View& before : views) {
    for (const View& after : views) {
      PaintedHost window(before, {100, 80});
      window.host().setRoot(after);
      window.run();
      EXPECT_EQ(window.difference(), "");
    }
  }
}

}  // namespace
}  // namespace zq
