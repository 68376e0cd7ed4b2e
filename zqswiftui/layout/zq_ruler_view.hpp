// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/base/time_range.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A horizontal ruler of time in seconds: its whole width is the range. Long ticks with a label at
// each step of kRulerSteps that leaves them 84 points apart or more, short ones at each half;
// ruler_ticks.hpp has the arithmetic. Where texts are larger than usual the 84 points grow with
// them, as far as the longest step goes. Fills the room that it is given and draws in gray, also
// beyond its trailing edge, where the last label stands: clip it, or leave it room.
//
// To move or zoom, give it another range, or put a wide one into a scroll view: only ticks near
// what is seen are made, so that a day costs what ten seconds do.
//
// A range so long that 84 points stand for more than 60000 seconds, and one that is not finite,
// stop the program. Where there is no width, and in a range without length, there are no ticks.
// Interface thread only.
//   ZQRulerView({0, 60}).frame({.height = 32})
class ZQRulerView : public ViewModifiers<ZQRulerView> {
 public:
  explicit ZQRulerView(ZQTimeRange range) : range_(range) {}

  View body(Context& context) const;
  bool operator==(const ZQRulerView&) const = default;

 private:
  ZQTimeRange range_;
};

}  // namespace zq
