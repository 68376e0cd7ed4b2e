// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <zqswiftui/layout/canvas_rects.hpp>
#include <zqswiftui/platform/base/number_text.hpp>

namespace zq {
namespace {

constexpr double kManyPoints = 10;  // of an arrow with Shift

double finite(double value) {
  return std::isfinite(value) ? value : 0;
}

Size finiteSize(Size size) {
  return {sanitized(finite(size.width)), sanitized(finite(size.height))};
}

bool isFinite(const Rect& r) {
  return std::isfinite(r.x) && std::isfinite(r.y) && std::isfinite(r.width) &&
         std::isfinite(r.height);
}

bool isDrawable(Size view) {
  return std::isfinite(view.width) && std::isfinite(view.height) && view.width > 0 &&
         view.height > 0;
}

Rect bounded(const Rect& rect, Size target, CanvasRectBound bound) {
  if (bound == CanvasRectBound::width) return {0, rect.y, target.width, rect.height};
  if (bound == CanvasRectBound::height) return {rect.x, 0, rect.width, target.height};
  return rect;
}

double spanOf(const ZQTimeRange& range) {
  return finite(range.end - range.start);
}

// What a key moves by: a unit of the target, or a point of the view in a target of fractions.
Size keyStep(Size view, Size target) {
  return {target.width > 1 ? 1 : target.width / view.width,
          target.height > 1 ? 1 : target.height / view.height};
}

// One side of a rectangle in its target.
struct Stretch {
  double from;
  double length;
};

Stretch moved(Stretch s, double by, double target) {
  return {std::clamp(s.from + by, 0.0, std::max(0.0, target - s.length)), s.length};
}

// Never shorter than the step, so that there is always something to go on from.
Stretch stretched(Stretch s, double by, double target) {
  const double most = std::max(0.0, target - s.from);
  return {s.from, std::clamp(s.length + by, std::min(std::abs(by), most), most)};
}

}  // namespace

bool isNothing(const Rect& rect) {
  return !isFinite(rect) || rect.width < 0 || rect.height < 0 ||
         (rect.width == 0 && rect.height == 0);
}

std::optional<Rect> drawnRect(const DragValue& drag, Size view, Size target,
                              CanvasRectBound bound) {
  if (!isDrawable(view)) return std::nullopt;
  const Size all = finiteSize(target);
  const double x1 = all.width * (drag.startLocation.x / view.width);
  const double x2 = all.width * (drag.location.x / view.width);
  const double y1 = all.height * (drag.startLocation.y / view.height);
  const double y2 = all.height * (drag.location.y / view.height);
  const double minX = std::max(0.0, std::min(x1, x2));
  const double minY = std::max(0.0, std::min(y1, y2));
  const Rect rect{minX, minY, std::min(std::abs(x1 - x2), all.width - minX),
                  std::min(std::abs(y1 - y2), all.height - minY)};
  if (!std::isfinite(x1 + x2 + y1 + y2) || !isFinite(rect)) return std::nullopt;
  return bounded(rect, all, bound);
}

Rect outlineOfRect(const Rect& rect, Size view, Size target, double strokeWidth) {
  const Size all = finiteSize(target);
  if (!isDrawable(view) || !isDrawable(all)) return {};
  const double half = sanitized(finite(strokeWidth)) * 0.5;
  const Rect outline{std::max(half, rect.x / all.width * view.width),
                     std::max(half, rect.y / all.height * view.height),
                     std::min(view.width - half, rect.width / all.width * view.width),
                     std::min(view.height - half, rect.height / all.height * view.height)};
  return isNothing(rect) || isNothing(outline) ? Rect{} : outline;
}

std::optional<Size> arrowStep(const KeyEvent& key) {
  if (key.modifiers.alt) return std::nullopt;
  const double step = key.modifiers.shift ? kManyPoints : 1;
  switch (key.key) {
    case Key::left:
      return Size{-step, 0};
    case Key::right:
      return Size{step, 0};
    case Key::up:
      return Size{0, -step};
    case Key::down:
      return Size{0, step};
    default:
      return std::nullopt;
  }
}

std::optional<Rect> keyedRect(const Rect& rect, const KeyEvent& key, Size view, Size target,
                              CanvasRectBound bound) {
  const Size all = finiteSize(target);
  if (!isDrawable(view) || !isDrawable(all)) return std::nullopt;
  if (isNothing(rect)) {
    if (key.key != Key::space && key.key != Key::enter) return std::nullopt;
    return bounded({all.width / 4, all.height / 4, all.width / 2, all.height / 2}, all, bound);
  }
  const std::optional<Size> arrow = arrowStep(key);
  if (!arrow) return std::nullopt;
  const Size step = keyStep(view, all);
  const double dx = arrow->width * step.width;
  const double dy = arrow->height * step.height;
  const auto change = key.modifiers.control ? stretched : moved;
  Stretch x{rect.x, rect.width}, y{rect.y, rect.height};
  if (dx != 0) x = change(x, dx, all.width);
  if (dy != 0) y = change(y, dy, all.height);
  return bounded({x.from, y.from, x.length, y.length}, all, bound);
}

std::optional<AccessibleNumber> placeOfRect(const Rect& rect, Size view, Size target,
                                            CanvasRectBound bound) {
  const Size all = finiteSize(target);
  if (isNothing(rect) || !isDrawable(view) || !isDrawable(all)) return std::nullopt;
  const Size step = keyStep(view, all);
  if (bound == CanvasRectBound::width) {
    return AccessibleNumber{rect.y, 0, std::max(0.0, all.height - rect.height), step.height};
  }
  return AccessibleNumber{rect.x, 0, std::max(0.0, all.width - rect.width), step.width};
}

Rect rectAtPlace(const Rect& rect, double place, CanvasRectBound bound) {
  const bool down = bound == CanvasRectBound::width;
  return {down ? rect.x : place, down ? place : rect.y, rect.width, rect.height};
}

RectCorners cornersOf(const Rect& rect) {
  // A corner that was dragged across the other leaves a rectangle of negative width or height.
  const double x = finite(rect.x), y = finite(rect.y);
  const double otherX = finite(rect.maxX()), otherY = finite(rect.maxY());
  return {std::min(x, otherX), std::min(y, otherY), std::max(x, otherX), std::max(y, otherY)};
}

std::optional<Size> panOf(Size translation, Size view) {
  if (!isDrawable(view)) return std::nullopt;
  const Size pan{translation.width / view.width, translation.height / view.height};
  if (!std::isfinite(pan.width) || !std::isfinite(pan.height)) return std::nullopt;
  return pan;
}

HandleCenters handleCenters(const RectCorners& c, const CornerPans& pans, Size view) {
  const auto [w, h] = view;
  return {{std::min(std::min(c.left + pans.upperLeft.width, c.right) * w, c.right * w),
           std::min(std::min(c.top + pans.upperLeft.height, c.bottom) * h, c.bottom * h)},
          {std::max(c.left * w, (c.right + pans.lowerRight.width) * w),
           std::max(c.top * h, (c.bottom + pans.lowerRight.height) * h)}};
}

bool isNearerUpperLeft(Point p, const HandleCenters& centers) {
  const auto [a, b] = centers;
  const Size way = a == b ? Size{1, 1} : Size{b.x - a.x, b.y - a.y};
  return (p.x - (a.x + b.x) / 2) * way.width + (p.y - (a.y + b.y) / 2) * way.height < 0;
}

std::optional<MovedCorner> upperLeftMoved(const RectCorners& corners, const Rect& rect,
                                          Size translation, Size view) {
  const std::optional<Size> pan = panOf(translation, view);
  if (!pan) return std::nullopt;
  MovedCorner next{corners, rect};
  next.corners.left = std::max(0.0, corners.left + pan->width);
  next.corners.top = std::max(0.0, corners.top + pan->height);
  next.rect.x = next.corners.left;
  next.rect.y = next.corners.top;
  return next;
}

std::optional<MovedCorner> lowerRightMoved(const RectCorners& corners, const Rect& rect,
                                           Size translation, Size view) {
  const std::optional<Size> pan = panOf(translation, view);
  if (!pan) return std::nullopt;
  MovedCorner next{corners, rect};
  next.corners.right = std::min(corners.right + pan->width, view.width - corners.left);
  next.corners.bottom = std::min(corners.bottom + pan->height, view.height - corners.top);
  next.rect.width = next.corners.right - corners.left;
  next.rect.height = next.corners.bottom - corners.top;
  return next;
}

Rect rectOfRange(const ZQTimeRange& range, const ZQTimeRange& targetRange) {
  const double span = spanOf(targetRange);
  return {finite(range.start / span), 0, finite((range.end - range.start) / span), 1};
}

ZQTimeRange rangeOfRect(const Rect& rect, const ZQTimeRange& targetRange) {
  const double span = spanOf(targetRange);
  const double start = finite(rect.x * span);
  return {start, finite(start + rect.width * span)};
}

std::string spokenRect(const Rect& rect, int decimals) {
  if (isNothing(rect)) return "nothing drawn";
  const auto number = [decimals](double value) { return spokenNumber(value, decimals); };
  return "x " + number(rect.x) + " y " + number(rect.y) + ", " + number(rect.width) + " by " +
         number(rect.height);
}

}  // namespace zq
