// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <string>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

class Visibility : public testing::Test {
 protected:
  View told(View view) {
    return view.onVisibility([this](bool visible) { told_ += visible ? '+' : '-'; });
  }
  // A column of 1,000 points whose lower half is the view, seen through 100 points.
  View column(View view) {
    return ScrollView(VStack(
        {.spacing = 0}, {Rectangle().frame(40, 500), std::move(view), Rectangle().frame(40, 460)}));
  }
  std::string since() { return std::exchange(told_, {}); }

  std::string told_;
};

TEST_F(Visibility, isToldFirstAndWhenItChanges) {
  Harness h(column(told(Rectangle().frame(40, 40))), {40, 100});
  EXPECT_EQ(since(), "-");
  h.wheel({20, 50}, 0, 300);
  EXPECT_EQ(since(), "");
  h.wheel({20, 50}, 0, 110);
  EXPECT_EQ(since(), "+") << "ten points show";
  h.setVisible(false);
  EXPECT_EQ(since(), "-") << "the window is hidden";
  h.wheel({20, 50}, 0, 20);
  EXPECT_EQ(since(), "");
  h.setVisible(true);
  EXPECT_EQ(since(), "+");
  h.wheel({20, 50}, 0, 1000);
  EXPECT_EQ(since(), "-");
  h.setRoot(View());
  EXPECT_EQ(since(), "") << "it was not seen when it went";
  const auto asked = h.framesAsked();
  h.advance(10);
  EXPECT_EQ(h.framesAsked(), asked);
}

TEST_F(Visibility, endsWithTheViewAndWithTheWindow) {
  {
    Harness h(told(Rectangle()), {40, 100});
    EXPECT_EQ(since(), "+");
    h.setRoot(View());
    EXPECT_EQ(since(), "-");
    h.setRoot(told(Rectangle()));
    EXPECT_EQ(since(), "+");
  }
  EXPECT_EQ(since(), "-");
}

TEST_F(Visibility, ofAViewWithoutASizeIsThatOfWhatIsAroundIt) {
  Harness h(column(VStack({told(View()).id("empty"), Rectangle().frame(40, 40)})), {40, 100});
  EXPECT_EQ(since(), "-");
  h.wheel({20, 50}, 0, 450);
  EXPECT_EQ(since(), "+");
  h.resize({0, 0});
  EXPECT_EQ(since(), "-");
}

TEST_F(Visibility, aSpinnerTurnsNoFasterWhenItsMotionComesBack) {
  Harness h(ProgressView(), {40, 40});
  for (int i = 0; i < 3; ++i) {
    h.setAppearance({.reducedMotion = true});
    h.setAppearance({.reducedMotion = false});
  }
  h.setRoot(ProgressView::spinner(3));
  h.setRoot(ProgressView(0.5));
  h.advance(0.1);
  EXPECT_FALSE(h.host().animating());
  h.setRoot(ProgressView::spinner(3));
  EXPECT_TRUE(h.host().animating());
}

}  // namespace
}  // namespace zq
