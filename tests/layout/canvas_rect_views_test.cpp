// ZQSwiftUI, MIT licence; see LICENSE.
// Rectangles on a canvas as a hand and a keyboard meet them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <limits>
#include <zqswiftui/layout/zq_canvas_range_rect_view.hpp>
#include <zqswiftui/layout/zq_canvas_rect_drawing_view.hpp>
#include <zqswiftui/layout/zq_draggable_rect.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

using Bound = ZQCanvasRectDrawingView::Bound;

struct Model : ObservableObject {
  Published<Rect> rect{this, Rect{}};
  Published<ZQTimeRange> range{this, ZQTimeRange{20, 30}};
};

// Keeps what a view reports, as a host would.
struct Owner {
  std::shared_ptr<Model> model;
  std::function<View(Model&, Binding<Rect>)> make;
  View body(Context& context) const {
    return make(context.observe(model), Published<Rect>::binding(model, &Model::rect));
  }
};

class CanvasRects : public testing::Test {
 protected:
  // Every move is traced on standard output, where failures are reported as well.
  void SetUp() override { testing::internal::CaptureStdout(); }
  void TearDown() override {
    const std::string unread = testing::internal::GetCapturedStdout();
    if (HasFailure()) std::cout << unread;
  }
  std::string printed() {
    const std::string text = testing::internal::GetCapturedStdout();
    testing::internal::CaptureStdout();
    return text;
  }
  View drawing(Size target = {1920, 1080}, Bound bound = Bound::none) {
    return Owner{model_, [=](Model&, const Binding<Rect>& rect) {
                   return ZQCanvasRectDrawingView(
                       {.rect = rect, .targetSize = target, .bound = bound, .color = Color::red()});
                 }};
  }
  View draggable(double pointSize = 10) {
    return Owner{model_, [=, this](Model&, const Binding<Rect>& rect) {
                   return ZQDraggableRect({.rect = rect,
                                           .pointSize = pointSize,
                                           .valueChangedCallback = [this](const Rect& told) {
                                             told_.push_back(told);
                                           }});
                 }};
  }
  Rect rect() const { return model_->rect; }
  static Rect outline(Harness& screen) {
    for (const DrawnCommand& drawn : screen.drawn()) {
      const auto* line = std::get_if<StrokePath>(&drawn.command);
      if (line) return drawn.bounds.insetBy(line->style.lineWidth / 2);
    }
    return {};
  }
  static Element upperLeft(Harness& s) { return s.find(Role::slider, "Upper left corner"); }
  static Element lowerRight(Harness& s) { return s.find(Role::slider, "Lower right corner"); }

  std::shared_ptr<Model> model_ = std::make_shared<Model>();
  std::vector<Rect> told_;
};

constexpr Modifiers kShift{.shift = true};

// Where one side ends up, in whole units: as long as the drag, moved in at zero, cut at the end.
std::pair<int, int> side(int a, int b, int most) {
  const int from = std::max(0, std::min(a, b));
  return {from, std::min(std::abs(a - b), most - from)};
}

TEST_F(CanvasRects, areDrawnInEveryDirectionAtEveryZoom) {
  constexpr int kWide = 320, kHigh = 160;
  for (const double zoom : {0.5, 1.0, 2.0}) {
    for (const Bound bound : {Bound::none, Bound::width, Bound::height}) {
      Harness screen(drawing({kWide, kHigh}, bound), {kWide * zoom, kHigh * zoom});
      for (const int x1 : {0, 64, 300}) {
        for (const int y1 : {0, 96, 150}) {
          for (const int x2 : {-32, 4, 64, 168, 360}) {
            for (const int y2 : {-32, 10, 96, 112, 200}) {
              model_->rect = Rect{1, 2, 3, 4};
              const double far = zoom * std::hypot(x1 - x2, y1 - y2);
              screen.drag({x1 * zoom, y1 * zoom}, {x2 * zoom, y2 * zoom});
              auto [x, width] = side(x1, x2, kWide);
              auto [y, height] = side(y1, y2, kHigh);
              if (bound == Bound::width) x = 0, width = kWide;
              if (bound == Bound::height) y = 0, height = kHigh;
              const Rect expected = far < 10
                                        ? Rect{1, 2, 3, 4}
                                        : Rect{double(x), double(y), double(width), double(height)};
              ASSERT_EQ(rect(), expected)
                  << zoom << ": " << x1 << "," << y1 << " " << x2 << "," << y2;
            }
          }
        }
      }
    }
  }
}

TEST_F(CanvasRects, comeBackBitForBitWithThePointer) {
  Harness screen(drawing({1000, 700}), {333.3, 217.7});
  screen.press({17.1, 23.9});
  screen.moveTo({201.7, 100.3});
  const Rect was = rect();
  for (int i = 0; i < 20; ++i) screen.moveTo({i * 17.3 - 40, 300 - i * 19.1});
  screen.moveTo({201.7, 100.3});
  EXPECT_EQ(rect(), was);
  screen.moveTo({18, 24});
  EXPECT_LT(rect().width, 3) << "a drag that has begun goes on below ten points";
}

TEST_F(CanvasRects, areShownWhereTheyAreAndTraced) {
  Harness screen(drawing(), {960, 540});
  EXPECT_EQ(outline(screen), Rect{});
  screen.drag({100, 50}, {300, 50}, 1);
  EXPECT_EQ(outline(screen), (Rect{100, 50, 200, 0})) << "a straight drag shows a line";
  screen.drag({100, 50}, {300, 150}, 1);
  EXPECT_EQ(outline(screen), (Rect{100, 50, 200, 100}));
  EXPECT_EQ(screen.find(Role::slider, "Rectangle").value, "x 200 y 100, 400 by 200");
  screen.resize({480, 270});
  EXPECT_EQ(outline(screen), (Rect{50, 25, 100, 50}));
  model_->rect = Rect{0, 0, 1920, 1080};
  screen.settle();
  EXPECT_EQ(outline(screen), (Rect{1, 1, 479, 269}));
  EXPECT_EQ(printed(), "(200.0, 100.0, 400.0, 0.0)\n(200.0, 100.0, 400.0, 200.0)\n");
}

TEST_F(CanvasRects, leaveAClickToWhatIsAround) {
  int clicks = 0;
  Harness screen(drawing().onTap([&] { ++clicks; }), {200, 200});
  screen.drag({50, 50}, {57, 57});
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(rect(), Rect{});
  screen.drag({50, 50}, {60, 50});
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(screen.cursor(), Cursor::crosshair);
}

TEST_F(CanvasRects, areNotMirrored) {
  for (const bool mirrored : {false, true}) {
    model_->rect = Rect{};
    Harness screen(drawing({200, 100}), {200, 100});
    screen.setAppearance({.layoutDirection = mirrored ? LayoutDirection::rightToLeft
                                                      : LayoutDirection::leftToRight});
    screen.drag({20, 10}, {60, 30});
    EXPECT_EQ(rect(), (Rect{20, 10, 40, 20}));
    EXPECT_EQ(outline(screen), (Rect{20, 10, 40, 20}));
    model_->rect = Rect{0.25, 0.25, 0.25, 0.25};
    screen.setRoot(draggable());
    EXPECT_EQ(upperLeft(screen).bounds, (Rect{38, 13, 24, 24}));
  }
}

TEST_F(CanvasRects, areDrawnByKeys) {
  Harness screen(drawing(), {960, 540});
  EXPECT_TRUE(screen.tab());
  EXPECT_FALSE(screen.key(Key::left)) << "there is nothing to move";
  EXPECT_TRUE(screen.key(Key::space));
  EXPECT_EQ(rect(), (Rect{480, 270, 960, 540}));
  screen.key(Key::right, kShift);
  screen.key(Key::up);
  screen.key(Key::down, {.control = true});
  EXPECT_EQ(rect(), (Rect{490, 269, 960, 541}));
  EXPECT_EQ(screen.focused().value, "x 490 y 269, 960 by 541");
}

TEST_F(CanvasRects, drawNothingWithoutRoomOrTarget) {
  for (const Size target : {Size{0, 0}, Size{std::nan(""), -3}}) {
    Harness screen(drawing(target), {100, 100});
    screen.drag({10, 10}, {60, 60});
    EXPECT_EQ(outline(screen), Rect{});
  }
  Harness screen(draggable(-4), {0, 0});
  EXPECT_FALSE(screen.tab());
  for (const Size size : {Size{100, 0}, Size{0.5, 0.5}, Size{100, 100}}) screen.resize(size);
  model_->rect = Rect{std::nan(""), 0, INFINITY, 1};
  screen.setRoot(drawing());
  EXPECT_EQ(outline(screen), Rect{});
}

TEST_F(CanvasRects, keepWhatWasDrawnWhenADragIsTakenAway) {
  Harness screen(drawing({100, 100}), {100, 100});
  screen.press({10, 10});
  screen.moveTo({40, 40});
  screen.setWindowActive(false);
  screen.moveTo({90, 90});
  screen.release();
  EXPECT_EQ(rect(), (Rect{10, 10, 30, 30}));
  screen.setWindowActive(true);
  screen.press({50, 50});
  screen.moveTo({70, 70});
  screen.setRoot(Text("gone"));
  screen.moveTo({90, 90});
  screen.release();
  EXPECT_EQ(rect(), (Rect{50, 50, 20, 20}));
}

TEST_F(CanvasRects, areMovedByTheirCorners) {
  struct Case {
    bool lower;
    Point by;
    Rect live;
    Rect after;
    Rect rect;
  };
  const Case cases[] = {
      {false, {-200, 0}, {-100, 100, 400, 200}, {0, 100, 300, 200}, {0, 0.25, 0.5, 0.5}},
      {false, {250, 50}, {300, 150, 0, 150}, {300, 150, 50, 150}, {0.875, 0.375, 0.5, 0.5}},
      {true, {50, 50}, {100, 100, 250, 250}, {100, 100, 250, 250}, {0.25, 0.25, 0.625, 0.625}},
      {true, {-250, 0}, {100, 100, 0, 200}, {50, 100, 50, 200}, {0.25, 0.25, -0.125, 0.5}},
  };
  for (const Case& c : cases) {
    const Rect first{0.25, 0.25, 0.5, 0.5};
    model_->rect = first;
    told_.clear();
    Harness screen(draggable(), {400, 400});
    const auto shown = [&] {
      const Point a = upperLeft(screen).bounds.origin(), b = lowerRight(screen).bounds.origin();
      return Rect{a.x + 12, a.y + 12, b.x - a.x, b.y - a.y};
    };
    const Point from = c.lower ? Point{300, 300} : Point{100, 100};
    screen.press(from);
    screen.moveTo({from.x + c.by.x, from.y + c.by.y});
    EXPECT_EQ(shown(), c.live);
    if (!c.live.empty()) {
      EXPECT_EQ(outline(screen), c.live);
    }
    EXPECT_EQ(rect(), first) << "nothing is told before the end";
    screen.release();
    EXPECT_EQ(shown(), c.after);
    EXPECT_EQ(rect(), c.rect);
    EXPECT_EQ(told_, std::vector<Rect>{c.rect});
  }
}

TEST_F(CanvasRects, keepTheirCornersWhenADragIsShortOrTakenAway) {
  model_->rect = Rect{0.25, 0.25, 0.5, 0.5};
  Harness screen(draggable(), {400, 400});
  const Rect place = upperLeft(screen).bounds;
  screen.drag({100, 100}, {106, 106});
  screen.press({100, 100});
  screen.moveTo({150, 150});
  EXPECT_EQ(upperLeft(screen).bounds, place.offsetBy({50, 50}));
  screen.setWindowActive(false);
  EXPECT_EQ(upperLeft(screen).bounds, place);
  screen.release();
  screen.setWindowActive(true);
  EXPECT_EQ(rect(), (Rect{0.25, 0.25, 0.5, 0.5}));
  EXPECT_TRUE(told_.empty());
  screen.press({100, 100});
  screen.moveTo({150, 150});
  screen.setRoot(Text("gone"));
  screen.release();
  EXPECT_TRUE(told_.empty());
}

TEST_F(CanvasRects, takeWhatOthersWroteDuringADrag) {
  model_->rect = Rect{0.25, 0.25, 0.5, 0.5};
  Harness screen(draggable(), {400, 400});
  screen.press({100, 100});
  screen.moveTo({150, 150});
  model_->rect = Rect{0, 0, 0.125, 0.75};
  screen.settle();
  EXPECT_EQ(upperLeft(screen).bounds.midX(), 150) << "the handle stays under the pointer";
  screen.release();
  EXPECT_EQ(rect(), (Rect{0.375, 0.375, 0.125, 0.75}));
  EXPECT_EQ(lowerRight(screen).bounds.midX(), 300);
}

TEST_F(CanvasRects, haveHandlesForHandsAndKeys) {
  model_->rect = Rect{0.25, 0.25, 0.5, 0.5};
  Harness screen(draggable(6), {400, 400});
  const auto drawn = screen.drawn();
  EXPECT_EQ(drawn[1].bounds, (Rect{97, 97, 6, 6}));
  screen.moveTo({111, 89});
  EXPECT_EQ(screen.cursor(), Cursor::resizeDiagonal);
  screen.moveTo({113, 100});
  EXPECT_EQ(screen.cursor(), Cursor::arrow);
  screen.drag({111, 89}, {151, 89});
  EXPECT_EQ(rect(), (Rect{0.35, 0.25, 0.5, 0.5}));
  EXPECT_EQ(screen.focused().name, "Upper left corner");
  screen.key(Key::left, kShift);
  screen.tab();
  screen.key(Key::down);
  EXPECT_EQ(told_.size(), 3u);
  EXPECT_EQ(told_.back(), rect());
  EXPECT_NEAR(rect().x, 0.325, 1e-15);
  EXPECT_NEAR(rect().height, 0.5025, 1e-15);
  EXPECT_EQ(screen.accessibility(),
            "group \"Rectangle\" = \"x 130 y 100, 170 by 201\"\n"
            "  slider \"Upper left corner\" = \"x 130 y 100\"\n"
            "  slider \"Lower right corner\" = \"x 300 y 301\" focused\n");
  EXPECT_FALSE(screen.key(Key::space));
}

TEST_F(CanvasRects, markRangesOfTime) {
  const auto strip = [model = model_](ZQTimeRange target) {
    return View(ZQCanvasRangeRectView(Published<ZQTimeRange>::binding(model, &Model::range), target,
                                      Color::red()));
  };
  Harness screen(strip({10, 110}), {1000, 40});
  EXPECT_EQ(outline(screen), (Rect{200, 1, 100, 39}));
  EXPECT_EQ(screen.find(Role::slider, "Range").value, "20 s to 30 s");
  screen.drag({500, 30}, {750, 5});
  EXPECT_EQ(model_->range.get(), (ZQTimeRange{50, 75}));
  EXPECT_EQ(outline(screen), (Rect{500, 1, 250, 39}));
  screen.key(Key::right, kShift);
  EXPECT_EQ(screen.find(Role::slider, "Range").value, "51 s to 76 s");
  screen.key(Key::down);
  EXPECT_NEAR(model_->range.get().end, 76, 1e-12);
  model_->range = ZQTimeRange{0, 5};
  screen.settle();
  EXPECT_EQ(outline(screen).width, 250) << "the mark is the view's own once it has appeared";
}

// What a screen reader reads of a number, and what it sets; the tree is told anew each time.
TEST_F(CanvasRects, areReadAndPlacedByAScreenReader) {
  const auto told = [](Harness& screen, const std::string& name) {
    AccessibilityNode found;
    const auto search = [&](const auto& self, const AccessibilityNode& node) -> void {
      if (node.role == Role::slider && node.name == name) found = node;
      for (const AccessibilityNode& child : node.children) self(self, child);
    };
    search(search, screen.host().accessibilityTree());
    return found;
  };
  const auto set = [&](Harness& screen, const std::string& name, double number) {
    screen.host().accessibilitySetNumber(told(screen, name).id, number);
    screen.settle();
    return told(screen, name).number.value_or(AccessibleNumber{-1}).value;
  };
  model_->rect = Rect{0.25, 0.25, 0.5, 0.5};
  Harness handles(draggable(), {400, 400});
  EXPECT_EQ(told(handles, "Upper left corner").number, (AccessibleNumber{100, 0, 400, 1}));
  EXPECT_TRUE(told(handles, "Lower right corner").adjustable);
  EXPECT_EQ(set(handles, "Upper left corner", 150), 150);
  EXPECT_EQ(set(handles, "Lower right corner", 400), 400);
  EXPECT_EQ(set(handles, "Lower right corner", std::nan("")), 400);
  EXPECT_EQ(rect(), (Rect{0.375, 0.25, 0.625, 0.5}));
  EXPECT_EQ(told_.size(), 2u) << "each is heard as a drag is";

  model_->rect = Rect{200, 100, 400, 200};
  Harness canvas(drawing(), {960, 540});
  EXPECT_EQ(told(canvas, "Rectangle").number, (AccessibleNumber{200, 0, 1520, 1}));
  EXPECT_EQ(set(canvas, "Rectangle", 1520), 1520);
  EXPECT_EQ(rect(), (Rect{1520, 100, 400, 200}));
}

// Two marks of ten points whose areas of 24 lie across each other, or on one another.
TEST_F(CanvasRects, theNearerOfTwoHandlesIsGrabbed) {
  for (const double apart : {0.0, 4.0, 20.0}) {
    const Rect start{0.25, 0.25, apart / 400, apart / 400};
    for (const bool upper : {true, false}) {
      model_->rect = start;
      Harness screen(draggable(), {400, 400});
      const double at = upper ? 97 : 103 + apart;
      screen.drag({at, at}, {at + (upper ? -40 : 40), at}, 1);
      const Rect expected = upper ? Rect{0.15, 0.25, start.width, start.height}
                                  : Rect{0.25, 0.25, start.width + 0.1, start.height};
      EXPECT_NEAR(rect().x, expected.x, 1e-12) << apart << upper;
      EXPECT_NEAR(rect().width, expected.width, 1e-12) << apart << upper;
      EXPECT_EQ(screen.focused().name, upper ? "Upper left corner" : "Lower right corner");
    }
  }
}

}  // namespace
}  // namespace zq
