// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/toolkit/shapes.hpp>

// Inside of layout/ only.
namespace zq::detail {

// A line whose middle runs along the rectangle, in a frame of its size moved to its place. It keeps
// its width and shows also where the rectangle is flat.
inline View rectOutline(const Rect& rect, Color color, double lineWidth) {
  return PathShape(Path().addRect({0, 0, rect.width, rect.height}))
      .stroke(color, {.lineWidth = lineWidth})
      .frame(rect.width, rect.height)
      .offset(rect.x, rect.y);
}

}  // namespace zq::detail
