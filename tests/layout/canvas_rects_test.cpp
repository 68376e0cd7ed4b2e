// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <tests/layout/no_numbers.hpp>
#include <zqswiftui/layout/canvas_rects.hpp>

namespace zq {
namespace {

using Bound = CanvasRectBound;

constexpr Size kView{960, 540};
constexpr Size kTarget{1920, 1080};

TEST(DrawnRect, keepsTheLengthOfItsDragAsFarAsTheTargetGoes) {
  struct Case {
    const char* what;
    Point start;
    Point end;
    Bound bound;
    Rect rect;
  };
  const Case cases[] = {
      {"inside", {100, 50}, {300, 150}, Bound::none, {200, 100, 400, 200}},
      {"the whole width", {100, 50}, {300, 150}, Bound::width, {0, 100, 1920, 200}},
      {"the whole height", {100, 50}, {300, 150}, Bound::height, {200, 0, 400, 1080}},
      {"over the lower right", {900, 500}, {1000, 600}, Bound::none, {1800, 1000, 120, 80}},
      {"over the upper left: moved in, not cut",
       {50, 20},
       {-50, -20},
       Bound::none,
       {0, 0, 200, 80}},
      {"across all of it", {-50, -20}, {2000, 700}, Bound::none, {0, 0, 1920, 1080}},
      {"wholly beyond the edge", {1200, 0}, {1320, 10}, Bound::none, {2400, 0, -480, 20}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(drawnRect({c.start, c.end}, kView, kTarget, c.bound), c.rect) << c.what;
    EXPECT_EQ(drawnRect({c.end, c.start}, kView, kTarget, c.bound), c.rect) << c.what;
  }
}

TEST(DrawnRect, isNothingForWhatIsNoPlaceAndNoSize) {
  const DragValue drag{{10, 10}, {30, 30}};
  for (const Size view : {Size{0, 0}, Size{0, 9}, Size{9, -1}, Size{kNaN, 9}, Size{9, kInf}}) {
    EXPECT_FALSE(drawnRect(drag, view, kTarget, Bound::none)) << view.width;
    EXPECT_FALSE(keyedRect({0, 0, 9, 9}, {Key::left, "", {}}, view, kTarget, Bound::none));
    EXPECT_TRUE(outlineOfRect({0, 0, 9, 9}, view, kTarget, 2).empty());
    EXPECT_FALSE(upperLeftMoved({}, {}, {1, 1}, view));
    EXPECT_FALSE(lowerRightMoved({}, {}, {1, 1}, view));
  }
  for (const double bad : {kNaN, kInf, -kInf}) {
    EXPECT_FALSE(drawnRect({{bad, 1}, {2, 2}}, kView, kTarget, Bound::none));
    EXPECT_FALSE(drawnRect({{1, 1}, {2, bad}}, kView, kTarget, Bound::width));
    EXPECT_FALSE(lowerRightMoved({}, {}, {bad, 0}, kView));
    EXPECT_TRUE(outlineOfRect({0, bad, 9, 9}, kView, kTarget, 2).empty());
  }
  for (const Size target : {Size{0, 0}, Size{-5, kNaN}, Size{kInf, 0}}) {
    EXPECT_EQ(drawnRect(drag, kView, target, Bound::none), Rect{});
    EXPECT_TRUE(outlineOfRect({0, 0, 9, 9}, kView, target, 2).empty());
  }
}

TEST(OutlineOfRect, staysInsideOfTheViewByHalfALine) {
  struct Case {
    Rect rect;
    Rect outline;
  };
  const Case cases[] = {
      {{200, 100, 400, 200}, {100, 50, 200, 100}},
      {{0, 0, 1920, 1080}, {1, 1, 959, 539}},
      {{0, 100, 1920, 200}, {1, 50, 959, 100}},
      {{1800, 1000, 120, 80}, {900, 500, 60, 40}},
      {{2000, 0, -80, 20}, {}},
      {{100, 50, 0, 100}, {50, 25, 0, 50}},  // drawn straight down
      {{5, 5, 0, 0}, {}},
  };
  for (const Case& c : cases) EXPECT_EQ(outlineOfRect(c.rect, kView, kTarget, 2), c.outline);
  EXPECT_EQ(outlineOfRect({0, 0, 1920, 1080}, kView, kTarget, 10), (Rect{5, 5, 955, 535}));
}

TEST(Handles, doNotPassEachOtherWhileTheyAreDragged) {
  const RectCorners corners{0.25, 0.25, 0.75, 0.5};
  const auto centers = [&](Size upperLeft, Size lowerRight) {
    return handleCenters(corners, {upperLeft, lowerRight}, {400, 400});
  };
  EXPECT_EQ(centers({}, {}), (HandleCenters{{100, 100}, {300, 200}}));
  EXPECT_EQ(centers({0.125, -0.5}, {}), (HandleCenters{{150, -100}, {300, 200}}));
  EXPECT_EQ(centers({0.6, 0.9}, {}), (HandleCenters{{300, 200}, {300, 200}}));
  EXPECT_EQ(centers({}, {0.5, -0.125}), (HandleCenters{{100, 100}, {500, 150}}));
  EXPECT_EQ(centers({}, {-0.9, -0.9}), (HandleCenters{{100, 100}, {100, 100}}));
  // Released past each other they change sides.
  EXPECT_EQ(handleCenters({0.75, 0.5, 0.25, 0.5}, {}, {400, 400}),
            (HandleCenters{{100, 200}, {300, 200}}));
}

TEST(Handles, areReleasedEachInItsOwnWay) {
  const RectCorners c{0.25, 0.25, 0.75, 0.75};
  const Rect rect{0.25, 0.25, 0.5, 0.5};
  struct Case {
    const char* what;
    decltype(&upperLeftMoved) moved;
    Size translation;
    Size view;
    MovedCorner next;
  };
  const Case cases[] = {
      {"the upper left one shifts all and stops at zero",
       upperLeftMoved,
       {-200, 0},
       {400, 400},
       {{0, 0.25, 0.75, 0.75}, {0, 0.25, 0.5, 0.5}}},
      {"it goes past the other one",
       upperLeftMoved,
       {300, 300},
       {400, 400},
       {{1, 1, 0.75, 0.75}, {1, 1, 0.5, 0.5}}},
      {"the lower right one resizes",
       lowerRightMoved,
       {50, -50},
       {400, 400},
       {{0.25, 0.25, 0.875, 0.625}, {0.25, 0.25, 0.625, 0.375}}},
      {"past the other one and the view",
       lowerRightMoved,
       {-300, 300},
       {400, 400},
       {{0.25, 0.25, 0, 1.5}, {0.25, 0.25, -0.25, 1.25}}},
      {"held in a view of a point",
       lowerRightMoved,
       {5, 0.25},
       {1, 1},
       {{0.25, 0.25, 0.75, 0.75}, {0.25, 0.25, 0.5, 0.5}}},
  };
  for (const Case& k : cases) EXPECT_EQ(k.moved(c, rect, k.translation, k.view), k.next) << k.what;

  const auto moved = lowerRightMoved(c, rect, {40, 40}, {400, 400});
  EXPECT_DOUBLE_EQ(moved->corners.right, 0.85);
  EXPECT_DOUBLE_EQ(moved->rect.height, 0.6);
  // What others wrote meanwhile keeps the half that the handle does not set.
  EXPECT_EQ(upperLeftMoved(c, {9, 9, 7, 8}, {0, 0}, {400, 400})->rect, (Rect{0.25, 0.25, 7, 8}));
  EXPECT_EQ(lowerRightMoved(c, {9, 9, 7, 8}, {0, 0}, {400, 400})->rect, (Rect{9, 9, 0.5, 0.5}));
}

TEST(KeyedRect, movesAndResizesByUnitsWithinTheTarget) {
  constexpr Modifiers kShift{.shift = true}, kControl{.control = true};
  constexpr Modifiers kBoth{.shift = true, .control = true};
  struct Case {
    Rect rect;
    Key key;
    Modifiers modifiers;
    Bound bound;
    std::optional<Rect> next;
  };
  const Rect r{200, 100, 400, 200};
  const Case cases[] = {
      {r, Key::right, {}, Bound::none, Rect{201, 100, 400, 200}},
      {r, Key::up, kShift, Bound::none, Rect{200, 90, 400, 200}},
      {r, Key::down, kControl, Bound::none, Rect{200, 100, 400, 201}},
      {r, Key::left, kBoth, Bound::none, Rect{200, 100, 390, 200}},
      {{5, 5, 8, 8}, Key::left, kShift, Bound::none, Rect{0, 5, 8, 8}},
      {{5, 5, 8, 8}, Key::left, kBoth, Bound::none, Rect{5, 5, 10, 8}},
      {{1515, 5, 400, 8}, Key::right, kShift, Bound::none, Rect{1520, 5, 400, 8}},
      {{1515, 5, 400, 8}, Key::right, kBoth, Bound::none, Rect{1515, 5, 405, 8}},
      {{0, 9, 1920, 8}, Key::right, {}, Bound::width, Rect{0, 9, 1920, 8}},
      {{0, 9, 1920, 8}, Key::down, {}, Bound::width, Rect{0, 10, 1920, 8}},
      {{}, Key::space, {}, Bound::none, Rect{480, 270, 960, 540}},
      {{}, Key::enter, {}, Bound::height, Rect{480, 0, 960, 1080}},
      {{0, kNaN, 9, 9}, Key::space, {}, Bound::none, Rect{480, 270, 960, 540}},
      {{}, Key::left, {}, Bound::none, std::nullopt},
      {r, Key::space, {}, Bound::none, std::nullopt},
      {r, Key::tab, {}, Bound::none, std::nullopt},
      {r, Key::left, {.alt = true}, Bound::none, std::nullopt},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(keyedRect(c.rect, {c.key, "", c.modifiers}, kView, kTarget, c.bound), c.next)
        << static_cast<int>(c.key) << " of " << c.rect.x << ", " << c.rect.width;
  }
  // In fractions a unit is a point of the view.
  EXPECT_EQ(keyedRect({0.25, 0, 0.5, 1}, {Key::right, "", {}}, {256, 8}, {1, 1}, Bound::height),
            (Rect{0.25 + 1.0 / 256, 0, 0.5, 1}));
}

TEST(RangeOfRect, isMeasuredFromTimeZeroAndComesBack) {
  EXPECT_EQ(rectOfRange({20, 30}, {10, 110}), (Rect{0.2, 0, 0.1, 1}));
  EXPECT_EQ(rangeOfRect({0.5, 0, 0.25, 1}, {10, 110}), (ZQTimeRange{50, 75}));
  for (const double span : {1.0, 60.0, 86400.0}) {
    for (int from = 0; from < 50; ++from) {
      for (int to = from; to <= 50; ++to) {
        const ZQTimeRange range{span * from / 50, span * to / 50};
        const ZQTimeRange back = rangeOfRect(rectOfRange(range, {7, 7 + span}), {7, 7 + span});
        EXPECT_NEAR(back.start, range.start, span * 1e-15);
        EXPECT_NEAR(back.end, range.end, span * 1e-15);
      }
    }
  }
  for (const ZQTimeRange bad : {ZQTimeRange{5, 5}, ZQTimeRange{0, kNaN}, ZQTimeRange{-kInf, 0}}) {
    EXPECT_EQ(rectOfRange({1, 2}, bad), (Rect{0, 0, 0, 1}));
    EXPECT_EQ(rangeOfRect({0.5, 0, 0.25, 1}, bad), ZQTimeRange{});
  }
}

TEST(SpokenRect, isShort) {
  EXPECT_EQ(spokenRect({200, 100, 400.4, 200}, 0), "x 200 y 100, 400 by 200");
  EXPECT_EQ(spokenRect({-0.001, 0.5, 0.25, 1}, 2), "x 0 y 0.5, 0.25 by 1");
  EXPECT_EQ(spokenRect({1, 1, 0, 5}, 0), "x 1 y 1, 0 by 5");
  EXPECT_EQ(spokenRect({1, 1, 0, 0}, 0), "nothing drawn");
}

}  // namespace
}  // namespace zq
