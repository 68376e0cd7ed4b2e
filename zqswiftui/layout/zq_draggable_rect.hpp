// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/layout/canvas_rects.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A rectangle over a picture with a handle at its upper left and its lower right corner. The
// binding is in fractions of the view, from 0 to 1 on both axes, and is read once, when the view
// appears; what others write to it later moves no handle. A drag of 10 points or more moves a
// corner; when it ends the binding is set and the callback told the rectangle. The lower right
// corner resizes it; the upper left one shifts it as a whole and leaves the other handle where it
// is: see upperLeftMoved and lowerRightMoved.
//
// Handles are pointSize wide and high and can be grabbed within 24 points; of two that are near
// each other the nearer one is. Each is reached by
// Tab; an arrow moves it by one point of the view, with Shift by ten, and is told like a drag. A
// screen reader hears places in points of the view, and may set the one across. Lengths that are
// negative or not finite count as zero. Takes all the room that is offered; never mirrored.
// Interface thread only.
//   Image(frame).resizable().overlay(ZQDraggableRect({.rect = face.binding()}))
class ZQDraggableRect : public ViewModifiers<ZQDraggableRect> {
 public:
  struct Parameters {
    Required<Binding<Rect>> rect;
    double pointSize = 10;
    Color pointColor = Color::white();
    Color rectColor = Color::gray();
    double lineWidth = 2;
    std::function<void(const Rect& rect)> valueChangedCallback = nullptr;
  };
  explicit ZQDraggableRect(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
