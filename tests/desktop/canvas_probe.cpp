// ZQSwiftUI, MIT licence; see LICENSE.
// A canvas to draw on above a rectangle with handles, for the tests on a virtual display.
#include <tests/desktop/probe_window.hpp>
#include <zqswiftui/layout/zq_canvas_rect_drawing_view.hpp>
#include <zqswiftui/layout/zq_draggable_rect.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace {

using namespace zq;

Binding<Rect> told(const std::string& name, const State<Rect>& rect, int decimals) {
  return {[rect] { return *rect; },
          [=](const Rect& now) {
            rect.set(now);
            probe::say(name + " " + spokenRect(now, decimals));
          }};
}

struct Canvases {
  View body(Context& context) const {
    const auto drawn = context.state(Rect{});
    const auto kept = context.state(Rect{0.25, 0.25, 0.5, 0.5});
    const View ground = RoundedRectangle(8).fill(Color::teal().opacity(0.3)).frame(400, 200);
    return VStack({.spacing = 20},
                  {ground.overlay(ZQCanvasRectDrawingView({.rect = told("drawn", drawn, 0),
                                                           .targetSize = Size{1600, 800},
                                                           .color = Color::red()})),
                   ground.overlay(ZQDraggableRect({.rect = told("kept", kept, 4)}))})
        .padding(20);
  }
};

}  // namespace

int main(int argc, char** argv) {
  return probe::show(argc, argv, View(Canvases{}), {440, 460});
}
