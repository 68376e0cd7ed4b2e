// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <algorithm>
#include <zqswiftui/controls/picker.hpp>
#include <zqswiftui/controls/switch.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

struct Chosen {
  std::size_t first = 1;
  View body(Context& context) const {
    const auto on = context.state(false);
    const auto type = context.state(first);
    return VStack({Switch("Follow", on.binding()),
                   Picker({.label = "Type",
                           .choices = {"number", "text", "point"},
                           .selection = type.binding()}),
                   Text("is " + std::to_string(*type))});
  }
};

TEST(Switch, isChangedByAClickTheKeyboardAndMovesItsKnobAtTheTrailingSide) {
  for (const LayoutDirection direction :
       {LayoutDirection::leftToRight, LayoutDirection::rightToLeft}) {
    Harness h(View(Chosen()).environment<LayoutDirectionKey>(direction));
    const auto knob = [&] {
      double x = 0;
      for (const DrawnCommand& d : h.drawn()) {
        if (d.bounds.width == 20 && d.bounds.height == 20) x = d.bounds.x;
      }
      return x;
    };
    const Element off = h.find(Role::toggle, "Follow");
    EXPECT_EQ(off.checked, false);
    const double before = knob();
    h.click(off);
    h.advance(1);
    EXPECT_EQ(h.find(Role::toggle).checked, true);
    EXPECT_EQ(knob() - before, direction == LayoutDirection::leftToRight ? 14 : -14);
    EXPECT_TRUE(h.key(Key::space));
    EXPECT_EQ(h.find(Role::toggle).checked, false);
  }
}

TEST(Picker, opensItsListAndTakesOneOfIt) {
  Harness h{Chosen()};
  const Element closed = h.button("Type");
  EXPECT_EQ(closed.value, "text");
  h.click(closed);
  EXPECT_EQ(h.button("text").checked, true);
  const auto isLit = [&h](const char* choice) {
    const Rect at = h.button(choice).bounds;
    const auto all = h.drawn();
    return std::any_of(all.begin(), all.end(), [&](const DrawnCommand& drawn) {
      const auto* ground = std::get_if<FillRoundedRect>(&drawn.command);
      return ground && drawn.bounds == at && ground->paint == Color::accent().opacity(0.25);
    });
  };
  h.hover(h.button("number"));
  EXPECT_TRUE(isLit("number"));
  h.hover(h.button("point"));
  EXPECT_TRUE(isLit("point"));
  EXPECT_FALSE(isLit("number"));
  h.click(h.button("point"));
  EXPECT_FALSE(h.button("point")) << "closed again";
  EXPECT_EQ(h.button("Type").value, "point");
  EXPECT_EQ(h.button("Type").bounds, closed.bounds) << "as wide as the widest";
  EXPECT_TRUE(h.findText("is 2"));
}

TEST(Picker, goesThroughItsChoicesByTheKeyboard) {
  Harness h{Chosen()};
  ASSERT_TRUE(h.tab());
  ASSERT_TRUE(h.tab());
  EXPECT_EQ(h.focused().name, "Type");
  for (const auto& [key, value] : std::vector<std::pair<Key, const char*>>{{Key::down, "point"},
                                                                           {Key::down, "point"},
                                                                           {Key::up, "text"},
                                                                           {Key::up, "number"},
                                                                           {Key::up, "number"}}) {
    EXPECT_TRUE(h.key(key));
    EXPECT_EQ(h.button("Type").value, value);
  }
  EXPECT_TRUE(h.key(Key::space));
  EXPECT_TRUE(h.button("point"));
  EXPECT_TRUE(h.key(Key::escape));
  EXPECT_FALSE(h.button("point"));

  Harness beyond(Chosen{9});
  EXPECT_EQ(beyond.button("Type").value, "");
  beyond.click(beyond.button("Type"));
  beyond.click(beyond.button("number"));
  EXPECT_EQ(beyond.button("Type").value, "number");
}

}  // namespace
}  // namespace zq
