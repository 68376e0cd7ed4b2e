// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <set>
#include <string>
#include <zqswiftui/controls/zq_progress_bar_view.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

using Parameters = ZQProgressBarView::Parameters;

// Of the track and of what is done, where something is.
std::vector<Rect> bars(Harness& screen) {
  std::vector<Rect> all;
  for (const DrawnCommand& drawn : screen.drawn()) {
    const bool bar = std::holds_alternative<FillRoundedRect>(drawn.command) ||
                     std::holds_alternative<FillPath>(drawn.command);
    if (bar) all.push_back(drawn.bounds);
  }
  return all;
}

double doneWidth(Harness& screen) {
  const auto all = bars(screen);
  return all.size() == 2 ? all[1].width : 0;
}

TEST(ZQProgressBarView, showsTheFractionInItsTextAndItsWidth) {
  const struct {
    double percentage;
    const char* whole;
    const char* digit;
    double width;  // of 200
  } rows[] = {{0, "0 %", "0.0 %", 0},
              {-1, "0 %", "0.0 %", 0},
              {NAN, "0 %", "0.0 %", 0},
              {0.004, "0 %", "0.4 %", 0.8},
              {0.29, "29 %", "29.0 %", 58},
              {0.425, "42 %", "42.5 %", 85},
              {0.9999, "99 %", "99.9 %", 199.98},
              {1, "100 %", "100.0 %", 200},
              {7, "100 %", "100.0 %", 200},
              {INFINITY, "100 %", "100.0 %", 200}};
  for (const auto& row : rows) {
    Harness alone(ZQProgressBarView({.percentage = row.percentage}), {200, 60});
    EXPECT_NEAR(doneWidth(alone), row.width, 1e-6) << row.percentage;
    EXPECT_TRUE(alone.texts().empty());
    for (const bool digit : {false, true}) {
      Harness screen(ZQProgressBarView(
          {.percentage = row.percentage, .showPercentage = true, .add1Digit = digit}));
      EXPECT_TRUE(screen.findText(digit ? row.digit : row.whole)) << row.percentage;
    }
  }
}

TEST(ZQProgressBarView, keepsItsLengthWhateverTheTextAndHasTheHeightThatIsGiven) {
  std::set<double> lengths;
  for (const double p : {0.0, 0.5, 1.0}) {
    Harness screen(ZQProgressBarView({.percentage = p, .showPercentage = true}), {300, 40});
    lengths.insert(bars(screen).at(0).width);
  }
  EXPECT_EQ(lengths.size(), 1U);
  for (const auto& [given, height] : std::vector<std::pair<std::optional<double>, double>>{
           {std::nullopt, 6}, {20.0, 20}, {-3.0, 0}, {NAN, 0}}) {
    Harness screen(ZQProgressBarView({.percentage = 0.5, .height = given}), {100, 40});
    EXPECT_EQ(screen.host().sizeThatFits(ProposedSize::unspecified()).height, height);
  }
  Harness arabic(ZQProgressBarView({.percentage = 0.25})
                     .environment<LayoutDirectionKey>(LayoutDirection::rightToLeft),
                 {100, 40});
  EXPECT_EQ(bars(arabic).at(1).maxX(), 100);
}

TEST(ZQProgressBarView, movesOnTheFramesAlsoWhereANewValueComesAtEachOfThem) {
  const auto bar = [](double p, bool animation) {
    return ZQProgressBarView({.percentage = p, .animation = animation});
  };
  Harness screen(bar(0.2, true), {100, 40});
  screen.setRoot(bar(0.8, true));
  EXPECT_NEAR(doneWidth(screen), 20, 1e-6);
  screen.advance(0.1);
  EXPECT_GT(doneWidth(screen), 25);
  EXPECT_LT(doneWidth(screen), 80);
  screen.advance(0.3);
  EXPECT_EQ(doneWidth(screen), 80);
  const std::uint64_t frames = screen.counts().frames;
  screen.advance(1);
  EXPECT_EQ(screen.counts().frames, frames) << "at rest";

  for (int i = 0; i < 30; ++i) {
    screen.setRoot(bar(0.2 - i * 1e-4, true));
    screen.advance(1.0 / 60);
  }
  EXPECT_LT(doneWidth(screen), 25) << "never waits for the values to end";

  screen.setRoot(bar(0.9, false));
  EXPECT_EQ(doneWidth(screen), 90);
  AppearanceValues still;
  still.reducedMotion = true;
  screen.setAppearance(still);
  screen.setRoot(bar(0.1, true));
  EXPECT_EQ(doneWidth(screen), 10);
}

TEST(ZQProgressBarView, tellsAScreenReaderItsTenthsAlone) {
  Harness screen(ZQProgressBarView({.percentage = 0}), {200, 40});
  std::vector<std::string> told;
  std::uint64_t versions = 0, version = screen.host().accessibilityVersion();
  for (int i = 0; i <= 10000; ++i) {
    screen.setRoot(ZQProgressBarView({.percentage = i / 1e4, .showPercentage = true}));
    const std::string value = screen.find(Role::progress, "Progress").value;
    if (told.empty() || told.back() != value) told.push_back(value);
    versions += screen.host().accessibilityVersion() != version ? 1U : 0U;
    version = screen.host().accessibilityVersion();
  }
  EXPECT_EQ(told, (std::vector<std::string>{"0 %", "10 %", "20 %", "30 %", "40 %", "50 %", "60 %",
                                            "70 %", "80 %", "90 %", "100 %"}));
  EXPECT_LE(versions, 250U) << "the tree is not read again at each of 10,000 ticks";
  EXPECT_TRUE(screen.all(Role::text).empty()) << "said once";
  Harness named(ZQProgressBarView({.percentage = 0.5}).accessibilityLabel("Export"));
  EXPECT_EQ(named.find(Role::progress, "Export").value, "50 %");
}

}  // namespace
}  // namespace zq
