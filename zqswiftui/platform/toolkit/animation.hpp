// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// How values move: seconds, and a curve over them. Durations that are not positive are instant.
class Animation {
 public:
  enum class Curve : unsigned char { linear, easeIn, easeOut, easeInOut };

  static Animation standard() { return easeInOut(0.35); }
  static Animation linear(double seconds) { return {seconds, Curve::linear}; }
  static Animation easeIn(double seconds) { return {seconds, Curve::easeIn}; }
  static Animation easeOut(double seconds) { return {seconds, Curve::easeOut}; }
  static Animation easeInOut(double seconds) { return {seconds, Curve::easeInOut}; }

  double duration() const { return duration_; }
  // Progress from 0 to 1 after that many seconds; the eased curves are the cubic ones.
  double progress(double elapsed) const;
  bool operator==(const Animation&) const = default;

 private:
  Animation(double seconds, Curve curve) : duration_(seconds), curve_(curve) {}
  double duration_ = 0;
  Curve curve_ = Curve::easeInOut;
};

// Runs the change; values of views that change by it move from what is shown now. Outside of
// it, or with reduced motion, they jump and end a running animation. Interface thread only.
void withAnimation(const Animation& animation, const std::function<void()>& change);

// The animation of the innermost withAnimation on this thread.
std::optional<Animation> currentAnimation();

}  // namespace zq
