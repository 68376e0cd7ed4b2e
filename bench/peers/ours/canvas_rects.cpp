// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/layout/zq_draggable_rect.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

#include "media.hpp"
#include "scene.hpp"

// Many rectangles with handles over one canvas, of which one is dragged by its corner: side by
// side, and all across each other.
namespace bench {
namespace {

constexpr int kColumns = 25;
constexpr double kDragPoints = 0.5;  // a frame

zq::Rect placeOf(int i, int n) {
  const double width = 1.0 / kColumns, height = double{kColumns} / n;
  return {i % kColumns * width, i / kColumns * height, width * 0.7, height * 0.7};
}

// Large ones, each across all the others.
zq::Rect crossing(int i, int n) {
  return {0.3 * i / n, 0.3 * i / n, 0.6, 0.6};
}

struct Rects {
  int n = 0;
  zq::Rect (*place)(int i, int n) = placeOf;
  std::shared_ptr<int> changes;
  zq::View body(zq::Context&) const {
    std::vector<zq::View> all;
    for (int i = 0; i < n; ++i) {
      all.emplace_back(zq::ZQDraggableRect(
          {.rect = zq::Binding<zq::Rect>::constant(place(i, n)),
           .valueChangedCallback = [told = changes](const zq::Rect&) { ++*told; }}));
    }
    return zq::ZStack(std::move(all)).frame(kViewW, kViewH);
  }
};

// Drags the lower right corner of one, and answers the window's picture at the end.
QImage dragOne(const char* item, int n, int dragged, zq::Rect (*placed)(int, int)) {
  const auto changes = std::make_shared<int>(0);
  Window window(Rects{n, placed, changes});
  window.frame();
  const zq::Rect place = placed(dragged, n);
  const zq::Point corner{place.maxX() * kViewW, place.maxY() * kViewH};
  window.host().pointerDown(corner, zq::PointerButton::primary);
  const auto painted = window.painted();
  reportPan(item, n, [&](double to) {
    const double by = 10 + to * (kDragPoints / kPanPoints);
    window.host().pointerMove({corner.x + by, corner.y + by});
    window.frame();
  });
  check(window.painted() > painted, item);
  window.host().pointerUp({corner.x + 40, corner.y + 40}, zq::PointerButton::primary);
  check(*changes == 1, "M3 told once");
  window.checkComplete("M3 frame complete");
  return window.image();
}

}  // namespace

void canvasRects(const Arguments& arguments) {
  const int n = arguments.n();
  const QImage apart = dragOne("M3", n, n / 2, placeOf);
  dragOne("M3-across", n, n - 1, crossing);
  if (!arguments.png().empty()) apart.save(QString::fromStdString(arguments.png()));
}

}  // namespace bench
