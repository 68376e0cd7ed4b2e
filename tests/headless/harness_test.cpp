// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <string>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

TEST(Harness, findsWhatAPersonSeesWithItsPlaceAndStrength) {
  Harness h(
      HStack(
          {.spacing = 0},
          {View(HStack({.spacing = 0},
                       {Text("ab").font(Font::caption().bold()),
                        Image::symbol("star.fill").foregroundColor(Color::yellow())}))
               .opacity(0.5)
               .scale(2)
               .id("big"),
           Text("unseen").opacity(0),
           View(Text("cut off")).frame({.width = 10, .alignment = Alignment::leading()}).clipped()})
          .opacity(0.5),
      {200, 100});
  const Element big = h.findId("big");
  ASSERT_TRUE(big);
  const Element text = h.findText("ab");
  EXPECT_EQ(text.bounds.width, 24) << "two letters of six points, twice as large";
  EXPECT_EQ(text.opacity, 0.25);
  EXPECT_EQ(text.font.weight, 700);
  EXPECT_EQ(text.color(), Color::primary());
  EXPECT_EQ(h.findSymbol("star.fill").color(), Color::yellow());
  EXPECT_EQ(h.findSymbol("star.fill").bounds.x, text.bounds.maxX());
  EXPECT_FALSE(h.findText("unseen"));
  EXPECT_EQ(h.find(Role::text, "unseen").opacity, 0);
  EXPECT_LE(h.findText("cut off").visible.width, 10);
  EXPECT_FALSE(h.findId("other"));
  EXPECT_DEATH(h.click(h.button("none")), "input on an element that was not found");
}

TEST(Harness, letsTimersAndFramesComeInTheirOrder) {
  HeadlessPlatform platform;
  std::string log;
  struct Late {
    std::string* log;
    View body(Context& context) const {
      auto moved = context.state(false);
      *log += *moved ? "moved " : "first ";
      return Rectangle().frame(10, 10).offset(*moved ? 60 : 0, 0).onAppear([=] {
        Platform::current().mainQueue().postDelayed(
            0.25, [=] { withAnimation(Animation::linear(0.5), [&] { moved.set(true); }); });
      });
    }
  };
  Harness h(Late{&log}, {100, 10});
  h.advance(0.25);
  EXPECT_EQ(log, "first moved ");
  h.advance(0.25);
  EXPECT_NEAR(h.drawn()[0].bounds.x, 75, 2.1) << "begun with the timer, to a frame";
  EXPECT_EQ(platform.clock().now(), 0.5);
}

TEST(HarnessDeathTest, aScreenThatNeverComesToRestStopsTheProgram) {
  struct Restless {
    View body(Context& context) const {
      auto n = context.state(0);
      return View(Text("x")).onChange<int>(*n, [n](const int& v) { n.set(v + 1); }).onAppear([n] {
        n.set(1);
      });
    }
  };
  EXPECT_DEATH(Harness(Restless{}), "ask for frames without end");
}

}  // namespace
}  // namespace zq
