// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/layout/zq_draggable_rect.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

#include "media.hpp"
#include "scene.hpp"

// Many rectangles with handles over one canvas, of which one is dragged by its corner.
namespace bench {
namespace {

constexpr int kColumns = 25;
constexpr double kDragPoints = 0.5;  // a frame

zq::Rect placeOf(int i, int n) {
  const double width = 1.0 / kColumns, height = double{kColumns} / n;
  return {i % kColumns * width, i / kColumns * height, width * 0.7, height * 0.7};
}

struct Rects {
  int n = 0;
  std::shared_ptr<int> changes;
  zq::View body(zq::Context&) const {
    std::vector<zq::View> all;
    for (int i = 0; i < n; ++i) {
      all.emplace_back(zq::ZQDraggableRect(
          {.rect = zq::Binding<zq::Rect>::constant(placeOf(i, n)),
           .valueChangedCallback = [told = changes](const zq::Rect&) { ++*told; }}));
    }
    return zq::ZStack(std::move(all)).frame(kViewW, kViewH);
  }
};

}  // namespace

void canvasRects(const Arguments& arguments) {
  const int n = arguments.n();
  const auto changes = std::make_shared<int>(0);
  Window window(Rects{n, changes});
  window.frame();
  const zq::Rect place = placeOf(n / 2, n);
  const zq::Point corner{place.maxX() * kViewW, place.maxY() * kViewH};
  window.host().pointerDown(corner, zq::PointerButton::primary);
  const auto painted = window.painted();
  reportPan("M3", n, [&](double to) {
    const double by = 10 + to * (kDragPoints / kPanPoints);
    window.host().pointerMove({corner.x + by, corner.y + by});
    window.frame();
  });
  check(window.painted() > painted, "M3 painted");
  window.host().pointerUp({corner.x + 40, corner.y + 40}, zq::PointerButton::primary);
  check(*changes == 1, "M3 told once");
  window.frame();
  window.checkComplete("M3");
  if (!arguments.png().empty()) window.image().save(QString::fromStdString(arguments.png()));
}

}  // namespace bench
