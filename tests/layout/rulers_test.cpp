// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <tests/layout/no_numbers.hpp>
#include <variant>
#include <zqswiftui/layout/ruler_ticks.hpp>
#include <zqswiftui/layout/zq_mini_timeline.hpp>
#include <zqswiftui/layout/zq_ruler_bar.hpp>
#include <zqswiftui/layout/zq_ruler_view.hpp>
#include <zqswiftui/layout/zq_timecode_view.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/localized_texts.hpp>
#include <zqswiftui/platform/toolkit/scroll_view.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>

namespace zq {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The bars of a ruler as they are drawn: where, and how long.
struct Bars {
  std::vector<double> majors, minors;
};
Bars barsOf(Harness& screen, double height) {
  Bars bars;
  for (const DrawnCommand& d : screen.drawn()) {
    if (!std::holds_alternative<StrokePath>(d.command)) continue;
    const double length = d.bounds.height - 1;  // with half of the line on either side
    const bool major = std::abs(length - 0.75 * height) < 1e-9;
    EXPECT_TRUE(major || std::abs(length - 0.15 * height) < 1e-9) << length;
    EXPECT_EQ(d.bounds.width, 1);
    (major ? bars.majors : bars.minors).push_back(d.bounds.midX());
  }
  return bars;
}

std::vector<std::string> textsOf(Harness& screen) {
  std::vector<std::string> texts;
  for (const Element& text : screen.texts()) texts.push_back(text.text);
  return texts;
}

View rulerAt(const ZQTimeRange& range, double x, double width, double height = 40) {
  return ZQRulerView(range)
      .frame(width, height)
      .padding({.leading = x})
      .flexFrame(
          {.maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::topLeading()});
}

TEST(ZQRulerView, hasRoomForLargerLabelsUpToTheLongestStep) {
  for (const double end : {10.0, 86400.0, 600000.0}) {
    Harness screen(rulerAt({0, end}, 0, 840), {1000, 60});
    screen.setAppearance({.textScale = 2});
    double before = 0;
    for (const Element& label : screen.texts()) {
      EXPECT_TRUE(end == 600000 || label.bounds.x >= before) << label.text;
      before = label.bounds.maxX();
    }
    EXPECT_GT(before, 0);
  }
}

TEST(ZQRulerView, drawsItsTicksWhereTheFormulaHasThem) {
  Harness screen(rulerAt({0, 10}, 20, 840), {1000, 60});
  const Bars bars = barsOf(screen, 40);
  ASSERT_EQ(bars.majors.size(), 11u);
  ASSERT_EQ(bars.minors.size(), 21u) << "the last one stands beyond the trailing edge";
  for (std::size_t i = 0; i < 11; ++i) EXPECT_DOUBLE_EQ(bars.majors[i], 20 + 84.0 * double(i));
  for (std::size_t i = 0; i < 21; ++i) EXPECT_DOUBLE_EQ(bars.minors[i], 62 + 42.0 * double(i));

  const Element label = screen.findText("00:00:03.00");
  EXPECT_EQ(label.bounds.x, 20 + 3 * 84 + 1 + 3);
  EXPECT_EQ(label.bounds.midY(), 20);
  EXPECT_EQ(label.font, Font::caption().resolve(screen.platform().textMeasurer()));
  EXPECT_EQ(label.color(), Color::gray());
  EXPECT_EQ(textsOf(screen).size(), 11u);
}

TEST(ZQRulerView, hidesLongTicksBeforeItsStartAndNoShortOnes) {
  Harness screen(rulerAt({12.3, 20}, 100, 84), {400, 60});
  EXPECT_THAT(textsOf(screen), ElementsAre("00:00:20.00"));
  EXPECT_THAT(barsOf(screen, 40).majors, ElementsAre(184));
  EXPECT_EQ(barsOf(screen, 40).minors.size(), 2u);
  screen.setRoot(rulerAt({-2, 0}, 100, 168));
  EXPECT_THAT(textsOf(screen), ElementsAre("-00:00:02.00", "-00:00:01.00", "00:00:00.00"));
}

TEST(ZQRulerView, keepsItsTicksAsLongAsTheyAreInAnyRange) {
  Harness screen(rulerAt({0, 10}, 0, 840), {1000, 60});
  const auto before = screen.counts();
  for (int i = 1; i <= 100; ++i) screen.setRoot(rulerAt({i * 0.01, 10 + i * 0.01}, 0, 840));
  EXPECT_EQ(textsOf(screen).front(), "00:00:01.00");
  EXPECT_LT(screen.counts().nodesCreated - before.nodesCreated, 60u);
  EXPECT_LT(screen.counts().textsMeasured - before.textsMeasured, 5u);
}

TEST(ZQRulerView, makesTheTicksInSightAloneHoweverLongTheTime) {
  const auto scrolled = [](double seconds) {
    const double width = seconds * 84 / 0.05;
    return ScrollView(ZQRulerView({0, seconds}).frame(width, 40), ScrollAxes::horizontal);
  };
  Harness day(scrolled(86400), {1000, 60}), seconds(scrolled(10), {1000, 60});
  EXPECT_EQ(day.counts().nodesCreated, seconds.counts().nodesCreated);
  EXPECT_EQ(barsOf(day, 40).majors, barsOf(seconds, 40).majors);

  const auto before = day.counts();
  for (int i = 0; i < 50; ++i) day.wheel({500, 30}, 84, 0);  // 50 ticks on
  EXPECT_LT(day.counts().nodesCreated - before.nodesCreated, 1500u);
  const std::vector<std::string> labels = textsOf(day);
  EXPECT_EQ(std::count(labels.begin(), labels.end(), "00:00:02.50"), 1);
  EXPECT_EQ(day.findText("00:00:02.50").bounds.x, 4);
  day.wheel({500, 30}, 1e12, 0);
  EXPECT_EQ(day.findText("23:59:59.50").bounds.x, 1000 - 10 * 84 + 4);
  EXPECT_THAT(day.texts().front().bounds.x, testing::Le(4));
}

TEST(ZQRulerView, isOneElementThatTellsItsRange) {
  Harness screen(ZQRulerView({0, 61.5}), {1000, 60});
  EXPECT_EQ(screen.accessibility(), "image \"Time ruler\" = \"00:00:00.00 to 00:01:01.50\"\n");
}

TEST(ZQRulerView, showsNothingInARangeOrARoomWithoutLength) {
  Harness screen(rulerAt({5, 5}, 0, 840), {1000, 60});
  EXPECT_THAT(textsOf(screen), IsEmpty());
  screen.setRoot(rulerAt({5, 4}, 0, 840));
  EXPECT_THAT(textsOf(screen), IsEmpty());
  screen.setRoot(ZQRulerView({0, 10}));
  for (const Size size : {Size{0, 0}, Size{0, 40}, Size{400, 0}, Size{1, 1}, Size{840, 40}}) {
    screen.resize(size);
  }
  EXPECT_EQ(textsOf(screen).size(), 11u - 1u) << "the last label begins at the edge of the window";
}

TEST(ZQRulerView, runsFromRightToLeftWhereTextsDo) {
  Harness screen(
      rulerAt({0, 10}, 0, 840).environment<LayoutDirectionKey>(LayoutDirection::rightToLeft),
      {840, 60});
  const std::vector<double> majors = barsOf(screen, 40).majors;
  EXPECT_EQ(majors[0] - majors[1], 84);
  EXPECT_EQ(screen.findText("00:00:01.00").bounds.maxX(), majors[1] - 3);
  // Of a long one, the ticks in sight are made and not those as far from the other end.
  Harness farRuler(View(ScrollView(ZQRulerView({0, 1000}).frame(84000, 40), ScrollAxes::horizontal))
                       .environment<LayoutDirectionKey>(LayoutDirection::rightToLeft),
                   {840, 60});
  std::size_t inSight = 0;
  for (const double x : barsOf(farRuler, 40).majors) inSight += x >= 0 && x <= 840;
  EXPECT_GE(inSight, 10U);
}

TEST(ZQRulerViewDeathTest, stopsWhereNoStepIsLongEnough) {
  EXPECT_DEATH(Harness(ZQRulerView({0, 60001}), {84, 40}), "ZQRulerView: 84 points would stand");
  EXPECT_DEATH(Harness(ZQRulerView({0, kNaN}), {84, 40}), "ZQRulerView: 84 points would stand");
}

TEST(ZQRulerBar, scalesItsLowerEdgeAndNotItsHeight) {
  const Path full = ZQRulerBar(true).path({5, 20, 8, 40}),
             part = ZQRulerBar(false).path({5, 20, 8, 40});
  EXPECT_EQ(full, Path().moveTo({5, 20}).lineTo({5, 45}));
  EXPECT_EQ(part, Path().moveTo({5, 20}).lineTo({5, 9}));
  Harness screen(ZQRulerBar(true).stroke(Color::red()).frame(1, 40), {1, 40});
  EXPECT_THAT(barsOf(screen, 40).majors, ElementsAre(0));
}

std::vector<Rect> fillsOf(Harness& screen) {
  std::vector<Rect> fills;
  for (const DrawnCommand& d : screen.drawn()) {
    if (std::holds_alternative<FillRoundedRect>(d.command)) fills.push_back(d.bounds);
  }
  return fills;
}

TEST(ZQMiniTimeline, drawsAPieceForEachSegmentThatHasAWidth) {
  const auto shown = [](const ZQTimeRange& total, std::vector<ZQTimeRange> segments) {
    return ZQMiniTimeline(
               {.totalRange = total, .segmentsList = std::move(segments), .cornerRadius = 3})
        .foregroundColor(Color::teal());
  };
  Harness screen(shown({0, 100}, {{25, 50}, {60, 60}, {70, 65}, {25, 50}, {75, 80}}), {200, 12});
  EXPECT_THAT(fillsOf(screen),
              ElementsAre(Rect{50, 0, 50, 12}, Rect{50, 0, 50, 12}, Rect{150, 0, 10, 12}));
  EXPECT_THAT(screen.displayList(), testing::HasSubstr("teal"));
  EXPECT_EQ(screen.accessibility(),
            "image \"Timeline\" = \"5 segments, 00:00:00.00 to 00:01:40.00\"\n");
  screen.setRoot(shown({10, 110}, {{25, 50}}));
  EXPECT_THAT(fillsOf(screen), ElementsAre(Rect{30, 0, 30, 12}));
  EXPECT_THAT(screen.accessibility(), testing::HasSubstr("1 segment,"));
  screen.setRoot(
      shown({0, 100}, {{25, 50}}).environment<LayoutDirectionKey>(LayoutDirection::rightToLeft));
  EXPECT_THAT(fillsOf(screen), ElementsAre(Rect{100, 0, 50, 12}));
  for (const ZQTimeRange total : {ZQTimeRange{3, 3}, ZQTimeRange{0, kNaN}, ZQTimeRange{9, 1}}) {
    screen.setRoot(shown(total, {{1, 2}, {kNaN, 2}}));
    for (const Rect& fill : fillsOf(screen)) EXPECT_LT(fill.width, 1e6);
  }
  const auto drawn = screen.drawn();
  const auto outline = std::find_if(drawn.begin(), drawn.end(), [](const DrawnCommand& d) {
    return std::holds_alternative<StrokePath>(d.command);
  });
  ASSERT_TRUE(outline != drawn.end());
  EXPECT_EQ(outline->bounds, (Rect{0, 0, 200, 12})) << "the line lies inside";
}

TEST(ZQMiniTimeline, oneOtherSegmentAmongAThousandIsOneOtherView) {
  std::vector<ZQTimeRange> segments;
  for (int i = 0; i < 1000; ++i) segments.push_back({i * 1.0, i + 0.5});
  const auto shown = [&] {
    return ZQMiniTimeline(
        {.totalRange = ZQTimeRange{0, 1000}, .segmentsList = segments, .cornerRadius = 0});
  };
  Harness screen(shown(), {1000, 12});
  const auto before = screen.counts();
  segments[500].end += 0.25;
  screen.setRoot(shown());
  EXPECT_LT(screen.counts().nodesCreated - before.nodesCreated, 5u);
  EXPECT_LT(screen.counts().piecesRecorded - before.piecesRecorded, 5u);
}

TEST(ZQTimecodeView, showsSevenTextsInAFixedPitch) {
  struct Case {
    double time;
    std::vector<std::string> texts;
  };
  for (const Case& c : {Case{3723.04, {"01", ":", "02", ":", "03", ".", "04"}},
                        Case{-1.5, {"-00", ":", "00", ":", "01", ".", "50"}},
                        Case{kNaN, {"00", ":", "00", ":", "00", ".", "00"}},
                        Case{1e300, {"277777777", ":", "46", ":", "40", ".", "00"}}}) {
    Harness screen(ZQTimecodeView(c.time), {400, 100});
    EXPECT_EQ(textsOf(screen), c.texts);
    for (const Element& text : screen.texts()) {
      EXPECT_EQ(text.font.family, "Courier New");
      EXPECT_EQ(text.font.size, 32);
    }
  }
}

TEST(ZQTimecodeView, drawsOnlyTheDigitsThatChangeAndIsReadAsOneText) {
  Harness screen(ZQTimecodeView(61.23, 20), {300, 60});
  const auto before = screen.counts();
  const Rect place = screen.texts()[6].bounds;
  screen.setRoot(ZQTimecodeView(61.24, 20));
  EXPECT_EQ(screen.counts().piecesRecorded - before.piecesRecorded, 1u);
  EXPECT_EQ(screen.texts()[6].bounds, place);
  EXPECT_EQ(screen.accessibility(), "text \"00:01:01.24\"\n");
  screen.setRoot(
      ZQTimecodeView(61.24, 20).environment<LayoutDirectionKey>(LayoutDirection::rightToLeft));
  EXPECT_LT(screen.texts()[0].bounds.x, screen.texts()[6].bounds.x);
}

TEST(ZQTimecodeView, takesItsSeparatorsFromTheHost) {
  const auto shown = [](LocalizedTexts texts) {
    return ZQTimecodeView(3723.04).environment<LocalizedTextsKey>(
        std::make_shared<const LocalizedTexts>(std::move(texts)));
  };
  Harness screen(shown({{".", ","}, {"01", "never"}}), {400, 100});
  EXPECT_EQ(textsOf(screen), (std::vector<std::string>{"01", ":", "02", ":", "03", ",", "04"}));
  screen.setRoot(shown({{":", "h"}}));
  EXPECT_EQ(textsOf(screen), (std::vector<std::string>{"01", "h", "02", "h", "03", ".", "04"}));
}

}  // namespace
}  // namespace zq
