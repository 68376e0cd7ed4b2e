// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <zqswiftui/layout/rect_outline.hpp>
#include <zqswiftui/layout/zq_draggable_rect.hpp>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/geometry_reader.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

constexpr double kLeastHit = 24;  // points that a hand can aim at

struct Handles {
  RectCorners corners;
  CornerPans pans;
  bool operator==(const Handles&) const = default;
};

// One of the two corners: what is its own.
struct Corner {
  const char* name;
  Size CornerPans::*pan;
  Point HandleCenters::*center;
  std::optional<MovedCorner> (*moved)(const RectCorners&, const Rect&, Size, Size);
};
constexpr Corner kUpperLeft{"Upper left corner", &CornerPans::upperLeft, &HandleCenters::upperLeft,
                            upperLeftMoved};
constexpr Corner kLowerRight{"Lower right corner", &CornerPans::lowerRight,
                             &HandleCenters::lowerRight, lowerRightMoved};

double length(double value) {
  return std::isfinite(value) ? sanitized(value) : 0;
}

struct Drawing {
  std::shared_ptr<const ZQDraggableRect::Parameters> given;
  State<Handles> handles;

  // A drag that ended, or a key.
  void move(const Corner& corner, Size translation, Size view) const {
    const auto next = corner.moved(handles->corners, given->rect->get(), translation, view);
    handles.set({next ? next->corners : handles->corners, {}});
    if (!next) return;
    given->rect->set(next->rect);
    if (given->valueChangedCallback) given->valueChangedCallback(given->rect->get());
  }

  void pan(const Corner& corner, Size by) const {
    CornerPans pans;
    pans.*corner.pan = by;
    handles.set({handles->corners, pans});
  }

  View handle(const Corner& corner, const HandleCenters& centers, Size view) const {
    const Point center = centers.*corner.center;
    const double side = length(given->pointSize);
    const double hit = std::max(kLeastHit, side);
    const Point at{center.x - hit / 2, center.y - hit / 2};
    // Where the handles are near each other a press means the nearer one.
    const auto nearer = [centers, at,
                         upperLeft = corner.center == &HandleCenters::upperLeft](Point point) {
      return isNearerUpperLeft({at.x + point.x, at.y + point.y}, centers) == upperLeft;
    };
    // A fine rim, so that a white handle shows on a white picture.
    return RoundedRectangle(2)
        .fill(given->pointColor)
        .stroke(Color::black().opacity(0.4))
        .frame(side, side)
        .frame(hit, hit)
        .gesture({.onChanged =
                      [*this, corner, view](const DragValue& drag) {
                        if (auto by = panOf(drag.translation(), view)) pan(corner, *by);
                      },
                  .onEnded = [*this, corner, view](
                                 const DragValue& drag) { move(corner, drag.translation(), view); },
                  .onCancelled = [*this, corner] { pan(corner, {}); }})
        .cursor(Cursor::resizeDiagonal)
        .onKey(
            [*this, corner, view](const KeyEvent& key) {
              const auto step = arrowStep(key);
              if (step) move(corner, *step, view);
              return step.has_value();
            },
            (hit - side) / 2)
        .accessibility(
            {.role = Role::slider,
             .label = corner.name,
             .value = "x " + spokenNumber(center.x, 0) + " y " + spokenNumber(center.y, 0),
             .number = AccessibleNumber{center.x, 0, view.width, 1},
             .setNumber =
                 [*this, corner, view, from = center.x](double x) {
                   move(corner, {x - from, 0}, view);
                 }})
        .hitArea(nearer)
        .offset(at.x, at.y);
  }

  View content(Size view) const {
    const auto centers = handleCenters(handles->corners, handles->pans, view);
    const auto [upperLeft, lowerRight] = centers;
    const Rect shown{upperLeft.x, upperLeft.y, lowerRight.x - upperLeft.x,
                     lowerRight.y - upperLeft.y};
    return ZStack({detail::rectOutline(shown, given->rectColor, length(given->lineWidth)),
                   handle(kUpperLeft, centers, view), handle(kLowerRight, centers, view)},
                  Alignment::topLeading())
        .frame({.width = view.width, .height = view.height, .alignment = Alignment::topLeading()})
        .accessibility({.role = Role::group, .label = "Rectangle", .value = spokenRect(shown, 0)});
  }
};

}  // namespace

ZQDraggableRect::ZQDraggableRect(Parameters parameters) : parameters_(std::move(parameters)) {}

View ZQDraggableRect::body(Context& context) const {
  const auto handles = context.stateOf([this] {
    return Handles{cornersOf(parameters_.rect->get()), {}};
  });
  // A picture is the same from right to left, and so is what lies on it. The closure is made
  // anew with each body, so a drag that moves the handles draws them again.
  return GeometryReader([drawing = Drawing{std::make_shared<const Parameters>(parameters_),
                                           handles}](Size view) { return drawing.content(view); })
      .environment<LayoutDirectionKey>(LayoutDirection::leftToRight);
}

}  // namespace zq
