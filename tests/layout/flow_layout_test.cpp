// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <tests/layout/no_numbers.hpp>
#include <zqswiftui/layout/flow_layout.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

using testing::ElementsAre;

std::vector<Size> widths(const std::vector<double>& all, double height = 10) {
  std::vector<Size> sizes;
  for (const double w : all) sizes.push_back({w, height});
  return sizes;
}

std::vector<std::size_t> counts(const FlowResult& flow) {
  std::vector<std::size_t> n;
  for (const FlowRow& row : flow.rows) n.push_back(row.xOffsets.size());
  return n;
}

TEST(FlowRows, breakWhereTheNextChildNoLongerFits) {
  struct Case {
    const char* what;
    double offered;
    std::vector<double> children;
    double spacing;
    std::vector<std::size_t> rows;
    Size bounds;
  };
  const std::vector<Case> cases{
      {"no children", 100, {}, 5, {}, {0, 0}},
      {"one that is wider than the offer", 50, {80}, 5, {1}, {80, 10}},
      {"a first one that is too wide breaks behind itself", 50, {80, 10}, 5, {1, 1}, {80, 25}},
      {"exactly full", 65, {30, 30}, 5, {2}, {65, 10}},
      {"full but for a hair", std::nextafter(65, 0), {30, 30}, 5, {1, 1}, {30, 25}},
      {"the gap is not kept at the start of a row", 30, {30, 30}, 5, {1, 1}, {30, 25}},
      {"nothing offered", 0, {1, 2, 3}, 0, {1, 1, 1}, {3, 30}},
      {"children without width", 0, {0, 0, 0}, 0, {3}, {0, 10}},
      {"a negative offer", -5, {3, 4}, 1, {1, 1}, {4, 21}},
      {"a width that is no number does not break", 20, {10, kNaN, 500}, 0, {3}, {0, 10}},
  };
  for (const Case& c : cases) {
    const FlowResult flow = flowRows(c.offered, widths(c.children), c.spacing);
    EXPECT_EQ(counts(flow), c.rows) << c.what;
    EXPECT_NEAR(flow.bounds.width, c.bounds.width, 1e-9) << c.what;
    EXPECT_EQ(flow.bounds.height, c.bounds.height) << c.what;
  }
}

TEST(FlowRows, tellTheirChildrenOffsetsAndFrames) {
  const std::vector<Size> sizes{{30, 20}, {20, 10}, {40, 30}};
  const FlowResult flow = flowRows(60, sizes, 5);
  EXPECT_EQ(
      flow,
      (FlowResult{{55, 55}, {{{0, 2}, {0, 35}, {0, 0, 55, 20}}, {{2, 3}, {0}, {0, 25, 40, 30}}}}));
}

TEST(FlowRows, takeEachPairsOwnGapAndAnotherBetweenRows) {
  std::vector<std::size_t> asked;
  const FlowGap gap = [&](std::size_t i) {
    asked.push_back(i);
    return static_cast<double>(i);
  };
  const FlowResult flow = flowRows(32, widths({10, 10, 10, 10}), gap, 7);
  EXPECT_EQ(counts(flow), (std::vector<std::size_t>{2, 2}));
  EXPECT_THAT(flow.rows[1].xOffsets, ElementsAre(0, 13));
  EXPECT_EQ(flow.bounds, (Size{23, 27}));
  EXPECT_EQ(flow.rows[1].frame.y, 17);
  EXPECT_EQ(std::count(asked.begin(), asked.end(), 0u), 0) << "nothing is before the first";
}

TEST(FlowRows, anInfiniteOfferNeverBreaksAndIsNotFinite) {
  const FlowResult flow = flowRows(kInf, widths({10, 20, 1e300}), 5);
  EXPECT_EQ(counts(flow), (std::vector<std::size_t>{3}));
  EXPECT_EQ(flow.bounds, (Size{kInf, 10}));
  EXPECT_THAT(flow.rows[0].xOffsets, ElementsAre(kInf, kInf, kInf));
  EXPECT_EQ(flow.rows[0].frame.width, kInf);

  // After a break the rest is reckoned from the infinite offer itself.
  const FlowResult broken = flowRows(kInf, widths({10, kInf, kInf}), 0);
  EXPECT_EQ(counts(broken), (std::vector<std::size_t>{1, 2}));
  EXPECT_TRUE(std::isnan(broken.rows[1].xOffsets[0]));
}

// Row by row: as many children as fit, at least one. In eighths all sums are exact.
std::vector<std::size_t> reckonedRows(double offered, const std::vector<double>& children,
                                      double spacing) {
  std::vector<std::size_t> rows;
  for (std::size_t first = 0; first < children.size();) {
    std::size_t n = 1;
    double sum = children[first];
    while (first + n < children.size() && sum + spacing + children[first + n] <= offered) {
      sum += spacing + children[first + n];
      ++n;
    }
    rows.push_back(n);
    first += n;
  }
  return rows;
}

TEST(FlowRows, agreeWithAReckoningAtEveryWidth) {
  const std::vector<double> children{40, 12.5, 77, 3, 3, 3, 120.125, 64, 8, 31.75, 200, 1, 16, 55};
  for (const double spacing : {0.0, 2.0, 7.5}) {
    for (int width = 0; width <= 400; ++width) {
      const FlowResult flow = flowRows(width, widths(children), spacing);
      ASSERT_EQ(counts(flow), reckonedRows(width, children, spacing)) << width << ", " << spacing;
      std::ptrdiff_t next = 0;
      for (const FlowRow& row : flow.rows) {
        ASSERT_EQ(row.range.lowerBound, next);
        next = row.range.upperBound;
        const double last = children[static_cast<std::size_t>(next - 1)];
        ASSERT_DOUBLE_EQ(row.frame.width, row.xOffsets.back() + last);
        ASSERT_LE(row.frame.width, flow.bounds.width);
      }
      ASSERT_EQ(static_cast<std::size_t>(next), children.size());
      const double rows = static_cast<double>(flow.rows.size());
      ASSERT_DOUBLE_EQ(flow.bounds.height, rows * 10 + (rows - 1) * spacing);
    }
  }
}

TEST(FlowPositions, alignRowsInTheRectangleAndChildrenInTheRow) {
  const std::vector<Size> sizes{{20, 10}, {40, 30}};
  const FlowResult flow = flowRows(60, sizes, 0);
  const Rect bounds{100, 200, 100, 90};
  struct Case {
    Alignment alignment;
    std::vector<Point> points;
  };
  const std::vector<Case> cases{
      {Alignment::topLeading(), {{100, 200}, {120, 200}}},
      {Alignment::center(), {{120, 210}, {140, 200}}},
      {Alignment::bottomTrailing(), {{140, 220}, {160, 200}}},
      {Alignment::leading(), {{100, 210}, {120, 200}}},
  };
  for (const Case& c : cases) EXPECT_EQ(flowPositions(flow, sizes, bounds, c.alignment), c.points);
}

// Blocks of those widths, 10 high, found again as "0", "1", …
View blocks(NewFlowLayout layout, const std::vector<double>& all) {
  std::vector<View> children;
  for (const double w : all) {
    children.push_back(
        Color::teal().operator View().frame(w, 10).id(std::to_string(children.size())));
  }
  return LayoutView(layout, std::move(children)).id("flow");
}

TEST(NewFlowLayout, wrapsInAWindowAndTurnsRoundFromRightToLeft) {
  const NewFlowLayout layout({.alignment = Alignment::topLeading(), .spacing = 5});
  Harness screen(blocks(layout, {30, 20, 40}).frame(60, 25), {60, 25});
  const double left = screen.findId("flow").bounds.x;
  EXPECT_EQ(screen.findId("1").bounds, (Rect{left + 35, 0, 20, 10}));
  EXPECT_EQ(screen.findId("2").bounds, (Rect{left, 15, 40, 10}));

  screen.setRoot(blocks(layout, {30, 20, 40})
                     .frame(60, 25)
                     .environment<LayoutDirectionKey>(LayoutDirection::rightToLeft));
  const double right = screen.findId("flow").bounds.maxX();
  EXPECT_EQ(screen.findId("0").bounds, (Rect{right - 30, 0, 30, 10}));
  EXPECT_EQ(screen.findId("1").bounds, (Rect{right - 55, 0, 20, 10}));
}

TEST(NewFlowLayout, keepsThePreferredDistanceAndTheMiddleWhereNothingIsSaid) {
  Harness screen(blocks(NewFlowLayout(), {30, 30, 30}), {70, 100});
  const Rect flow = screen.findId("flow").bounds;
  EXPECT_EQ(flow.size(), (Size{68, 28}));
  EXPECT_EQ(screen.findId("1").bounds.x - screen.findId("0").bounds.x, 38);
  EXPECT_EQ(screen.findId("2").bounds.x - flow.x, 19);
}

TEST(NewFlowLayout, wrapsAtTenWhereNoWidthIsOffered) {
  Harness screen(blocks(NewFlowLayout({.spacing = 1}), {4, 5, 20, 3}).fixedSize(), {300, 300});
  EXPECT_EQ(screen.findId("flow").bounds.size(), (Size{20, 32}));
}

TEST(NewFlowLayout, aStackThatAsksForTheMostGetsByWithIt) {
  const View flow = blocks(NewFlowLayout({.spacing = 1}), {40, 50, 20});
  Harness screen(HStack({flow, Color::clear().operator View().frame(4, 4)}), {107, 50});
  EXPECT_EQ(screen.findId("1").bounds.x - screen.findId("0").bounds.x, 41);
  EXPECT_EQ(screen.findId("2").bounds.y - screen.findId("0").bounds.y, 11);
}

}  // namespace
}  // namespace zq
