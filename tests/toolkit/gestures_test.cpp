// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tests/toolkit/block.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

// Which view an input reaches, and in whose coordinates.

namespace zq {
namespace {

class Input : public testing::Test {
 protected:
  std::function<void()> note(const std::string& word) {
    return [this, word] { log += word + ' '; };
  }
  DragGesture drag(const std::string& name, double distance = 0) {
    DragGesture g;
    g.minimumDistance = distance;
    g.onChanged = [this, name](const DragValue& v) {
      log += name + ' ' +
             describe(Rect{v.startLocation.x, v.startLocation.y, v.location.x, v.location.y}) + ' ';
    };
    g.onEnded = [this, name](const DragValue&) { log += name + "-end "; };
    g.onCancelled = note(name + "-cancel");
    return g;
  }
  DropTarget target(const std::string& name, const std::string& type) {
    return {{type},
            [this, name](bool inside) { log += (inside ? '+' : '-') + name + ' '; },
            [this, name](const DropInfo& info) {
              log += name + '@' + describe(Rect{info.location.x, info.location.y, 0, 0}) + ' ';
              return true;
            }};
  }
  std::string taken() { return std::exchange(log, {}); }
  std::string log;
};

TEST_F(Input, reachesTheFrontMostAndTheInnermost) {
  struct Case {
    const char* what;
    View view;
    const char* log;
  };
  const Case cases[] = {
      {"the later one in front",
       ZStack({block(40, 40).onTap(note("a")), block(40, 40).onTap(note("b"))}), "b "},
      {"what takes no taps hides what is behind",
       ZStack({block(40, 40).onTap(note("a")), block(40, 40)}), ""},
      {"an outline alone does not",
       ZStack({block(40, 40).onTap(note("a")),
               Rectangle().stroke(Color::red(), {.lineWidth = 2}).frame(40, 40)}),
       "a "},
      {"the inner one alone", block(40, 40).onTap(note("in")).padding(5).onTap(note("out")), "in "},
      {"its padding is the outer one's",
       HStack({block(10, 10).onTap(note("in")), block(10, 10)}).padding(5).onTap(note("out")),
       "out "},
      {"a disabled one keeps what is inside of it",
       View(block(40, 40).onTap(note("in"))).disabled().onTap(note("out")), "out "},
      {"a background under a text", Text("w").background(block(60, 60).onTap(note("behind"))), ""},
      {"what sticks out of a frame", block(90, 90).onTap(note("big")).frame(10, 10), "big "},
      {"a moved view where it shows", block(20, 20).onTap(note("moved")).offset(40, 0), ""},
      {"a clip cuts it off",
       block(90, 90).onTap(note("cut")).offset(60, 0).frame(100, 90).clipped(), ""},
      {"what a moved one leaves empty, among others",
       ZStack({block(4, 4).padding(18).onTap(note("moved")).offset(15, 0), block(2, 2)},
              Alignment::topLeading())
           .frame({.width = 100, .height = 100, .alignment = Alignment::leading()}),
       "moved "},
      {"scaled to nothing", block(90, 90).onTap(note("none")).scale(0), ""},
  };
  for (const Case& c : cases) {
    Harness h(c.view, {100, 100});
    h.click({50, 50});
    EXPECT_EQ(taken(), c.log) << c.what;
  }
}

TEST_F(Input, dragsAreToldInTheViewsOwnPoints) {
  struct Case {
    const char* what;
    View view;
    const char* log;
  };
  const Case cases[] = {
      {"where it stands", block(40, 40).gesture(drag("d")), "d 20,20 20x20 d 20,20 30x10 "},
      {"moved", block(40, 40).gesture(drag("d")).offset(10, 5), "d 10,15 10x15 d 10,15 20x5 "},
      {"twice as large", block(40, 40).gesture(drag("d")).scale(2), "d 20,20 20x20 d 20,20 25x15 "},
      {"moved and scaled", block(40, 40).gesture(drag("d")).offset(10, 0).scale(2),
       "d 10,20 10x20 d 10,20 15x15 "},
  };
  for (const Case& c : cases) {
    Harness h(c.view, {100, 100});
    h.drag({50, 50}, {60, 40}, 1);
    EXPECT_EQ(taken(), c.log + std::string("d-end ")) << c.what;
  }
}

TEST_F(Input, keysGoToWhatHasTheFocus) {
  const auto keys = [this](const char* name, bool takes) {
    return [this, name, takes](const KeyEvent& key) {
      if (key.key == Key::tab) return false;
      log += std::string(name) + (key.key == Key::left ? "-left" : "-up") +
             (key.modifiers.shift ? "-shift " : " ");
      return takes;
    };
  };
  Harness h(VStack({block(40, 40).onKey(keys("a", true), 5), block(40, 40).onKey(keys("b", false))})
                .onKey(keys("out", true)),
            {100, 100});
  h.click({50, 30});
  EXPECT_TRUE(h.key(Key::left, {.shift = true}));
  EXPECT_EQ(taken(), "a-left-shift ");
  EXPECT_EQ(h.drawn().size(), 2u) << "no ring for a click";
  h.tab();
  EXPECT_TRUE(h.key(Key::up));
  EXPECT_EQ(taken(), "b-up out-up ") << "what is not taken goes to those around";
  EXPECT_NE(h.displayList().find("stroke 27.5,51.5 45x45"), std::string::npos) << h.displayList();
  h.tab(true);
  EXPECT_NE(h.displayList().find("stroke 32.5,8.5 35x35"), std::string::npos) << h.displayList();
  EXPECT_TRUE(h.focused().focusable);
  h.setRoot(block(40, 40).onKey(keys("c", true)).disabled());
  EXPECT_FALSE(h.tab());
}

TEST_F(Input, theInnerDragWinsAndATapSurvivesAShortWay) {
  Harness h(
      block(40, 40).onTap(note("tap")).gesture(drag("in", 10)).padding(10).gesture(drag("out", 0)),
      {60, 60});
  h.drag({30, 30}, {36, 30}, 2);
  EXPECT_EQ(taken(), "tap ");
  h.press({30, 30});
  h.moveTo({36, 30});
  h.moveTo({41, 30});
  h.moveTo({33, 30});
  EXPECT_EQ(taken(), "in 20,20 31x20 in 20,20 23x20 ") << "once begun it goes on";
  h.release();
  EXPECT_EQ(taken(), "in-end ");
  h.drag({5, 30}, {8, 30}, 1);
  EXPECT_EQ(taken(), "out 5,30 5x30 out 5,30 8x30 out-end ");
}

TEST_F(Input, aLostReleaseOrAnotherButtonStartsNothingTwice) {
  Harness h(block(40, 40).onTap(note("tap")).gesture(drag("d", 10)), {40, 40});
  ViewHost& host = h.host();
  EXPECT_FALSE(host.pointerDown({20, 20}, PointerButton::secondary));
  EXPECT_FALSE(host.pointerUp({20, 20}, PointerButton::secondary));
  EXPECT_EQ(taken(), "");
  host.pointerDown({20, 20}, PointerButton::primary);
  host.pointerMove({35, 20});
  taken();
  host.pointerDown({20, 20}, PointerButton::primary);
  EXPECT_EQ(taken(), "d-cancel ") << "its release never came";
  host.pointerUp({20, 20}, PointerButton::middle);
  EXPECT_EQ(taken(), "");
  host.pointerUp({20, 20}, PointerButton::primary);
  EXPECT_EQ(taken(), "tap ");
  host.pointerUp({20, 20}, PointerButton::primary);
  EXPECT_EQ(taken(), "");
}

struct Toggled {
  std::function<View(bool)> content;
  std::shared_ptr<std::optional<State<bool>>> on = std::make_shared<std::optional<State<bool>>>();
  View body(Context& context) const {
    *on = context.state(false);
    return content(***on);
  }
};

TEST_F(Input, aPressOnWhatIsDisabledOrMovedMeanwhileDoesNothing) {
  const Toggled disabled{
      [this](bool on) { return View(Button(note("b"), block(40, 40))).disabled(on); }};
  const Toggled moved{
      [this](bool on) { return View(Button(note("b"), block(40, 40))).offset(on ? 50 : 0, 0); }};
  for (const Toggled& view : {disabled, moved}) {
    Harness h(view, {100, 40});
    h.press({50, 20});
    (*view.on)->set(true);
    h.settle();
    h.release();
    EXPECT_EQ(taken(), "");
    (*view.on)->set(false);
    h.settle();
    h.click({50, 20});
    EXPECT_EQ(taken(), "b ");
  }
}

TEST_F(Input, dropsGoToTheInnermostThatTakesTheirKind) {
  const View inner = block(40, 40).onDrop(target("in", "url"));
  Harness h(inner.padding(10).onDrop(target("out", "text")).scale(0.5), {60, 60});
  const auto over = [&](Point p, const std::string& type) { return h.dragOver(p, {{}, {type}}); };
  EXPECT_TRUE(over({30, 30}, "url"));
  EXPECT_EQ(taken(), "+in ");
  EXPECT_TRUE(over({31, 30}, "url"));
  EXPECT_EQ(taken(), "") << "told once";
  EXPECT_TRUE(over({30, 30}, "text"));
  EXPECT_EQ(taken(), "-in +out ");
  EXPECT_FALSE(over({30, 30}, "picture"));
  EXPECT_EQ(taken(), "-out ");
  EXPECT_FALSE(over({16, 30}, "url"));
  h.dragOver({30, 30}, {{}, {"text", "url"}});
  h.dragLeave();
  EXPECT_EQ(taken(), "+in -in ");
  EXPECT_TRUE(h.drop({30, 30}, {{}, {"url"}}));
  EXPECT_EQ(taken(), "+in -in in@20,20 0x0 ");
  EXPECT_TRUE(h.drop({25, 30}, {{}, {"text"}}));
  EXPECT_EQ(taken(), "+out -out out@20,30 0x0 ");
}

TEST_F(Input, aDropTargetThatGoesHearsThatTheDragIsGone) {
  const Toggled removed{
      [this](bool on) { return on ? View(Text("x")) : block(40, 40).onDrop(target("d", "url")); }};
  const Toggled disabled{
      [this](bool on) { return block(40, 40).onDrop(target("d", "url")).disabled(on); }};
  for (const Toggled& view : {removed, disabled}) {
    Harness h(view, {100, 100});
    h.dragOver({50, 50}, {{}, {"url"}});
    EXPECT_EQ(taken(), "+d ");
    (*view.on)->set(true);
    h.settle();
    EXPECT_EQ(taken(), "-d ");
    EXPECT_FALSE(h.drop({50, 50}, {{}, {"url"}}));
    EXPECT_EQ(taken(), "");
  }
}

TEST_F(Input, hoverNestsAndIsTheFrontMostAlone) {
  const auto hover = [this](const std::string& name) {
    return [this, name](bool inside) { log += (inside ? '+' : '-') + name + ' '; };
  };
  Harness h(ZStack({block(100, 100).onHover(hover("back")),
                    block(40, 40).onHover(hover("in")).padding(10).onHover(hover("out"))}),
            {100, 100});
  h.moveTo({50, 50});
  EXPECT_EQ(taken(), "+in +out ");
  h.moveTo({25, 50});
  EXPECT_EQ(taken(), "-in ");
  h.moveTo({5, 5});
  EXPECT_EQ(taken(), "-out +back ");
  h.leave();
  EXPECT_EQ(taken(), "-back ");
}

}  // namespace
}  // namespace zq
