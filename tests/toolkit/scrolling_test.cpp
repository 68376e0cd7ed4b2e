// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

// Rows of 20 points: "0", "1", …
std::vector<View> rowViews(int count, double width) {
  std::vector<View> rows;
  rows.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    rows.push_back(View(Text(std::to_string(i))).frame(width, 20).id("row" + std::to_string(i)));
  }
  return rows;
}
View column(int count, double width = 40) {
  return VStack({.spacing = 0}, rowViews(count, width));
}
double top(Harness& h) {
  return h.findId("row0").bounds.y;
}

TEST(Scrolling, staysWithinTheContentWhateverChangesItsLength) {
  Harness h(ScrollView(column(20)), {100, 100});
  struct Step {
    const char* what;
    std::function<void()> act;
    double top;
  };
  const Step steps[] = {
      {"up at the top",
       [&] {
         EXPECT_FALSE(h.wheel({50, 50}, 0, -30));
       },
       0},
      {"down",
       [&] {
         EXPECT_TRUE(h.wheel({50, 50}, 0, 130));
       },
       -130},
      {"past the end",
       [&] {
         h.wheel({50, 50}, 0, 1e12);
       },
       -300},
      {"sideways only",
       [&] {
         EXPECT_FALSE(h.wheel({50, 50}, 90, 0));
       },
       -300},
      {"a shorter content", [&] { h.setRoot(ScrollView(column(8))); }, -60},
      {"a longer one stays", [&] { h.setRoot(ScrollView(column(30))); }, -60},
      {"a higher window",
       [&] {
         h.resize({100, 580});
       },
       -20},
      {"a window with room for all",
       [&] {
         h.resize({100, 900});
       },
       0},
      {"and back",
       [&] {
         h.resize({100, 100});
       },
       0},
      {"no content", [&] { h.setRoot(ScrollView(View())); }, 0},
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.what);
    step.act();
    EXPECT_EQ(top(h), step.top);
  }
  EXPECT_FALSE(h.wheel({50, 50}, 0, 10));
  h.wheel({50, 50}, std::nan(""), std::nan(""));
  h.setRoot(ScrollView(column(20)));
  h.wheel({50, 50}, 0, 10);
  EXPECT_EQ(top(h), -10) << "a wheel without a length does no harm";
}

TEST(Scrolling, byKeysOfWhatIsFocusedInside) {
  const View content = VStack(
      {.spacing = 0}, {Button([] {}, Text("first")), column(40), Button([] {}, Text("last"))});
  Harness h(ScrollView(content), {100, 120});
  EXPECT_FALSE(h.key(Key::down)) << "nothing has the focus";
  h.tab();
  const double start = top(h);
  struct Case {
    Key key;
    double moved;
  };
  for (const Case& c : {Case{Key::down, -40}, Case{Key::pageDown, -120}, Case{Key::up, -80},
                        Case{Key::pageUp, 0}, Case{Key::down, -40}, Case{Key::home, 0}}) {
    EXPECT_TRUE(h.key(c.key));
    EXPECT_EQ(top(h) - start, c.moved);
  }
  EXPECT_FALSE(h.key(Key::up));
  EXPECT_FALSE(h.key(Key::right));
  h.tab();
  EXPECT_EQ(h.focused().name, "last");
  EXPECT_EQ(h.focused().bounds.maxY(), 120) << "no further than needed";
  EXPECT_EQ(h.focused().visible, h.focused().bounds);
  h.tab(true);
  EXPECT_EQ(h.focused().bounds.y, 0);
}

TEST(Scrolling, oneInAnotherTakesTheWheelUntilItIsAtItsEnd) {
  const View inner = ScrollView(column(10)).frame(60, 100).id("inner");
  Harness h(ScrollView(VStack({.spacing = 0}, {inner, View(Color::gray()).frame(60, 300)})),
            {100, 150});
  EXPECT_TRUE(h.wheel({50, 50}, 0, 60));
  EXPECT_EQ(top(h), -60);
  EXPECT_EQ(h.findId("inner").bounds.y, 0);
  EXPECT_TRUE(h.wheel({50, 50}, 0, 500));
  EXPECT_EQ(top(h), -100);
  EXPECT_TRUE(h.wheel({50, 50}, 0, 30)) << "now the outer one";
  EXPECT_EQ(h.findId("inner").bounds.y, -30);
  EXPECT_TRUE(h.wheel({50, 50}, 0, -10)) << "the inner one again";
  EXPECT_EQ(h.findId("inner").bounds.y, -30);
  EXPECT_EQ(top(h), -30 - 90);
  EXPECT_TRUE(h.wheel({50, 140}, 0, -30)) << "beside it, the outer one";
  EXPECT_EQ(h.findId("inner").bounds.y, 0);
}

TEST(Scrolling, focusIsBroughtIntoViewThroughBoth) {
  std::vector<View> buttons;
  buttons.reserve(10);
  for (int i = 0; i < 10; ++i) buttons.push_back(Button([] {}, Text(std::to_string(i))));
  const View inner = ScrollView(VStack(buttons)).frame(60, 80);
  Harness h(ScrollView(VStack(
                {View(Color::gray()).frame(60, 300), inner, View(Color::gray()).frame(60, 300)})),
            {100, 100});
  h.tab(true);
  ASSERT_EQ(h.focused().name, "9");
  EXPECT_EQ(h.focused().visible, h.focused().bounds);
  EXPECT_GE(h.focused().bounds.y, 0);
  EXPECT_LE(h.focused().bounds.maxY(), 100);
  while (h.tab(true)) {
    EXPECT_EQ(h.focused().visible, h.focused().bounds) << h.focused().name;
  }
}

TEST(Scrolling, sidewaysAndBothWays) {
  const auto wide = [](ScrollAxes axes) {
    return ScrollView(View(Color::red()).frame(300, 200).id("all"), axes);
  };
  struct Case {
    ScrollAxes axes;
    Point wheel;
    Point at;
  };
  const Case cases[] = {{ScrollAxes::horizontal, {30, 0}, {-30, 0}},
                        {ScrollAxes::horizontal, {0, 30}, {-30, 0}},
                        {ScrollAxes::horizontal, {30, 9}, {-30, 0}},
                        {ScrollAxes::both, {30, 20}, {-30, -20}},
                        {ScrollAxes::both, {1e9, 1e9}, {-200, -100}}};
  for (const Case& c : cases) {
    Harness h(wide(c.axes), {100, 100});
    const double y = h.findId("all").bounds.y;
    EXPECT_TRUE(h.wheel({50, 50}, c.wheel.x, c.wheel.y));
    EXPECT_EQ(h.findId("all").bounds.x, c.at.x);
    EXPECT_EQ(h.findId("all").bounds.y - y, c.at.y);
  }
  Harness h(wide(ScrollAxes::both), {100, 100});
  const auto bars = [&] {
    int count = 0;
    for (const DrawnCommand& d : h.drawn()) {
      count += std::holds_alternative<FillRoundedRect>(d.command) ? 1 : 0;
    }
    return count;
  };
  EXPECT_EQ(bars(), 2);
  h.resize({300, 100});
  EXPECT_EQ(bars(), 1);
  h.resize({300, 200});
  EXPECT_EQ(bars(), 0);
  h.setRoot(wide(ScrollAxes::vertical));
  h.resize({100, 100});
  EXPECT_EQ(bars(), 1);
}

TEST(Scrolling, whatIsPressedIsWhatShowsThere) {
  std::string log;
  std::vector<View> rows;
  rows.reserve(20);
  for (int i = 0; i < 20; ++i) {
    rows.push_back(
        View(Color::red()).frame(40, 20).onTap([&log, i] { log += std::to_string(i) + ' '; }));
  }
  const View list = ScrollView(VStack({.spacing = 0}, rows)).frame(40, 60);
  Harness h(VStack({.spacing = 0}, {Button([&] { log += "top "; }, Color::blue()).frame(40, 20),
                                    list, View(Color::gray()).frame(40, 20)})
                .scale(0.5),
            {100, 100});
  // Halved about the middle: the list stands from 35 to 65.
  h.wheel({50, 50}, 0, 50);
  h.click({50, 36});
  h.click({50, 64});
  EXPECT_EQ(log, "2 5 ");
  h.click({50, 32});
  h.click({50, 67});
  EXPECT_EQ(log, "2 5 top ") << "rows beyond the edges are not there";
}

TEST(Scrolling, aPressedRowThatScrollsAwayIsNotPressed) {
  int pressed = 0;
  std::vector<View> rows;
  rows.reserve(20);
  for (int i = 0; i < 20; ++i) rows.push_back(Button([&] { ++pressed; }, Text("b")).frame(40, 20));
  Harness h(ScrollView(VStack({.spacing = 0}, rows)), {40, 60});
  h.press({20, 30});
  h.wheel({20, 30}, 0, 40);
  h.release();
  EXPECT_EQ(pressed, 0);
  h.click({20, 30});
  EXPECT_EQ(pressed, 1);
}

}  // namespace
}  // namespace zq
