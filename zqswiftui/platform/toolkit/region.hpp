// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <vector>
#include <zqswiftui/platform/toolkit/geometry.hpp>

namespace zq {

// A union of a few rectangles, in points. Rectangles that nearly cover their union are merged,
// and past a small number the closest ones are, so that the list stays short.
class Region {
 public:
  void add(const Rect& rect);
  void clear() { rects_.clear(); }
  bool empty() const { return rects_.empty(); }
  bool intersects(const Rect& rect) const;
  Rect bounds() const;
  const std::vector<Rect>& rects() const { return rects_; }

 private:
  std::vector<Rect> rects_;
};

}  // namespace zq
