// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

// What views were told, in order, as words.
using Log = std::shared_ptr<std::string>;

Log makeLog() {
  return std::make_shared<std::string>();
}
std::function<void()> note(const Log& log, const std::string& word) {
  return [log, word] { *log += word + ' '; };
}
std::string taken(const Log& log) {
  return std::exchange(*log, {});
}

View hoverable(const Log& log) {
  return Rectangle().frame(40, 40).onHover([log](bool inside) { *log += inside ? "in " : "out "; });
}

struct Flipped {
  std::function<View(bool)> content;
  std::shared_ptr<std::optional<State<bool>>> on = std::make_shared<std::optional<State<bool>>>();
  View body(Context& context) const {
    *on = context.state(false);
    return content(***on);
  }
};

TEST(Hover, endsWithWhateverEndsIt) {
  struct Row {
    const char* what;
    std::function<void(Harness&, State<bool>)> end;
    bool comesBack;  // when it is undone
  };
  const auto undo = [](Harness& h, State<bool> on) {
    on.set(false);
    h.setVisible(true);
    h.setWindowActive(true);
    h.dragLeave();
    h.moveTo({50, 50});
  };
  const Row rows[] = {
      {"leave", [](Harness& h, State<bool>) { h.leave(); }, true},
      {"move away",
       [](Harness& h, State<bool>) {
         h.moveTo({5, 5});
       },
       true},
      {"hide", [](Harness& h, State<bool>) { h.setVisible(false); }, true},
      {"inactive window", [](Harness& h, State<bool>) { h.setWindowActive(false); }, true},
      {"disabled", [](Harness& h, State<bool> on) { on.set(true), h.settle(); }, true},
      {"a drag from elsewhere",
       [](Harness& h, State<bool>) {
         h.dragOver({5, 5}, {.types = {"public.url"}});
       },
       true},
      {"removed", [](Harness& h, State<bool>) { h.setRoot(Text("gone")); }, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    const Log log = makeLog();
    const Flipped view{[log](bool on) {
      return hoverable(log)
          .disabled(on)
          .flexFrame({.maxWidth = kInfinity, .maxHeight = kInfinity})
          .onDrop({.types = {"public.url"}});
    }};
    Harness h(view, {100, 100});
    const State<bool> on = **view.on;
    h.moveTo({50, 50});
    EXPECT_EQ(taken(log), "in ");
    row.end(h, on);
    EXPECT_EQ(taken(log), "out ");
    undo(h, on);
    EXPECT_EQ(taken(log), row.comesBack ? "in " : "");
  }
}

TEST(Hover, isDerivedAfterEachLayoutAndGrabbedWhilePressed) {
  const Log log = makeLog();
  const Flipped view{[log](bool on) {
    return VStack({.spacing = 0}, {on ? View(Rectangle().frame(40, 60)) : View(), hoverable(log)});
  }};
  Harness h(view, {40, 100});
  h.moveTo({20, 35});
  EXPECT_EQ(taken(log), "in ");
  (*view.on)->set(true);
  h.settle();
  EXPECT_EQ(taken(log), "out ") << "it moved away from under the pointer";
  h.press({20, 10});
  h.moveTo({20, 80});
  EXPECT_EQ(taken(log), "") << "a button is held that went down elsewhere";
  h.release();
  EXPECT_EQ(taken(log), "in ");
}

TEST(Press, tapAndDragDecideByDistance) {
  const Log log = makeLog();
  DragGesture drag;
  drag.minimumDistance = 10;
  drag.onChanged = [log](const DragValue& v) {
    *log += std::to_string(static_cast<int>(v.translation().width)) + ' ';
  };
  drag.onEnded = [log](const DragValue&) { *log += "ended "; };
  drag.onCancelled = note(log, "cancelled");
  const Flipped view{[=](bool on) {
    return Rectangle().frame(60, 60).onTap(note(log, "tap")).gesture(drag).disabled(on);
  }};
  Harness h(view, {60, 60});
  h.click({30, 30});
  EXPECT_EQ(taken(log), "tap ");
  h.drag({20, 30}, {26, 30}, 1);
  EXPECT_EQ(taken(log), "tap ") << "too short for a drag";
  h.drag({20, 30}, {40, 30}, 2);
  EXPECT_EQ(taken(log), "10 20 ended ");
  const auto inFlight = [&] {
    h.press({20, 30});
    h.moveTo({40, 30});
    taken(log);
  };
  inFlight();
  h.setWindowActive(false);
  h.release();
  EXPECT_EQ(taken(log), "cancelled ");
  h.setWindowActive(true);
  inFlight();
  (*view.on)->set(true);
  h.settle();
  h.moveTo({45, 30});
  h.release();
  EXPECT_EQ(taken(log), "cancelled ") << "disabled";
  (*view.on)->set(false);
  h.settle();
  inFlight();
  h.setRoot(Text("gone"));
  h.release();
  EXPECT_EQ(taken(log), "cancelled ");
}

TEST(Press, firesWhereItIsReleasedInsideAndInFront) {
  const Log log = makeLog();
  Harness h(ZStack({Rectangle().frame(100, 100).onTap(note(log, "behind")),
                    Button(note(log, "front"), Color::red()).frame(40, 40)}),
            {100, 100});
  h.click({50, 50});
  h.click({10, 10});
  EXPECT_EQ(taken(log), "front behind ");
  h.press({50, 50});
  EXPECT_NE(h.displayList().find("opacity 0.6"), std::string::npos) << "held";
  EXPECT_FALSE(h.damage().empty());
  h.moveTo({10, 10});
  h.release();
  EXPECT_EQ(taken(log), "");
  EXPECT_EQ(h.displayList().find("opacity 0.6"), std::string::npos);
}

TEST(Drop, takesOnlyItsTypesAndSaysWhenItIsMeant) {
  const Log log = makeLog();
  DropTarget target{{"public.url"}, {}, {}};
  target.onTargeted = [log](bool inside) { *log += inside ? "over " : "away "; };
  target.onDrop = [log](const DropInfo& info) {
    *log += describe(Rect{info.location.x, info.location.y, 0, 0}) + ' ';
    for (const auto& item : info.items) *log += item->types().front() + ' ';
    return info.items.size() != 2;
  };
  Harness h(Rectangle().frame(40, 40).onDrop(target), {100, 100});
  EXPECT_FALSE(h.dragOver({50, 50}, {.types = {"public.png"}}));
  EXPECT_FALSE(h.dragOver({5, 5}, {.types = {"public.url"}}));
  EXPECT_EQ(taken(log), "");
  EXPECT_TRUE(h.dragOver({50, 50}, {.types = {"public.png", "public.url"}}));
  h.dragOver({5, 5}, {.types = {"public.url"}});
  EXPECT_EQ(taken(log), "over away ");
  EXPECT_TRUE(h.drop({40, 50}, draggedUrls({"a:b"})));
  EXPECT_EQ(taken(log), "over away 10,20 0x0 public.url ");
  EXPECT_FALSE(h.drop({40, 50}, draggedUrls({"a:b", "file:///c"})));
  EXPECT_EQ(taken(log), "over away 10,20 0x0 public.url public.file-url ");
  DragItems mixed = draggedText("words");
  mixed.push_back(draggedUrls({"a:b"}).front());
  EXPECT_TRUE(h.drop({40, 50}, mixed));
  EXPECT_EQ(taken(log), "over away 10,20 0x0 public.url ") << "only items of its types reach it";
  const DropInfo offer{{40, 50}, {"public.png", "public.url"}};
  EXPECT_EQ(h.host().dropTypes(offer), std::vector<std::string>{"public.url"});
  EXPECT_TRUE(h.host().dropTypes({{5, 5}, {"public.url"}}).empty());
}

TEST(Scroll, byWheelKeysAndFocusAndKeepsItsPlace) {
  const auto rows = [](int n) {
    std::vector<int> numbers(static_cast<std::size_t>(n));
    std::iota(numbers.begin(), numbers.end(), 0);
    return ScrollView(VStack({.spacing = 0}, {ForEach(numbers, [](int i) {
                               return Button(nullptr, Text(std::to_string(i)));
                             })}));
  };
  Harness h(rows(100), {100, 160});
  EXPECT_TRUE(h.findText("0"));
  EXPECT_FALSE(h.findText("10")) << "below the edge";
  EXPECT_TRUE(h.wheel({50, 50}, 0, 32));
  EXPECT_EQ(h.findText("2").bounds.y, 0);
  h.setRoot(rows(101));
  EXPECT_EQ(h.findText("2").bounds.y, 0);
  h.wheel({50, 50}, 0, 1e9);
  EXPECT_EQ(h.findText("100").bounds.maxY(), 160);
  EXPECT_FALSE(h.wheel({50, 50}, 0, 5)) << "at its end the next one may scroll";
  h.setRoot(rows(5));
  EXPECT_EQ(h.findText("0").bounds.y, 0) << "shorter than the window";
  h.setRoot(rows(100));
  for (int i = 0; i < 21; ++i) h.tab();
  EXPECT_TRUE(h.focused());
  EXPECT_EQ(h.focused().name, "20");
  EXPECT_TRUE(h.findText("20")) << "focus brings it into view";
  h.key(Key::home);
  EXPECT_EQ(h.findText("0").bounds.y, 0);
  h.key(Key::pageDown);
  EXPECT_EQ(h.findText("8").bounds.y, 8);
}

TEST(Focus, followsTheTreeAndPressesWithSpaceAndEnter) {
  const Log log = makeLog();
  Harness h(VStack({Button(note(log, "a"), Text("a")),
                    View(Button(note(log, "off"), Text("off"))).disabled(),
                    Text("t").onTap(note(log, "t")),
                    View(Button(note(log, "ok"), Text("ok"))).keyboardShortcut(Key::enter)}));
  std::string order;
  while (h.tab()) order += h.focused().name + ' ';
  EXPECT_EQ(order, "a t ok ");
  while (h.tab(true)) order += h.focused().name + ' ';
  EXPECT_EQ(order, "a t ok ok t a ");
  EXPECT_FALSE(h.focused());
  h.key(Key::enter);
  EXPECT_EQ(taken(log), "ok ") << "the shortcut";
  h.tab();
  EXPECT_NE(h.displayList().find("stroke"), std::string::npos) << "a ring";
  h.key(Key::enter);
  h.key(Key::space);
  EXPECT_EQ(taken(log), "a a ");
  h.click(h.button("t"));
  EXPECT_EQ(h.displayList().find("stroke"), std::string::npos) << "no ring after a click";
  h.setRoot(Text("nothing to focus"));
  EXPECT_FALSE(h.focused());
  EXPECT_FALSE(h.tab());
}

TEST(TextFields, typeEditAndSubmit) {
  const Log log = makeLog();
  struct Form {
    Log log;
    View body(Context& context) const {
      auto text = context.state<std::string>("ab");
      return VStack({TextField("Name", text.binding()).onSubmit(note(log, "submit")),
                     Text("<" + *text + ">"),
                     Button([text] { text.set("reset"); }, Text("reset"))});
    }
  };
  Harness h(Form{log});
  h.type("x");
  EXPECT_TRUE(h.findText("<ab>")) << "nothing is focused";
  h.click(h.find(Role::textField, "Name"));
  h.type("\xc3\xa9 z");
  EXPECT_TRUE(h.findText("<ab\xc3\xa9 z>"));
  h.key(Key::left);
  h.key(Key::left);
  h.key(Key::backspace);
  EXPECT_TRUE(h.findText("<ab z>")) << "a whole character goes";
  h.key(Key::deleteForward);
  h.key(Key::home);
  h.type("1");
  EXPECT_TRUE(h.findText("<1abz>"));
  h.key(Key::enter);
  EXPECT_EQ(taken(log), "submit ");
  h.click(h.button("reset"));
  EXPECT_EQ(h.find(Role::textField).value, "reset") << "the owner's text wins";
}

TEST(Popover, opensBesideItsViewAndGoesByEscapeOrAClickElsewhere) {
  struct Owner {
    View body(Context& context) const {
      auto open = context.state(false);
      return View(Button([open] { open.set(true); }, Text("open")))
          .popover(open.binding(), VStack({Text("inside"), Button(nullptr, Text("stay"))}));
    }
  };
  Harness h(Owner{}, {300, 200});
  h.click(h.button("open"));
  ASSERT_TRUE(h.findText("inside"));
  EXPECT_GT(h.findText("inside").bounds.y, h.findText("open").bounds.maxY());
  h.click(h.button("stay"));
  EXPECT_TRUE(h.findText("inside"));
  h.click({2, 2});
  EXPECT_FALSE(h.findText("inside"));
  EXPECT_FALSE(h.damage().empty());
  h.click(h.button("open"));
  EXPECT_TRUE(h.key(Key::escape));
  EXPECT_FALSE(h.findText("inside"));
  EXPECT_FALSE(h.key(Key::escape));
}

TEST(Accessibility, isDerivedFromTextsAndButtonsAndOverridden) {
  Harness h(VStack({Text("Plain"),
                    Button(nullptr, HStack({Image::symbol("arrow.right.circle"), Text("Go on")})),
                    Button(nullptr, Image::symbol("star.fill")), Image::symbol("gear"),
                    View(Button(nullptr, Text("x")))
                        .accessibility({.role = Role::toggle, .label = "Loud", .checked = true})
                        .help("More noise")
                        .disabled(),
                    Text("hidden").accessibility({.hidden = true}), ProgressView(0.5),
                    HStack({Text("Row"), Button(nullptr, Text("Remove"))}).onTap([] {})}));
  EXPECT_EQ(h.accessibility(), R"(text "Plain"
button "Go on"
button "star"
toggle "Loud" (More noise) on disabled
progress = "50 %"
button "Row Remove"
  button "Remove"
)");
}

TEST(Pointer, cursorAndHelpAreThoseUnderIt) {
  Harness h(View(HStack({.spacing = 0}, {Rectangle().frame(50, 50).cursor(Cursor::pointingHand),
                                         Rectangle().frame(50, 50).help("why")})),
            {100, 50});
  h.moveTo({20, 20});
  EXPECT_EQ(h.cursor(), Cursor::pointingHand);
  h.moveTo({70, 20});
  EXPECT_EQ(h.cursor(), Cursor::arrow);
  EXPECT_EQ(h.help(), "why");
  h.leave();
  EXPECT_EQ(h.help(), "");
}

}  // namespace
}  // namespace zq
