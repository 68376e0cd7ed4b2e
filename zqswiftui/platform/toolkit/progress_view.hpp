// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <zqswiftui/platform/toolkit/animation.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// Work in progress: a turning spinner in the foreground colour, or a bar that is filled to a
// fraction from 0 to 1. Fractions outside, and NaN, are clamped. The spinner turns on the
// window's frames while it can be seen; with reduced motion it stands still, and bars jump.
//   ProgressView(0.4).barColors(Color::green(), Color::gray().opacity(0.2)).barHeight(8)
class ProgressView : public ViewModifiers<ProgressView> {
 public:
  static constexpr int spinnerElements = 8;
  static constexpr double spinnerSide = 16;

  ProgressView() = default;
  explicit ProgressView(double fraction);
  // A spinner of so many spokes, bounded to 1 to 64, in a square of that side in points; a side
  // that is negative or not finite counts as zero.
  static ProgressView spinner(int elements, double side = spinnerSide);

  // Of a bar, and of what of it is not done yet.
  ProgressView barColors(Color done, Color rest) const;
  // In points; one that is negative or not finite counts as zero.
  ProgressView barHeight(double height) const;
  // Every change of the fraction moves so, also outside of withAnimation.
  ProgressView animated(const Animation& animation) const;

  operator View() const;  // NOLINT(google-explicit-constructor)
  bool operator==(const ProgressView&) const = default;

 private:
  friend class ProgressNode;
  std::optional<double> fraction_;
  int elements_ = spinnerElements;
  double side_ = spinnerSide;
  double barHeight_ = 4;
  Color done_ = Color::accent();
  Color rest_ = Color::primary().opacity(0.15);
  Animation animation_ = Animation::linear(0);
  bool animated_ = false;
};

}  // namespace zq
