// ZQSwiftUI, MIT licence; see LICENSE.
#include <cstdio>
#include <utility>
#include <zqswiftui/layout/rect_outline.hpp>
#include <zqswiftui/layout/zq_canvas_rect_drawing_view.hpp>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/platform/toolkit/geometry_reader.hpp>

namespace zq {
namespace {

constexpr double kOutlineWidth = 2;  // the outline keeps half of it from the edges
constexpr double kLineWidth = 2;

void write(const Binding<Rect>& binding, const Rect& rect) {
  binding.set(rect);
  std::string line;
  for (const double value : {rect.x, rect.y, rect.width, rect.height}) {
    line += line.empty() ? "(" : ", ";
    appendStandardText(line, value);
  }
  std::puts((line + ')').c_str());
}

// A target in fractions is told with the decimals that it needs.
int decimalsOf(Size target) {
  return target.width > 1 && target.height > 1 ? 0 : 2;
}

View drawing(const ZQCanvasRectDrawingView::Parameters& p, const Rect& rect, Size view) {
  const auto drawn = [p, view](const DragValue& drag) {
    if (const auto next = drawnRect(drag, view, p.targetSize, p.bound)) write(p.rect, *next);
  };
  const auto keyed = [p, view](const KeyEvent& key) {
    const Rect was = p.rect->get();
    const auto next = keyedRect(was, key, view, p.targetSize, p.bound);
    if (next && !(*next == was)) write(p.rect, *next);
    return next.has_value();
  };
  const auto placed = [p](double place) {
    write(p.rect, rectAtPlace(p.rect->get(), place, p.bound));
  };
  const Rect outline = outlineOfRect(rect, view, p.targetSize, kOutlineWidth);
  const bool nothing = outline == Rect{};
  return (nothing ? View() : detail::rectOutline(outline, p.color, kLineWidth))
      .frame({.width = view.width, .height = view.height, .alignment = Alignment::topLeading()})
      .gesture({.onChanged = drawn})
      .cursor(Cursor::crosshair)
      .onKey(keyed)
      .accessibility({.role = Role::slider,
                      .label = "Rectangle",
                      .value = spokenRect(rect, decimalsOf(p.targetSize)),
                      .number = placeOfRect(rect, view, p.targetSize, p.bound),
                      .setNumber = placed});
}

}  // namespace

ZQCanvasRectDrawingView::ZQCanvasRectDrawingView(Parameters parameters)
    : parameters_(std::move(parameters)) {}

View ZQCanvasRectDrawingView::body(Context&) const {
  // A picture is the same from right to left, and so is what is drawn on it.
  return GeometryReader([p = parameters_, rect = parameters_.rect->get()](Size view) {
           return drawing(p, rect, view);
         })
      .environment<LayoutDirectionKey>(LayoutDirection::leftToRight);
}

}  // namespace zq
