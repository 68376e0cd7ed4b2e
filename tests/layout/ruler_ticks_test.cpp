// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <tests/layout/no_numbers.hpp>
#include <vector>
#include <zqswiftui/layout/ruler_ticks.hpp>
#include <zqswiftui/layout/zq_mini_timeline.hpp>

namespace zq {
namespace {

using testing::ElementsAre;

std::vector<double> valuesOf(const RulerTicks& ticks) {
  std::vector<double> values;
  for (std::int64_t n = 1; n <= ticks.count; ++n) values.push_back(ticks.value(n));
  return values;
}

TEST(RulerStep, isTheShortestThatIsLongEnough) {
  for (std::size_t i = 0; i < kRulerSteps.size(); ++i) {
    const double step = kRulerSteps[i];
    EXPECT_EQ(rulerStep(step), step);
    EXPECT_EQ(rulerStep(std::nextafter(step, 0)), step);
    if (i + 1 < kRulerSteps.size()) {
      EXPECT_EQ(rulerStep(std::nextafter(step, kInf)), kRulerSteps[i + 1]);
    }
  }
  for (const double least : {0.0, 1e-300, -7.0, -kInf}) EXPECT_EQ(rulerStep(least), 0.05);
  EXPECT_EQ(secondsPerPitch({0, 10}, 840), 1);
  EXPECT_EQ(secondsPerPitch({2, 2}, 840), 0);
}

TEST(RulerTicks, areThoseOfTheTable) {
  struct Case {
    const char* what;
    ZQTimeRange range;
    double step;
    std::vector<double> majors;
    std::vector<double> minors;
  };
  const std::vector<Case> cases{
      {"from nothing", {0, 3}, 1, {0, 1, 2, 3}, {0.5, 1, 1.5, 2, 2.5, 3, 3.5}},
      {"the first lies before the start", {12.3, 20}, 10, {10, 20}, {15, 20}},
      {"within the first step there is none at 0", {0.5, 2}, 1, {1, 2, 3}, {1, 1.5, 2, 2.5}},
      {"half a step more is another tick", {0, 2.5}, 1, {0, 1, 2, 3}, {0.5, 1, 1.5, 2, 2.5, 3}},
      {"less is not", {0, 2.4}, 1, {0, 1, 2}, {0.5, 1, 1.5, 2, 2.5}},
      {"from before zero", {-3.5, -1}, 1, {-3, -2, -1, 0}, {-3, -2.5, -2, -1.5, -1, -0.5}},
      {"a start on a tick below zero", {-2, 0}, 1, {-2, -1, 0}, {-1.5, -1, -0.5, 0, 0.5}},
      {"no length", {5, 5}, 0.05, {5}, {5.025}},
      {"backwards", {5, 4}, 0.05, {}, {}},
  };
  for (const Case& c : cases) {
    EXPECT_THAT(valuesOf(majorTicks(c.range, c.step)),
                testing::Pointwise(testing::DoubleEq(), c.majors))
        << c.what;
    EXPECT_THAT(valuesOf(minorTicks(c.range, c.step)),
                testing::Pointwise(testing::DoubleEq(), c.minors))
        << c.what;
  }
  const RulerTicks ten = majorTicks({0, 10}, 1), halves = minorTicks({0, 10}, 1);
  EXPECT_EQ(ten.count, 11);
  EXPECT_EQ(valuesOf(ten).back(), 10);
  EXPECT_EQ(halves.count, 21);
  EXPECT_EQ(valuesOf(halves).back(), 10.5);
}

TEST(RulerTicks, keepTheirValuesWhereverTheRulerBegins) {
  // Summed up, a tenth drifts; reckoned from a base that moves it would differ in its last place.
  for (int start = 10; start < 5000; start += 7) {
    const RulerTicks ticks = majorTicks({start * 0.013, start * 0.013 + 3}, 0.1);
    for (const double v : valuesOf(ticks)) ASSERT_EQ(v, 0.1 * std::round(v * 10));
  }
}

// What all rulers have in common, told without the formulas that make the ticks.
struct Expected {
  ZQTimeRange range;
  double width;
  double step;

  bool rises(const RulerTicks& ticks) const {
    double before = -kInf;
    for (const double v : valuesOf(ticks)) {
      if (!(v > before) || v != ticks.step * std::round(v / ticks.step)) return false;
      before = v;
    }
    return true;
  }
  // How many lengths fit, give or take a last place.
  static double nearly(double lengths) { return std::abs(lengths) * 1e-15; }
  bool majorsCounted(const RulerTicks& ticks) const {
    const double fit = (range.end - range.start) / step;
    return std::abs(static_cast<double>(ticks.count - 1) - fit) <= 0.5 + nearly(fit);
  }
  bool minorsCounted(const RulerTicks& ticks) const {
    const double rest =
        (range.end - range.start) / (step / 2) - static_cast<double>(ticks.count - 1);
    return rest >= 0 && rest < 1;
  }
  bool majorsBegin(const RulerTicks& ticks) const {
    const double lead = (ticks.value(1) - range.start) / step, slack = 1e-9;
    if (range.start == 0) return lead == 0;
    if (range.start < 0) return lead > -slack && lead < 1 + slack;
    if (range.start < step) return ticks.value(1) == step;
    return lead > -1 - slack && lead < slack;
  }
  bool placed(const RulerTicks& ticks) const {
    using Exact = long double;
    for (const double v : valuesOf(ticks)) {
      const Exact exact =
          (Exact{v} - Exact{range.start}) / (Exact{range.end} - Exact{range.start}) * width;
      const Exact error = std::abs(Exact{tickPosition(v, range, width)} - exact);
      // One rounding for each operation.
      if (error > std::abs(exact) * 4 * 0x1p-53L) return false;
    }
    return true;
  }
};

void sweep(double start) {
  std::vector<double> rates{0.01, 0.02, 0.033, 0.049, 59999};
  for (const double step : kRulerSteps)
    rates.insert(rates.end(), {step, step * 0.77, step * 0.999});
  for (int width = 1; width <= 2000; ++width) {
    for (const double rate : rates) {
      const ZQTimeRange range{start, start + rate * width / 84};
      const double raw = (range.end - range.start) / (width / 84.0);
      if (raw > 60000) continue;  // by a last place
      const double step = rulerStep(raw);
      const auto* place = std::find(kRulerSteps.begin(), kRulerSteps.end(), step);
      ASSERT_TRUE(place != kRulerSteps.end() && step >= raw);
      ASSERT_TRUE(place == kRulerSteps.begin() || place[-1] < raw);
      const RulerTicks majors = majorTicks(range, step), minors = minorTicks(range, step);
      const Expected ruler{range, static_cast<double>(width), step};
      const bool right = ruler.rises(majors) && ruler.rises(minors) &&
                         ruler.majorsCounted(majors) && ruler.minorsCounted(minors) &&
                         ruler.majorsBegin(majors) && ruler.placed(majors) && ruler.placed(minors);
      ASSERT_TRUE(right) << "width " << width << ", " << rate << " s a pitch, from " << start;
    }
  }
}

TEST(RulerTicks, standRightAtEveryWidthAndSpan) {
  for (const double start : {0.0, 12.34, -7.7, 86399.96}) sweep(start);
}

TEST(TicksBetween, findsWhatALookAtEachOfThemFinds) {
  for (const ZQTimeRange range :
       {ZQTimeRange{0, 10}, ZQTimeRange{-3.3, 61.7}, ZQTimeRange{12.3, 20}}) {
    for (const RulerTicks& ticks : {majorTicks(range, 1), minorTicks(range, 1)}) {
      for (double from = -200; from < 1000; from += 37.5) {
        for (const double length : {0.0, 42.0, 84.0, 333.3, 5000.0}) {
          std::vector<double> wanted, found;
          for (const double v : valuesOf(ticks)) {
            const double x = tickPosition(v, range, 840);
            if (x >= from && x <= from + length) wanted.push_back(v);
          }
          const TickNumbers numbers = ticksBetween(ticks, range, 840, from, from + length);
          for (auto n = numbers.first; n <= numbers.last; ++n) found.push_back(ticks.value(n));
          ASSERT_EQ(found, wanted) << from << ", " << length;
        }
      }
    }
  }
  const ZQTimeRange none{5, 5}, back{5, 4.99};
  for (const ZQTimeRange& range : {none, back}) {
    const TickNumbers all = ticksBetween(majorTicks(range, 0.05), range, 840, -kInf, kInf);
    EXPECT_LE(all.last - all.first, 0);
  }
  EXPECT_FALSE(std::isfinite(tickPosition(6, none, 840)));
  // Three million seconds, of which one is looked at.
  const ZQTimeRange month{0, 3e6};
  const double wide = 3e6 * 84 / 0.05;
  const TickNumbers few =
      ticksBetween(majorTicks(month, 0.05), month, wide, wide / 2, wide / 2 + 839);
  EXPECT_EQ(few.last - few.first, 9);
}

TEST(RulerTicksDeathTest, stopWhereNothingCanBeCounted) {
  EXPECT_DEATH(rulerStep(std::nextafter(60000, kInf)),
               "ZQRulerView: 84 points would stand for more");
  EXPECT_DEATH(rulerStep(secondsPerPitch({0, 1}, 0)), "ZQRulerView: 84 points");
  EXPECT_DEATH(rulerStep(secondsPerPitch({0, kNaN}, 100)), "ZQRulerView: 84 points");
  for (const ZQTimeRange range : {ZQTimeRange{0, kInf}, ZQTimeRange{-kInf, 0}, ZQTimeRange{kNaN, 1},
                                  ZQTimeRange{0, 1e18}, ZQTimeRange{1e18, 1e18}}) {
    EXPECT_DEATH(majorTicks(range, 0.05), "ZQRulerView: the ticks of the range cannot be counted");
    EXPECT_DEATH(minorTicks(range, 0.05), "ZQRulerView: the ticks of the range cannot be counted");
  }
}

TEST(TimelinePiece, takesTheStartOfTheWholeOffTheLengthAsWell) {
  struct Case {
    ZQTimeRange total, segment;
    TimelinePiece piece;
  };
  for (const Case& c :
       {Case{{0, 100}, {25, 50}, {50, 50}}, Case{{10, 110}, {25, 50}, {30, 30}},
        Case{{0, 100}, {-10, 120}, {-20, 260}}, Case{{50, 150}, {60, 70}, {20, -80}},
        Case{{-50, 50}, {0, 10}, {100, 120}}}) {
    EXPECT_EQ(timelinePiece(c.segment, c.total, 200), c.piece);
  }
  EXPECT_FALSE(std::isfinite(timelinePiece({1, 2}, {3, 3}, 200).x));
}

}  // namespace
}  // namespace zq
