// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

// Colours, lengths and places on their way from one value to the next.

namespace zq {
namespace {

// Shows one of some views, chosen by a number that tests set.
struct Choice {
  std::function<View(int)> content;
  std::shared_ptr<std::optional<State<int>>> at = std::make_shared<std::optional<State<int>>>();
  View body(Context& context) const {
    *at = context.state(0);
    return content(***at);
  }
  void set(int value) const { (*at)->set(value); }
  void move(int value) const {
    withAnimation(Animation::linear(1), [&] { set(value); });
  }
};

// Of the first thing that is drawn; the last stop of a gradient.
RGBA shownColor(Harness& h, ColorScheme scheme = ColorScheme::light) {
  const auto resolved = [&](const Paint& paint) {
    const auto* gradient = paint.gradient();
    return (gradient ? gradient->stops.back().color : *paint.color()).resolve(scheme);
  };
  const auto of = [&](const auto& command) {
    if constexpr (requires { command.paint; }) return resolved(command.paint);
    if constexpr (requires { command.color; }) return resolved(command.color);
    return RGBA{};
  };
  return std::visit(of, h.drawn().at(0).command);
}

const Color kStart = Color::rgb(1, 0, 0);
const Color kEnd = Color::rgb(0, 0, 1);
Color pick(int i) {
  return i == 0 ? kStart : kEnd;
}

TEST(MovingColors, goFromWhatIsShownInWhateverHasOne) {
  struct Row {
    const char* what;
    std::function<View(int)> view;
  };
  const Row rows[] = {
      {"text", [](int i) { return Text("a").foregroundColor(pick(i)); }},
      {"inherited by a text", [](int i) { return View(Text("a")).foregroundColor(pick(i)); }},
      {"symbol", [](int i) { return Image::symbol("star").foregroundColor(pick(i)); }},
      {"inherited by a shape", [](int i) { return View(Circle()).foregroundColor(pick(i)); }},
      {"fill", [](int i) { return Rectangle().fill(pick(i)); }},
      {"stroke", [](int i) { return Rectangle().stroke(pick(i), {.lineWidth = 2}); }},
      {"background", [](int i) { return Spacer().background(pick(i)); }},
      {"gradient",
       [](int i) {
         return Rectangle().fill(LinearGradient::of({pick(i), pick(i)})).opacity(1);
       }},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    const Choice view{row.view};
    Harness h(view, {60, 60});
    const auto red = [&] { return shownColor(h).red; };
    view.move(1);
    h.settle();
    EXPECT_EQ(red(), 1);
    h.advance(0.25);
    EXPECT_NEAR(red(), 0.75, 0.02);
    view.move(0);
    h.settle();
    EXPECT_NEAR(red(), 0.75, 0.02) << "turns round where it is";
    h.advance(0.5);
    EXPECT_NEAR(red(), 0.875, 0.02);
    h.advance(0.6);
    EXPECT_EQ(red(), 1);
    EXPECT_FALSE(h.host().animating());
    view.move(1);
    h.advance(0.5);
    view.set(0);
    h.settle();
    EXPECT_EQ(red(), 1) << "a plain change jumps";
    h.advance(0.1);
    EXPECT_FALSE(h.host().animating());
    h.setAppearance({.reducedMotion = true});
    view.move(1);
    h.settle();
    EXPECT_EQ(red(), 0) << "reduced motion";
    EXPECT_FALSE(h.host().animating());
  }
}

TEST(MovingColors, paintAgainOnlyWhatChangesColor) {
  const Choice view{[](int i) {
    return HStack({.spacing = 0}, {Rectangle().fill(pick(i)).frame(20, 20),
                                   Rectangle().fill(Color::gray()).frame(20, 20)});
  }};
  Harness h(view, {40, 20});
  view.move(1);
  h.settle();
  h.advance(0.25);
  EXPECT_EQ(describe(h.damage().bounds()), "0,0 20x20");
  h.advance(1);
  const WorkCounts before = h.counts();
  h.advance(5);
  EXPECT_EQ(h.counts().frames, before.frames) << "at rest";
}

TEST(MovingColors, followTheSchemeAndNeverDarkenOnTheWayToClear) {
  const Choice view{[](int i) {
    return Rectangle().fill(i == 0 ? Color::background() : Color::background().opacity(0));
  }};
  Harness h(view, {40, 20});
  view.move(1);
  h.settle();
  h.advance(0.5);
  EXPECT_NEAR(shownColor(h).red, 1, 0.01);
  EXPECT_NEAR(shownColor(h).alpha, 0.5, 0.02);
  h.setAppearance({.colorScheme = ColorScheme::dark});
  EXPECT_LT(shownColor(h, ColorScheme::dark).red, 0.3);
}

TEST(MovingColors, keepGoingWhileAnotherThingOfTheirsChanges) {
  const Choice view{
      [](int i) { return Text(i < 2 ? "a" : "b").foregroundColor(pick(i > 0 ? 1 : 0)); }};
  Harness h(view, {40, 20});
  view.move(1);
  h.settle();
  h.advance(0.5);
  view.set(2);
  h.settle();
  EXPECT_TRUE(h.findText("b"));
  EXPECT_NEAR(shownColor(h).red, 0.5, 0.02);
}

TEST(MovingColors, reachComponentsThatReadTheEnvironment) {
  struct Reader {
    View body(Context& context) const {
      return Rectangle().fill(context.environment<ForegroundColorKey>().value_or(Color::gray()));
    }
    bool operator==(const Reader&) const = default;
  };
  const Choice view{[](int i) { return View(Reader{}).foregroundColor(pick(i)); }};
  Harness h(view, {40, 20});
  view.move(1);
  h.settle();
  h.advance(0.5);
  EXPECT_NEAR(shownColor(h).red, 0.5, 0.02);
}

// --- Lengths ---

TEST(MovingLengths, framesAndPaddingsCarryTheirNeighboursAlong) {
  struct Row {
    const char* what;
    std::function<View(double)> view;  // 20 to 60 wide
  };
  const View block = Rectangle().frame({.height = 10});
  const Row rows[] = {
      {"frame", [](double d) { return Rectangle().frame(d, 10); }},
      {"width", [&](double d) { return block.frame({.width = d}); }},
      {"flexible frame", [&](double d) { return block.flexFrame({.minWidth = d, .maxWidth = d}); }},
      {"padding",
       [&](double d) {
         return block.frame({.width = 10}).padding({0, d - 10, 0, 0});
       }},
      {"frame in a stack in a frame",
       [](double d) { return VStack({Rectangle().frame(d, 10)}).flexFrame({.maxHeight = 20}); }},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    const Choice view{[&](int i) {
      return HStack({.spacing = 0},
                    {row.view(i == 0 ? 20 : 60).background(Color::gray()), Text("x")})
          .frame({.width = 200, .height = 20, .alignment = Alignment::leading()});
    }};
    Harness h(view, {200, 20});
    const auto at = [&] {
      const double end = h.drawn().at(0).bounds.maxX();
      EXPECT_NEAR(h.findText("x").bounds.x, end, 1e-6) << "beside it all the time";
      return end;
    };
    EXPECT_EQ(at(), 20);
    view.set(1);
    h.settle();
    EXPECT_EQ(at(), 60) << "a plain change";
    view.move(0);
    h.settle();
    EXPECT_EQ(at(), 60);
    h.advance(0.25);
    EXPECT_NEAR(at(), 50, 1);
    view.move(1);
    h.settle();
    EXPECT_NEAR(at(), 50, 1) << "turns round where it is";
    h.advance(0.5);
    EXPECT_NEAR(at(), 55, 1);
    view.set(0);
    h.settle();
    EXPECT_EQ(at(), 20) << "jumps";
    h.advance(0.1);
    EXPECT_FALSE(h.host().animating());
    h.setAppearance({.reducedMotion = true});
    view.move(1);
    h.settle();
    EXPECT_EQ(at(), 60);
    EXPECT_FALSE(h.host().animating());
  }
}

TEST(MovingLengths, paintAllThatTheyTouch) {
  const Choice view{[](int i) {
    return HStack({.spacing = 0}, {Rectangle().frame(i == 0 ? 20 : 60, 10), Text("x"), Spacer()});
  }};
  Harness h(view, {200, 10});
  view.move(1);
  h.settle();
  h.advance(0.25);
  const Rect text = h.findText("x").bounds;
  EXPECT_NEAR(text.x, 30, 1);
  EXPECT_TRUE(h.damage().intersects({text.x, 0, text.width, 10}));
  EXPECT_TRUE(h.damage().intersects({20, 0, 1, 10})) << "where the text was";
  EXPECT_LE(h.damage().bounds().maxX(), text.maxX() + 0.01);
}

TEST(MovingLengths, jumpWhereMotionIsReducedAndMoveBesideIt) {
  const Choice view{[](int i) {
    const auto bar = [i](const std::string& id) {
      return Rectangle().frame(i == 0 ? 20 : 60, 10).id(id);
    };
    return VStack({bar("still").environment<ReducedMotionKey>(true), bar("moving")});
  }};
  Harness h(view, {200, 100});
  view.move(1);
  h.settle();
  EXPECT_EQ(h.findId("still").bounds.width, 60);
  EXPECT_EQ(h.findId("moving").bounds.width, 20);
}

TEST(MovingPlaces, keepTheirWayWhileALengthMovesTheirGoal) {
  const Choice view{[](int i) {
    return VStack({.spacing = 0}, {ForEach(std::vector<int>{i == 0 ? 0 : 2, 1},
                                           [](int what) {
                                             return what == 1   ? View(Text("x"))
                                                    : what == 0 ? View(Rectangle().frame(10, 10))
                                                                : View(Rectangle().frame(10, 30));
                                           }),
                                   Rectangle().frame(10, i == 0 ? 10 : 50), Text("y")})
        .frame({.height = 200, .alignment = Alignment::top()});
  }};
  Harness h(view, {100, 200});
  const double x = h.findText("x").bounds.y, y = h.findText("y").bounds.y;
  view.move(1);
  h.settle();
  EXPECT_EQ(h.findText("x").bounds.y, x);
  EXPECT_EQ(h.findText("y").bounds.y, y);
  h.advance(0.5);
  EXPECT_NEAR(h.findText("x").bounds.y, x + 10, 1);
  EXPECT_NEAR(h.findText("y").bounds.y, y + 20, 11) << "its goal moves as well";
  EXPECT_LT(h.findText("y").bounds.y, y + 40);
  h.advance(0.6);
  EXPECT_EQ(h.findText("x").bounds.y, x + 20);
  EXPECT_EQ(h.findText("y").bounds.y, y + 60);
}

}  // namespace
}  // namespace zq
