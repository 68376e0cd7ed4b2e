// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/layout/canvas_rects.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// Laid over a picture: a drag of 10 points or more across it draws a rectangle, told to the
// binding in the units of `targetSize` at every move, and as a line on standard output. It takes
// all the room that is offered, works at any zoom and is never mirrored. From the keyboard,
// arrows move the rectangle by one target unit, Shift by ten, and with Control its lower right
// corner; Space or Enter makes one where there is none. A screen reader hears its place, "x 200
// y 100, 400 by 200", and may set where it begins. Bad sizes draw nothing; see canvas_rects.hpp.
// Interface thread only.
//   Image(frame).resizable().overlay(
//       ZQCanvasRectDrawingView({.rect = crop.binding(), .targetSize = Size{1920, 1080},
//                                .color = Color::yellow()}))
class ZQCanvasRectDrawingView : public ViewModifiers<ZQCanvasRectDrawingView> {
 public:
  // What the rectangle always spans: nothing, the full width, or the full height of the target.
  using Bound = CanvasRectBound;

  struct Parameters {
    Required<Binding<Rect>> rect;
    Required<Size> targetSize;
    Bound bound = Bound::none;
    Required<Color> color;
  };
  explicit ZQCanvasRectDrawingView(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
