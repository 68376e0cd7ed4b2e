// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/toolkit/animation.hpp>
#include <zqswiftui/platform/toolkit/geometry.hpp>

namespace zq {

inline double mix(double from, double to, double t) {
  return from + (to - from) * t;
}
inline Point mix(Point from, Point to, double t) {
  return {mix(from.x, to.x, t), mix(from.y, to.y, t)};
}

// A value on its way: from what was shown when the change came to what it is now.
template <class T>
struct Motion {
  T from;
  T to;
  double start = 0;
  Animation animation = Animation::standard();

  T at(double now) const { return mix(from, to, animation.progress(now - start)); }
  bool over(double now) const { return now - start >= animation.duration(); }
};

}  // namespace zq
