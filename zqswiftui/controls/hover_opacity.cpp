// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/controls/hover_opacity.hpp>
#include <zqswiftui/platform/toolkit/animation.hpp>

namespace zq {

std::function<void(bool)> brightenUnderPointer(State<double> opacity, double resting,
                                               double hover) {
  return [opacity, resting, hover](bool inside) {
    if (inside) return opacity.set(hover);
    withAnimation(Animation::standard(), [&] { opacity.set(resting); });
  };
}

}  // namespace zq
