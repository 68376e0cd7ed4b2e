// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// How far work of known length has come: a bar as wide as the room that is offered, and the
// percentage behind it where that is asked for, in a column of its own width so that the bar keeps
// its length. The percentage goes from 0 to 1; what is outside is clamped, NaN counts as 0. The
// text is never ahead: 100 % stands there when all is done. A height is in points; one that is
// negative or not finite counts as zero. With the animation the bar moves to each new value on the
// window's frames, and jumps with reduced motion; the text is always that of the value.
// To a screen reader it is progress whose value changes at each tenth that is complete, so that it
// speaks now and then and not at every tick.
//   ZQProgressBarView({.percentage = 0.42, .showPercentage = true})
class ZQProgressBarView : public ViewModifiers<ZQProgressBarView> {
 public:
  static constexpr double usualHeight = 6;

  struct Parameters {
    Color foregroundColor = Color::accent();
    Color backgroundColor = Color::primary().opacity(0.15);
    Required<double> percentage;
    bool showPercentage = false;
    bool add1Digit = false;  // "42.5 %" for "42 %"
    std::optional<double> height = std::nullopt;
    bool animation = true;
    bool operator==(const Parameters&) const = default;
  };
  explicit ZQProgressBarView(const Parameters& parameters);

  View body(Context& context) const;
  bool operator==(const ZQProgressBarView&) const = default;

 private:
  Parameters parameters_;
};

}  // namespace zq
