// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

struct Log {
  std::string text;
  std::function<void()> note(const char* what) {
    return [this, what] { text += std::string(what) + " "; };
  }
  std::string taken() { return std::exchange(text, {}); }
};

TEST(OnPress, isToldAtOnceHowManiethClickItIsUnlessSomethingInFrontTakesIt) {
  Log log;
  const auto pressed = [&log](int clicks) { log.text += "press" + std::to_string(clicks) + " "; };
  const auto dragged = [&log](const DragValue&) { log.text += "drag "; };
  Harness h(VStack({.spacing = 0}, {Rectangle().frame(40, 40),
                                    Button(log.note("inner"), Text("inner")).frame(40, 40)})
                .onPress(pressed)
                .onTap(log.note("tap"), TabStop::no)
                .gesture({.minimumDistance = 4, .onChanged = dragged})
                .accessibilityLabel("row"),
            {40, 80});
  h.press({20, 20});
  EXPECT_EQ(log.taken(), "press1 ");
  h.release();
  EXPECT_EQ(log.taken(), "tap ");
  h.doubleClick(h.findText("inner"));
  EXPECT_EQ(log.taken(), "inner inner ");
  h.press({20, 20});
  h.moveTo({20, 26});
  h.release();
  EXPECT_EQ(log.taken(), "press1 drag ") << "a drag begins all the same";
  h.host().pointerDown({20, 20}, PointerButton::primary, 2);
  h.host().pointerUp({20, 20}, PointerButton::primary);
  EXPECT_EQ(log.taken(), "press2 tap ");
  EXPECT_FALSE(h.host().pointerDown({20, 20}, PointerButton::secondary, 1));
  EXPECT_EQ(log.taken(), "");
}

TEST(OnTap, whatIsNoStopOfTabIsPressedByAssistiveTechnology) {
  Log log;
  Harness h(VStack({Text("row").onTap(log.note("row"), TabStop::no),
                    Button(log.note("button"), Text("button"))}));
  EXPECT_FALSE(h.button("row").focusable);
  EXPECT_TRUE(h.host().accessibilityPress(h.button("row").id));
  EXPECT_FALSE(h.host().accessibilityFocus(h.button("row").id));
  EXPECT_EQ(log.taken(), "row ");
  ASSERT_TRUE(h.tab());
  EXPECT_EQ(h.focused().name, "button");
  EXPECT_FALSE(h.tab());
}

TEST(OnFocus, isToldOfWhatIsInsideInAWindowThatHasTheFocus) {
  std::string log;
  const auto told = [&log](bool focused) { log += focused ? '+' : '-'; };
  const auto since = [&log] { return std::exchange(log, {}); };
  Harness h(VStack({VStack({Button([] {}, Text("a")), Button([] {}, Text("b"))}).onFocus(told),
                    Button([] {}, Text("c"))}));
  EXPECT_EQ(since(), "");
  h.tab();
  EXPECT_EQ(since(), "+");
  h.tab();
  EXPECT_EQ(since(), "") << "from one to another inside";
  h.host().focusOut();
  h.settle();
  EXPECT_EQ(since(), "-");
  h.host().focusIn();
  h.settle();
  EXPECT_EQ(since(), "+");
  h.tab();
  EXPECT_EQ(since(), "-");
}

// A column of 400 points seen through 100.
struct Column {
  std::optional<Rect> part;
  unsigned turn = 0;
  Rect* seen = nullptr;
  bool operator==(const Column&) const = default;
  View body(Context&) const {
    return ScrollView(View(Rectangle())
                          .frame(40, 400)
                          .onVisiblePart([seen = seen](const Rect& now) { *seen = now; })
                          .revealing(part, turn));
  }
};

TEST(TakingFocus, goesToTheFirstPlaceInItWhenTheTurnIsAnother) {
  const auto screen = [](unsigned turn) {
    return VStack({Button(nullptr, Text("before")),
                   VStack({Text("name"), Button(nullptr, Text("first")).disabled(turn == 3),
                           Button(nullptr, Text("second"))})
                       .takingFocus(turn)});
  };
  Harness h(screen(1), {200, 200});
  const auto focused = [&] {
    for (const char* name : {"before", "first", "second"}) {
      if (h.find(Role::button, name).focused) return std::string(name);
    }
    return std::string();
  };
  EXPECT_EQ(focused(), "") << "not when it is first shown";
  const auto turned = [&](unsigned turn) {
    h.setRoot(screen(turn));
    return focused();
  };
  EXPECT_EQ(turned(2), "first");
  h.key(Key::tab);
  EXPECT_EQ(turned(2), "second") << "the same turn leaves it where it is";
  EXPECT_EQ(turned(3), "second") << "what is disabled takes none";
  EXPECT_EQ(turned(4), "first");
}

TEST(Revealing, scrollsAsFarAsNeededEachTimeThatPartOrTurnIsAnother) {
  Rect seen;
  Harness h(Column{Rect{0, 150, 1, 20}, 0, &seen}, {40, 100});
  EXPECT_EQ(seen, (Rect{0, 70, 40, 100})) << "when it is first shown";
  h.wheel({20, 50}, 0, 200);
  EXPECT_EQ(seen.y, 270);
  h.setRoot(Column{Rect{0, 150, 1, 20}, 0, &seen});
  EXPECT_EQ(seen.y, 270) << "nothing was asked for";
  h.setRoot(Column{Rect{0, 150, 1, 20}, 1, &seen});
  EXPECT_EQ(seen.y, 150);
  h.setRoot(Column{Rect{0, 390, 1, 900}, 1, &seen});
  EXPECT_EQ(seen.y, 300) << "no further than the content goes";
  h.setRoot(Column{std::nullopt, 2, &seen});
  EXPECT_EQ(seen.y, 300);
  h.setVisible(false);
  EXPECT_EQ(seen, Rect());
}

TEST(TextScale, changesEveryFontAndTheFramesThatHoldTexts) {
  const View all =
      VStack({.spacing = 0},
             {Text("body"), View(Text("small")).font(Font::system(10)), Image::symbol("checkmark"),
              View(Text("held")).frame({.height = 24, .growsWithText = true}),
              TextField("field", Binding<std::string>::constant("typed"))});
  Harness h(all);
  const double body = h.findText("body").font.size;
  const auto heights = [&] {
    return std::vector{h.findText("small").font.size, h.findSymbol("checkmark").bounds.height,
                       h.host().textFields().front().font.size};
  };
  EXPECT_EQ(heights(), (std::vector{10.0, std::ceil(body * 1.25), body}));
  const double field = h.find(Role::textField).bounds.height;
  h.setAppearance({.textScale = 2});
  EXPECT_EQ(h.findText("body").font.size, 2 * body);
  EXPECT_EQ(heights(), (std::vector{20.0, std::ceil(body * 2.5), 2 * body}));
  EXPECT_GT(h.find(Role::textField).bounds.height, 1.5 * field);
  const auto room = [&](double scale) {
    h.setAppearance({.textScale = scale});
    return h.find(Role::textField).bounds.y - h.findSymbol("checkmark").bounds.maxY();
  };
  EXPECT_EQ(room(2), 48);
  EXPECT_EQ(room(0.5), 24) << "no less than it holds at the usual size";
  struct Case {
    double given, shown;
  };
  for (const Case& c : {Case{0.1, 0.5}, Case{90, 4}, Case{std::nan(""), 1}, Case{1.2345, 1.23}}) {
    h.setAppearance({.textScale = c.given});
    EXPECT_DOUBLE_EQ(h.findText("body").font.size, c.shown * body) << c.given;
  }
  h.setRoot(all.environment<TextScaleKey>(2));
  EXPECT_EQ(h.findText("body").font.size, 2 * body);
}

}  // namespace
}  // namespace zq
