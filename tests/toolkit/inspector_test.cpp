// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/inspector.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

struct Tally : ViewModifiers<Tally> {
  View body(Context& context) const {
    auto count = context.state(0);
    return Button([count] { count.set(*count + 1); },
                  Text("Count " + std::to_string(*count)).frame(100, 30));
  }
};

struct Board {
  View body(Context&) const {
    const View scrolled =
        ScrollView(VStack({Text("seen").frame(100, 30), Text("scrolled away").frame(100, 300)}))
            .frame(100, 40);
    const View framed = View(Tally()).overlay(Rectangle().stroke(Color::red()));
    return VStack({.alignment = HorizontalAlignment::leading, .spacing = 0},
                  {framed, Text("calm").frame(100, 30), scrolled})
        .flexFrame(
            {.maxWidth = kInfinity, .maxHeight = kInfinity, .alignment = Alignment::topLeading()});
  }
};

// What a window does that draws it: a frame, the views with what is damaged, then this over them.
class InspectedWindow : private HostDelegate {
 public:
  InspectedWindow() : host_(Board{}, *this) {
    host_.setSize({600, 400});
    frame();
    inspector_.emplace(host_);
  }
  ViewHost& host() { return host_; }
  Inspector& inspector() { return *inspector_; }
  void closeInspector() { inspector_.reset(); }
  void frame() {
    host_.frame();
    if (inspector_) inspector_->frameEnded();
    RecordingCanvas canvas(host_.size());
    host_.paint(canvas, host_.damage());
    host_.clearDamage();
  }
  void press() {
    host_.pointerDown({5, 5}, PointerButton::primary);
    host_.pointerUp({5, 5}, PointerButton::primary);
  }
  std::string drawn() {
    std::string all;
    for (const DrawCommand& command : inspector_->commands()) all += zq::describe(command) + '\n';
    return all;
  }

 private:
  void frameRequested() override {}
  HeadlessPlatform platform_;
  ViewHost host_;
  std::optional<Inspector> inspector_;
};

void expectHas(const std::string& all, const std::string& part) {
  EXPECT_NE(all.find(part), std::string::npos) << part << " in\n" << all;
}

TEST(Inspector, tellsWhatTheLastFrameEvaluatedAndPainted) {
  InspectedWindow window;
  window.press();
  window.frame();
  ASSERT_EQ(window.inspector().evaluated().size(), 1U);
  EXPECT_EQ(window.inspector().evaluated()[0].name, "Tally");
  EXPECT_EQ(window.inspector().evaluated()[0].visible, (Rect{0, 0, 100, 30}));
  const std::string lit = window.drawn();
  expectHas(lit, "\"1 body evaluated\"");
  expectHas(lit, "\"1 text measured\"");
  expectHas(lit, "1 piece recorded\"");
  expectHas(lit, "\"Tally 0,0 100x30\"");
  expectHas(lit, "pink");
  window.inspector().endFlash();
  EXPECT_EQ(window.drawn().find("pink"), std::string::npos);

  window.frame();  // nothing has changed
  EXPECT_TRUE(window.inspector().evaluated().empty());
  expectHas(window.drawn(), "\"0 bodies evaluated\"");
  expectHas(window.drawn(), "\"0 areas painted, 0 %\"");
}

TEST(Inspector, namesWhatIsUnderThePointerAndWhatItIsIn) {
  InspectedWindow window;
  EXPECT_EQ(window.drawn().find("button"), std::string::npos);
  EXPECT_TRUE(window.inspector().setPointer(Point{5, 5}));
  EXPECT_FALSE(window.inspector().setPointer(Point{5, 5}));
  expectHas(window.drawn(), "\"button \\\"Count 0\\\"\"");
  expectHas(window.drawn(), "\"Tally in Board\"");
  window.inspector().setPointer(Point{50, 45});
  expectHas(window.drawn(), "\"text \\\"calm\\\"\"");
  // What is scrolled away lies here, and is not seen.
  window.inspector().setPointer(Point{50, 200});
  EXPECT_EQ(window.drawn().find("scrolled away"), std::string::npos);
}

TEST(Inspector, staysInTheWindowAndOutOfThePointersWay) {
  InspectedWindow window;
  for (const Point at : {Point{5, 5}, Point{599, 399}, Point{0, 399}}) {
    window.inspector().setPointer(at);
    for (const DrawCommand& command : window.inspector().commands()) {
      const Rect bounds = boundsOf(command);
      EXPECT_GE(bounds.x, 0);
      EXPECT_GE(bounds.y, 0);
      EXPECT_LE(bounds.maxX(), 600);
      EXPECT_LE(bounds.maxY(), 400);
      if (!std::holds_alternative<FillRoundedRect>(command)) continue;
      EXPECT_FALSE(bounds.contains(at));
    }
  }
}

TEST(Inspector, changesNothingOfTheViewsAndAsksForNoFrame) {
  InspectedWindow window;
  const std::string before = window.host().displayListText();
  window.inspector().setPointer(Point{5, 5});
  const WorkCounts counts = window.host().counts();
  window.drawn();
  EXPECT_FALSE(window.host().needsFrame());
  EXPECT_TRUE(window.host().damage().empty());
  EXPECT_EQ(window.host().displayListText(), before);
  EXPECT_EQ(window.host().counts().textsMeasured, counts.textsMeasured);

  // What was evaluated may be gone before anyone looks.
  window.press();
  window.host().sizeThatFits({});
  window.host().setRoot(Text("other"));
  window.frame();
  EXPECT_EQ(window.inspector().evaluated().size(), 0U);
  window.closeInspector();
  window.host().setRoot(Board{});
  window.frame();
  EXPECT_FALSE(window.host().needsFrame());
}

}  // namespace
}  // namespace zq
