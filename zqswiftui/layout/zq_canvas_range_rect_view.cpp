// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <utility>
#include <zqswiftui/layout/zq_canvas_range_rect_view.hpp>
#include <zqswiftui/layout/zq_canvas_rect_drawing_view.hpp>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>

namespace zq {

ZQCanvasRangeRectView::ZQCanvasRangeRectView(Binding<ZQTimeRange> range, ZQTimeRange targetRange,
                                             Color color)
    : range_(std::move(range)), targetRange_(targetRange), color_(color) {}

View ZQCanvasRangeRectView::body(Context& context) const {
  const auto rect = context.stateOf([this] { return rectOfRange(range_.get(), targetRange_); });
  const Binding<Rect> marked([rect] { return *rect; },
                             [rect, range = range_, target = targetRange_](const Rect& next) {
                               if (*rect == next) return;
                               rect.set(next);
                               range.set(rangeOfRect(next, target));
                             });
  const ZQTimeRange shown = rangeOfRect(*rect, targetRange_);
  const double span = rangeOfRect({0, 0, 1, 1}, targetRange_).end;
  const AccessibleNumber start{
      .value = shown.start, .most = std::max(0.0, span * (1 - rect->width)), .step = span / 100};
  const auto moved = [marked, span](double seconds) {
    if (span > 0) marked.set(rectAtPlace(marked.get(), seconds / span, CanvasRectBound::height));
  };
  return ZQCanvasRectDrawingView({.rect = marked,
                                  .targetSize = Size{1, 1},
                                  .bound = CanvasRectBound::height,
                                  .color = color_})
      .accessibility(
          {.label = "Range",
           .value = spokenNumber(shown.start, 2) + " s to " + spokenNumber(shown.end, 2) + " s",
           .number = start,
           .setNumber = moved});
}

}  // namespace zq
