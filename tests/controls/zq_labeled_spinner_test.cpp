// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <zqswiftui/controls/zq_labeled_spinner.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/scroll_view.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

std::size_t spokes(Harness& screen) {
  std::size_t count = 0;
  for (const DrawnCommand& drawn : screen.drawn()) {
    count += std::holds_alternative<StrokePath>(drawn.command) ? 1U : 0U;
  }
  return count;
}

// How many different pictures a second shows.
std::size_t looks(Harness& screen) {
  std::set<std::string> seen;
  for (int i = 0; i < 60; ++i) {
    screen.advance(1.0 / 60);
    seen.insert(screen.displayList());
  }
  return seen.size();
}

TEST(ZQLabeledSpinner, hasItsElementsInItsSquareWithItsLabelBelow) {
  const struct {
    int n;
    double side;
    std::size_t spokes;
    double drawn;
  } rows[] = {{8, 32, 8, 32},  {12, 20, 12, 20},   {1, 32, 1, 32}, {0, 32, 1, 32},
              {-3, 32, 1, 32}, {9999, 32, 64, 32}, {8, -1, 0, 0},  {8, NAN, 0, 0}};
  for (const auto& row : rows) {
    Harness screen(ZQLabeledSpinner({.label = "", .side = row.side, .n = row.n}), {100, 100});
    EXPECT_EQ(spokes(screen), row.spokes) << row.n;
    EXPECT_EQ(screen.host().sizeThatFits(ProposedSize::unspecified()),
              (Size{row.drawn, row.drawn}));
  }
  Harness screen(ZQLabeledSpinner({.label = "Copying", .color = Color::teal(), .width = 150}),
                 {200, 200});
  EXPECT_EQ(screen.host().sizeThatFits(ProposedSize::unspecified()).width, 150);
  const Element label = screen.findText("Copying");
  EXPECT_EQ(label.color(), Color::teal());
  EXPECT_GT(label.bounds.y, 80) << "below the spinner";
  EXPECT_NEAR(label.bounds.midX(), 100, 1);
}

TEST(ZQLabeledSpinner, isProgressThatIsBusyToAScreenReader) {
  Harness named(ZQLabeledSpinner({.label = "Copying"}));
  EXPECT_EQ(named.find(Role::progress, "Copying").value, "busy");
  EXPECT_EQ(named.all(Role::text).size(), 0U) << "said once";
  Harness plain(ZQLabeledSpinner({.label = ""}));
  EXPECT_EQ(plain.find(Role::progress, "Loading").value, "busy");
}

TEST(ZQLabeledSpinner, turnsWhileItCanBeSeenAndElseCostsNoFrames) {
  Harness screen(
      ScrollView(VStack({.spacing = 0}, {ZQLabeledSpinner({.label = "", .n = 8}).frame(40, 40),
                                         Rectangle().frame(40, 1000)})),
      {40, 100});
  const auto costsNothing = [&] {
    const auto frames = screen.counts().frames;
    screen.advance(1);
    return screen.counts().frames == frames && !screen.host().animating();
  };
  EXPECT_EQ(looks(screen), 8U);
  screen.wheel({20, 50}, 0, 500);
  screen.advance(0.1);
  EXPECT_TRUE(costsNothing()) << "scrolled away";
  screen.wheel({20, 50}, 0, -500);
  EXPECT_EQ(looks(screen), 8U);
  screen.setVisible(false);
  EXPECT_TRUE(costsNothing()) << "the window is hidden";
  screen.setVisible(true);
  EXPECT_EQ(looks(screen), 8U);
  screen.setAppearance({.reducedMotion = true});
  screen.advance(0.1);
  EXPECT_TRUE(costsNothing()) << "reduced motion";
  screen.setAppearance({.reducedMotion = false});
  EXPECT_EQ(looks(screen), 8U);
}

}  // namespace
}  // namespace zq
