// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/animation.hpp>

namespace zq {
namespace {

thread_local std::optional<Animation> current;

}  // namespace

double Animation::progress(double elapsed) const {
  if (!(duration_ > 0) || !(elapsed < duration_)) return 1;
  const double t = elapsed > 0 ? elapsed / duration_ : 0;
  const double rest = 1 - t;
  switch (curve_) {
    case Curve::linear:
      return t;
    case Curve::easeIn:
      return t * t * t;
    case Curve::easeOut:
      return 1 - rest * rest * rest;
    case Curve::easeInOut:
      break;
  }
  return t < 0.5 ? 4 * t * t * t : 1 - 4 * rest * rest * rest;
}

void withAnimation(const Animation& animation, const std::function<void()>& change) {
  const std::optional<Animation> outer = current;
  current = animation;
  if (change) change();
  current = outer;
}

std::optional<Animation> currentAnimation() {
  return current;
}

}  // namespace zq
