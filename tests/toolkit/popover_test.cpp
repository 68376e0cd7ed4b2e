// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

// Bubbles beside views: where they stand, what ends them, and what they take part in.

namespace zq {
namespace {

using Flag = std::shared_ptr<std::optional<State<bool>>>;
Flag makeFlag() {
  return std::make_shared<std::optional<State<bool>>>();
}

// An anchor of 20 by 10 at a place in the window, with a bubble around the content.
struct Anchored {
  Flag open;
  View content;
  Alignment place = Alignment::center();
  bool shown = true;
  View body(Context& context) const {
    *open = context.state(shown);
    return View(Color::red())
        .frame(20, 10)
        .id("anchor")
        .popover((*open)->binding(), content)
        .flexFrame({.maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = place});
  }
};

Rect bubbleOf(Harness& h) {
  return h.findId("content").bounds.insetBy(-8);
}
View content(double width = 40, double height = 20) {
  return View(Color::blue()).frame(width, height).id("content");
}

TEST(PopoverPlaces, besideTheAnchorAtEveryEdgeAndInsideTheWindow) {
  const Alignment places[] = {
      Alignment::topLeading(), Alignment::top(),           Alignment::topTrailing(),
      Alignment::leading(),    Alignment::center(),        Alignment::trailing(),
      Alignment::bottom(),     Alignment::bottomLeading(), Alignment::bottomTrailing()};
  for (const Alignment& place : places) {
    for (const Size window : {Size{200, 120}, Size{90, 200}, Size{70, 60}}) {
      Harness h(Anchored{makeFlag(), content(), place}, window);
      const Rect bubble = bubbleOf(h), anchor = h.findId("anchor").bounds;
      SCOPED_TRACE(describe(bubble) + " at " + describe(anchor));
      EXPECT_GE(bubble.y, 4);
      EXPECT_GE(bubble.x - 4, 4) << "its padding is wider at the sides";
      EXPECT_LE(bubble.maxX() + 4, window.width - 4 + (window.width < 73 ? 8 : 0));
      const bool roomBelow = anchor.maxY() + 4 + bubble.height <= window.height - 4;
      const bool roomAbove = anchor.y - 4 - bubble.height >= 4;
      if (roomBelow) {
        EXPECT_EQ(bubble.y, anchor.maxY() + 4);
      } else if (roomAbove) {
        EXPECT_EQ(bubble.maxY(), anchor.y - 4);
      }
    }
  }
}

struct Moving {
  Flag open;
  Flag moved;
  View body(Context& context) const {
    *moved = context.state(false);
    const bool down = ***moved;
    return VStack({.spacing = 0},
                  {View(Color::gray()).frame(10, down ? 30 : 0),
                   Anchored{open, content(down ? 60 : 40), Alignment::topLeading()}});
  }
};

TEST(PopoverPlaces, followTheirAnchorsAndTheirContents) {
  const Flag moved = makeFlag();
  Harness h(Moving{makeFlag(), moved}, {200, 150});
  EXPECT_EQ(bubbleOf(h).y, h.findId("anchor").bounds.maxY() + 4);
  (*moved)->set(true);
  h.settle();
  EXPECT_EQ(h.findId("anchor").bounds.y, 30);
  EXPECT_EQ(bubbleOf(h).y, 44);
  EXPECT_EQ(h.findId("content").bounds.width, 60);
  withAnimation(Animation::linear(1), [&] { (*moved)->set(false); });
  h.settle();
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(bubbleOf(h).y, h.findId("anchor").bounds.maxY() + 4) << "on its way";
    h.advance(0.5);
  }
  h.resize({200, 40});
  EXPECT_GE(bubbleOf(h).y, 4);
}

TEST(PopoverPlaces, followAnAnchorThatIsScrolled) {
  const View screen = ScrollView(VStack({View(Color::gray()).frame(20, 60),
                                         View(Anchored{makeFlag(), content()}).frame(20, 10),
                                         View(Color::gray()).frame(20, 300)}));
  Harness h(screen, {100, 200});
  const double before = bubbleOf(h).y;
  h.wheel({50, 150}, 0, 40);
  EXPECT_EQ(h.findId("anchor").bounds.y, 28);
  EXPECT_EQ(bubbleOf(h).y, before - 40);
}

TEST(PopoverEnds, innerOnesFirstAndOnlyOneForAPress) {
  const Flag outer = makeFlag(), inner = makeFlag();
  int behind = 0;
  const View nested = Anchored{inner, Text("inner")};
  const View all = ZStack(
      {View(Color::gray()).onTap([&] { ++behind; }),
       View(Anchored{outer, VStack({Text("outer"), nested.frame(30, 12)}), Alignment::top()})});
  const auto open = [&](Harness& h) {
    return (h.findText("outer") ? "outer " : "") + std::string(h.findText("inner") ? "inner" : "");
  };
  for (const bool byKey : {true, false}) {
    Harness h(all, {300, 200});
    const auto dismiss = [&] { byKey ? void(h.key(Key::escape)) : h.click({290, 190}); };
    EXPECT_EQ(open(h), "outer inner");
    dismiss();
    EXPECT_EQ(open(h), "outer ");
    (*inner)->set(true);
    h.settle();
    EXPECT_EQ(open(h), "outer inner");
    dismiss();
    dismiss();
    EXPECT_EQ(open(h), "");
    EXPECT_EQ(behind, 0) << "the press that ends a bubble does nothing else";
    EXPECT_FALSE(h.key(Key::escape));
    h.click({290, 190});
    EXPECT_EQ(behind, 1);
    behind = 0;
  }
}

TEST(PopoverEnds, withItsAnchorAndAllThatIsNested) {
  const Flag outer = makeFlag(), inner = makeFlag();
  const View nested = Anchored{inner, TextField("field", Binding<std::string>::constant("x"))};
  Harness h(View(Anchored{outer, VStack({Text("outer"), nested.frame(30, 12)})}), {300, 200});
  h.click(h.find(Role::textField, "field"));
  ASSERT_EQ(h.focused().role, Role::textField);
  h.setRoot(Text("gone"));
  EXPECT_EQ(h.displayList().find("outer"), std::string::npos);
  EXPECT_TRUE(h.host().textFields().empty());
  EXPECT_FALSE(h.focused());
  EXPECT_FALSE(h.key(Key::escape));
  h.setRoot(Anchored{outer, VStack({Text("outer"), nested.frame(30, 12)})});
  EXPECT_TRUE(h.findText("outer")) << "another place with a state of its own, open from the start";
  (*outer)->set(false);
  h.settle();
  EXPECT_EQ(h.host().textFields().size(), 0u) << "the inner one went with its anchor";
}

TEST(PopoverEnds, throughTheBindingThatItHasNow) {
  std::string told;
  const auto view = [&](const std::string& owner) {
    return View(Color::red())
        .frame(20, 10)
        .popover(
            Binding<bool>([] { return true; },
                          [&told, owner](const bool& on) { told += owner + (on ? "+" : "-"); }),
            Text("bubble of " + owner));
  };
  Harness h(view("a"), {200, 100});
  h.setRoot(view("b"));
  EXPECT_TRUE(h.findText("bubble of b"));
  EXPECT_TRUE(h.key(Key::escape));
  EXPECT_EQ(told, "b-");
  EXPECT_TRUE(h.findText("bubble of b")) << "its owner did not let it go";
}

struct TintKey {
  using Value = std::string;
  static Value defaultValue() { return "plain"; }
};
struct Tinted {
  View body(Context& context) const { return Text(context.environment<TintKey>()); }
};

TEST(PopoverContents, inheritFromTheirAnchorAndTakePartInTheScreen) {
  const auto view = [](const std::string& tint, bool off) {
    return View(Color::red())
        .frame(20, 10)
        .popover(Binding<bool>::constant(true), VStack({Tinted{}, Button([] {}, Text("press"))}))
        .disabled(off)
        .environment<TintKey>(tint);
  };
  Harness h(view("one", false), {200, 100});
  EXPECT_TRUE(h.findText("one"));
  h.setRoot(view("two", true));
  EXPECT_TRUE(h.findText("two"));
  EXPECT_FALSE(h.button("press").enabled);
  EXPECT_FALSE(h.tab());
  h.setRoot(view("two", false));
  EXPECT_TRUE(h.tab());
  EXPECT_EQ(h.focused().name, "press");
  EXPECT_EQ(h.accessibility(), "text \"two\"\nbutton \"press\" focused\n");
}

TEST(PopoverContents, coverWhatIsBelowThem) {
  std::string log;
  const auto hover = [&](const char* name) {
    return [&log, name](bool inside) { log += std::string(inside ? "+" : "-") + name; };
  };
  const Flag open = makeFlag();
  Harness h(ZStack({View(Color::gray()).onHover(hover("below")),
                    View(Anchored{open, View(content(80, 40)).onHover(hover("bubble")),
                                  Alignment::top()})}),
            {200, 120});
  const Point middle = h.findId("content").center();
  h.moveTo(middle);
  EXPECT_EQ(log, "+bubble");
  (*open)->set(false);
  h.settle();
  EXPECT_EQ(log, "+bubble-bubble+below");
}

}  // namespace
}  // namespace zq
