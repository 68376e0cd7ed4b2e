// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <limits>
#include <zqswiftui/layout/row_list.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

TEST(RowList, aStretchMeetsTheRowsThatItTouches) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  struct Case {
    double from, to;
    std::size_t count;
    RowRange rows;
  };
  for (const Case& row :
       {Case{0, 50, 100, {0, 2}}, Case{24.9, 25.1, 100, {0, 2}}, Case{25, 50, 100, {1, 2}},
        Case{-80, 10, 100, {0, 1}}, Case{90, 1e300, 4, {3, 4}}, Case{500, 600, 4, {4, 4}},
        Case{-90, -10, 4, {0, 0}}, Case{10, 10, 4, {0, 0}}, Case{kNan, 50, 4, {0, 0}},
        Case{0, 50, 0, {0, 0}}}) {
    EXPECT_EQ(rowsBetween(row.from, row.to, 25, row.count), row.rows) << row.from << ' ' << row.to;
  }
}

struct CountedRow {
  std::string name;
  View body(Context& context) const {
    const auto pressed = context.state(0);
    return Button([pressed] { pressed.set(*pressed + 1); },
                  Text(name + ":" + std::to_string(*pressed)));
  }
  bool operator==(const CountedRow&) const = default;
};

View list(std::size_t count, std::size_t first = 0) {
  return ScrollView(
      RowList({.count = count,
               .rowHeight = 20,
               .key = [first](std::size_t i) { return std::to_string(first + i); },
               .row = [first](std::size_t i) { return CountedRow{std::to_string(first + i)}; }}));
}

TEST(RowList, scrollsTabsAndKeepsWhatIsNear) {
  Harness h(list(100'000), {200, 100});
  EXPECT_LT(h.counts().bodies, 40U);
  EXPECT_TRUE(h.findText("4:0"));
  h.click(h.findText("2:0"));
  EXPECT_TRUE(h.findText("2:1"));

  h.setRoot(list(100'001, 0));  // one more at the end
  EXPECT_TRUE(h.findText("2:1"));
  h.wheel({100, 50}, 0, 70);
  EXPECT_FALSE(h.findText("2:1"));
  h.wheel({100, 50}, 0, -70);
  EXPECT_TRUE(h.findText("2:1"));

  h.wheel({100, 50}, 0, 1'500'000);
  EXPECT_TRUE(h.findText("75000:0")) << h.texts().front().text;

  // What has the focus is brought into sight, and with it the next ones are made.
  Harness tabbed(list(100), {200, 100});
  for (int i = 0; i < 30; ++i) ASSERT_TRUE(tabbed.tab());
  EXPECT_TRUE(tabbed.findText("29:0"));
  EXPECT_TRUE(tabbed.focused().visible.height > 0);
}

TEST(RowList, emptyAndImpossible) {
  Harness none(list(0), {200, 100});
  EXPECT_TRUE(none.texts().empty());
  Harness flat(ScrollView(RowList({.count = std::size_t{3},
                                   .rowHeight = -4,
                                   .key = [](std::size_t i) { return std::to_string(i); },
                                   .row = [](std::size_t) { return Color::red(); }})),
               {200, 100});
  EXPECT_EQ(flat.drawn().size(), 3U);
}

}  // namespace
}  // namespace zq
