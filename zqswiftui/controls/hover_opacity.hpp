// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>

namespace zq {

// Opacities of a symbol in the button family.
inline constexpr double kRestingOpacity = 0.75;
inline constexpr double kHoverOpacity = 1.0;

// The family's answer to the pointer, for View::onHover: it brightens at once and fades back
// slowly, so that a pointer crossing a row of buttons leaves a trail and never meets a dull one.
std::function<void(bool)> brightenUnderPointer(State<double> opacity,
                                               double resting = kRestingOpacity,
                                               double hover = kHoverOpacity);

}  // namespace zq
