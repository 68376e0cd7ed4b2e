// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/toolkit/path.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A tick of a ruler: a line down the leading edge of the room that it is offered, long (three
// quarters of the height) for a major tick, short (three twentieths) for a minor one.
//   ZQRulerBar(true).stroke(Color::gray()).frame(1, 40)
class ZQRulerBar {
 public:
  explicit ZQRulerBar(bool full) : full_(full) {}

  // From (x, y) to (x, maxY * factor): it is the lower edge itself that is scaled and not the
  // height, for ticks hang from the top.
  Path path(const Rect& rect) const;
  View stroke(Color color, StrokeStyle style = {}) const;

 private:
  bool full_;
};

}  // namespace zq
