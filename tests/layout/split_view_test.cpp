// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <zqswiftui/layout/split_view.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

struct Panes {
  View body(Context& context) const {
    const auto width = context.state(100.0);
    return SplitView({.leading = View(Text("a")).flexFrame({.maxWidth = kInfinity}).id("leading"),
                      .trailing = Text("b"),
                      .leadingWidth = width.binding(),
                      .leastLeading = 80,
                      .leastTrailing = 50});
  }
};

TEST(SplitView, itsLineIsDraggedAndMovedByKeysWithinBothBounds) {
  for (const LayoutDirection direction :
       {LayoutDirection::leftToRight, LayoutDirection::rightToLeft}) {
    const bool plain = direction == LayoutDirection::leftToRight;
    Harness h(View(Panes()).environment<LayoutDirectionKey>(direction), {300, 100});
    const auto width = [&] { return h.findId("leading").bounds.width; };
    const auto line = [&] { return h.find(Role::slider); };
    const auto drag = [&](double by) {
      const Rect at = line().bounds;
      const Point from{at.midX(), at.midY()};
      h.drag(from, {from.x + (plain ? by : -by), from.y});
      return width();
    };
    EXPECT_EQ(width(), 100);
    h.hover(line());
    EXPECT_EQ(h.cursor(), Cursor::resizeHorizontal);
    EXPECT_EQ(drag(40), 140);
    EXPECT_EQ(drag(-500), 80);
    EXPECT_EQ(drag(500), 300 - 1 - 50);
    h.key(plain ? Key::left : Key::right);
    EXPECT_EQ(width(), 241);
    h.key(plain ? Key::left : Key::right, {.shift = true});
    EXPECT_EQ(width(), 161);
    h.resize({150, 100});
    EXPECT_EQ(width(), 99) << "what is shown follows the room";
    h.resize({300, 100});
    EXPECT_EQ(width(), 161) << "and what was wished is kept";
    h.resize({60, 100});
    EXPECT_EQ(width(), 80);
  }
}

}  // namespace
}  // namespace zq
