// ZQSwiftUI, MIT licence; see LICENSE.
// Small targets, which react in a square around their middle.
#include <gtest/gtest.h>

#include <string>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

class NearTargets : public testing::Test {
 protected:
  // Of 10 by 10, with its middle at the point.
  View dot(const std::string& name, Point middle) {
    return Rectangle()
        .frame(10, 10)
        .onTap([this, name] { log_ += name + ' '; })
        .onHover([this, name](bool inside) { lit_ = inside ? name : ""; })
        .accessibilityLabel(name)
        .offset(middle.x - 5, middle.y - 5);
  }
  View on(std::vector<View> all) {
    return ZStack(std::move(all), Alignment::topLeading())
        .frame({.width = 200, .height = 100, .alignment = Alignment::topLeading()});
  }
  void show(View view) { screen_.emplace(std::move(view), Size{200, 100}); }
  std::string pressedAt(Point p) {
    screen_->click(p);
    return std::exchange(log_, {});
  }
  std::string litAt(Point p) {
    screen_->moveTo(p);
    return lit_;
  }
  Harness& screen() { return *screen_; }
  std::string log_;
  std::string lit_;

 private:
  std::optional<Harness> screen_;
};

TEST_F(NearTargets, reactAllOverTheirSquareAndNoFurther) {
  show(on({dot("a", {50, 50})}));
  for (const Point p : {Point{39, 50}, {61, 50}, {50, 39}, {50, 61}, {39, 39}}) {
    EXPECT_EQ(litAt(p), "a");
    EXPECT_EQ(pressedAt(p), "a ");
    EXPECT_EQ(screen().host().pressTarget(p), screen().button("a").id);
  }
  for (const Point p : {Point{37, 50}, {63, 50}, {50, 37}, {50, 63}}) {
    EXPECT_EQ(litAt(p), "");
    EXPECT_EQ(pressedAt(p), "");
  }
  screen().press({40, 50});
  screen().moveTo({30, 50});
  screen().release();
  EXPECT_EQ(log_, "") << "released outside of its square";
}

TEST_F(NearTargets, shareTheRoomBetweenThemByTheNearerMiddle) {
  show(on({dot("a", {50, 50}), dot("b", {66, 50})}));
  EXPECT_EQ(pressedAt({57, 50}), "a ");
  EXPECT_EQ(pressedAt({59, 50}), "b ");
  EXPECT_EQ(litAt({57, 42}), "a");
  EXPECT_EQ(litAt({59, 42}), "b");
}

TEST_F(NearTargets, leaveWhatIsHitExactlyToWhatHandlesPressesThere) {
  const auto note = [this](const char* what) { return [this, what] { log_ += what; }; };
  const auto wide = [&](const View& view) { return on({view, dot("a", {50, 50})}); };
  const View area = Rectangle().fill(Color::gray()).frame(45, 100);
  show(wide(area.onTap(note("tap "))));
  EXPECT_EQ(pressedAt({44, 50}), "tap ");
  EXPECT_EQ(pressedAt({46, 50}), "a ");
  show(wide(area.onPress([this](int) { log_ += "press "; })));
  EXPECT_EQ(pressedAt({44, 50}), "press ");
  show(wide(area.gesture(
      {.minimumDistance = 0, .onChanged = [&](const DragValue&) { log_ = "drag "; }})));
  EXPECT_EQ(pressedAt({44, 50}), "drag ");
  show(wide(TextField("", Binding<std::string>::constant("")).frame(45, 100)));
  EXPECT_EQ(pressedAt({44, 50}), "");
  show(wide(area.onTap(note("tap ")).disabled(true)));
  EXPECT_EQ(pressedAt({44, 50}), "") << "who presses what is disabled means no other";
  show(wide(area.onHover([](bool) {}).help("text")));
  EXPECT_EQ(pressedAt({44, 50}), "a ");
  EXPECT_EQ(screen().help(), "text") << "what is under the pointer is not lost";
  show(on({on({dot("a", {50, 50})}).onKey([](const KeyEvent&) { return false; })}));
  EXPECT_EQ(pressedAt({44, 50}), "a ") << "of a view around it that has keys";
}

TEST_F(NearTargets, takeNothingWhereTheyAreDisabledCoveredOrNotToBeSeen) {
  show(on({dot("a", {50, 50}).disabled(true), dot("b", {66, 50})}));
  EXPECT_EQ(pressedAt({57, 50}), "b ");
  EXPECT_EQ(pressedAt({44, 50}), "");
  const View sheet = Rectangle().fill(Color::gray()).frame(60, 100);
  show(on({dot("a", {50, 50}), sheet}));
  EXPECT_EQ(pressedAt({42, 50}), "") << "something lies over it";
  EXPECT_EQ(pressedAt({61, 50}), "");
  const View tall = VStack({.spacing = 0}, {on({dot("a", {50, 95})}), on({dot("b", {50, 5})})});
  const View low = VStack({.alignment = HorizontalAlignment::leading, .spacing = 0},
                          {ScrollView(tall).frame(200, 60), Rectangle().frame(200, 40)});
  show(low);
  screen().wheel({50, 30}, 0, 43);  // the middle of the upper one at 52, of the lower one at 62
  EXPECT_EQ(pressedAt({50, 42}), "a ");
  EXPECT_EQ(pressedAt({50, 62}), "") << "beyond the edge of what scrolls";
  screen().wheel({50, 30}, 0, -3);
  EXPECT_EQ(pressedAt({50, 59}), "a ") << "the lower one begins where the edge is";
}

TEST_F(NearTargets, areFoundAfterTheyHaveComeAndNotOnceTheyHaveGone) {
  struct Model : ObservableObject {
    Published<std::vector<int>> places{this};
  };
  struct Dots {
    std::shared_ptr<Model> model;
    std::function<View(int)> dotAt;
    View body(Context& context) const {
      std::vector<View> all;
      for (const int x : context.observe(model).places.get()) all.push_back(dotAt(x));
      return ZStack(std::move(all), Alignment::topLeading())
          .frame({.width = 200, .height = 100, .alignment = Alignment::topLeading()});
    }
  };
  const auto model = std::make_shared<Model>();
  show(Dots{model, [this](int x) { return dot(std::to_string(x), {double(x), 50}); }});
  EXPECT_EQ(pressedAt({42, 50}), "");
  model->places = std::vector{50, 100, 150};
  EXPECT_EQ(pressedAt({42, 50}), "50 ");
  model->places = std::vector{100};
  EXPECT_EQ(pressedAt({42, 50}), "");
  EXPECT_EQ(pressedAt({92, 50}), "100 ");
  model->places = std::vector<int>();
  model->places = std::vector{150};
  EXPECT_EQ(pressedAt({92, 50}), "");
  EXPECT_EQ(pressedAt({142, 50}), "150 ");
}

TEST_F(NearTargets, inABubbleAreTheOnlyOnesWhileItIsOpen) {
  const View bubble = dot("b", {5, 5}).padding(10);
  show(
      on({dot("a", {100, 30}).popover(Binding<bool>::constant(true), bubble), dot("c", {30, 50})}));
  EXPECT_EQ(litAt({22, 50}), "") << "what is under an open bubble is not near";
  const Rect inside = screen().button("b").bounds;
  EXPECT_EQ(litAt({inside.midX(), inside.midY() + 8}), "b");
  EXPECT_EQ(pressedAt({inside.midX(), inside.midY() + 8}), "b ");
}

TEST_F(NearTargets, areMeasuredInTheWindowWhereTheyAreScaled) {
  show(on({dot("a", {0, 0}).frame(20, 20).scale(3)}));  // 30 by 30 there
  const Rect at = screen().button("a").bounds;
  EXPECT_EQ(pressedAt({at.maxX() + 2, at.midY()}), "");
  show(on({dot("a", {100, 50}).scale(0.5)}));
  const Rect half = screen().button("a").bounds;
  EXPECT_EQ(pressedAt({half.midX() + 11, half.midY()}), "a ");
  EXPECT_EQ(pressedAt({half.midX() + 13, half.midY()}), "");
}

}  // namespace
}  // namespace zq
