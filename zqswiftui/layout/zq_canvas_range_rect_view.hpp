// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/base/time_range.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A range of time, in seconds, marked by dragging across a strip that stands for targetRange:
// the mark is as high as the view. The range is read once, when the view appears, and written at
// every move. Places are measured from time zero, scaled by the length of targetRange, whose own
// start is not taken into account: over 10 to 110 the range 20 to 30 stands at a fifth, and a
// mark from 0.5 to 0.7 writes 50 to 70. Keys are those of ZQCanvasRectDrawingView, their unit a
// point of the view. Times that are not finite count as zero. Interface thread only.
//   ZQCanvasRangeRectView(range.binding(), {0, 90}, Color::yellow())
class ZQCanvasRangeRectView : public ViewModifiers<ZQCanvasRangeRectView> {
 public:
  ZQCanvasRangeRectView(Binding<ZQTimeRange> range, ZQTimeRange targetRange, Color color);

  View body(Context& context) const;

 private:
  Binding<ZQTimeRange> range_;
  ZQTimeRange targetRange_;
  Color color_;
};

}  // namespace zq
