// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cmath>
#include <optional>
#include <zqswiftui/platform/toolkit/animation.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

inline double mix(double from, double to, double t) {
  return from + (to - from) * t;
}
inline Point mix(Point from, Point to, double t) {
  return {mix(from.x, to.x, t), mix(from.y, to.y, t)};
}
// From nothing, or from what has no end, there is no way.
inline std::optional<double> mix(std::optional<double> from, std::optional<double> to, double t) {
  if (!from || !to || !std::isfinite(*from) || !std::isfinite(*to)) return to;
  return mix(*from, *to, t);
}
inline EdgeInsets mix(const EdgeInsets& a, const EdgeInsets& b, double t) {
  return {mix(a.top, b.top, t), mix(a.leading, b.leading, t), mix(a.bottom, b.bottom, t),
          mix(a.trailing, b.trailing, t)};
}
inline Frame mix(const Frame& a, const Frame& b, double t) {
  return {mix(a.width, b.width, t), mix(a.height, b.height, t), b.alignment, b.growsWithText};
}
inline FlexFrame mix(const FlexFrame& a, const FlexFrame& b, double t) {
  return {mix(a.minWidth, b.minWidth, t), mix(a.maxWidth, b.maxWidth, t),
          mix(a.minHeight, b.minHeight, t), mix(a.maxHeight, b.maxHeight, t), b.alignment};
}

// A value on its way: from what was shown when the change came to what it is now.
template <class T>
struct Motion {
  T from;
  T to;
  double start = 0;
  Animation animation = Animation::standard();

  // Arrived already: it ends with the next frame.
  static Motion at(T place, double now) { return {place, place, now, Animation::linear(0)}; }
  T shown(double now) const { return mix(from, to, animation.progress(now - start)); }
  bool over(double now) const { return now - start >= animation.duration(); }
};

}  // namespace zq
