// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/controls/zq_plus_minus_buttons.hpp>

namespace zq {

std::string symbolName(std::string_view base, ZQPlusMinusButtonStyle style) {
  std::string name(base);
  if (style == ZQPlusMinusButtonStyle::circle) name += ".circle";
  if (style == ZQPlusMinusButtonStyle::circleFill) name += ".circle.fill";
  return name;
}

}  // namespace zq
