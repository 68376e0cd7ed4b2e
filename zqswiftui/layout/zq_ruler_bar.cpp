// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/layout/zq_ruler_bar.hpp>
#include <zqswiftui/platform/toolkit/geometry_reader.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>

namespace zq {

Path ZQRulerBar::path(const Rect& rect) const {
  const double factor = full_ ? 0.75 : 0.15;
  return Path().moveTo(rect.origin()).lineTo({rect.x, rect.maxY() * factor});
}

View ZQRulerBar::stroke(Color color, StrokeStyle style) const {
  return GeometryReader([bar = *this, color, style](Size size) {
    return PathShape(bar.path(Rect::of({}, size))).stroke(color, style);
  });
}

}  // namespace zq
