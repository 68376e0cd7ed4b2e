// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/zq_plus_minus_buttons.hpp>

namespace zq {

ZQPlusButton::ZQPlusButton(const Parameters& p)
    : SymbolButton({.systemName = symbolName("plus", p.style),
                    .label = p.label,
                    .color = p.color,
                    .action = p.action,
                    .accessibleName = "Add"}) {}

ZQMinusButton::ZQMinusButton(const Parameters& p)
    : SymbolButton({.systemName = symbolName("minus", p.style),
                    .color = p.color,
                    .action = p.action,
                    .accessibleName = "Remove"}) {}

std::string symbolName(std::string_view base, ZQPlusMinusButtonStyle style) {
  std::string name(base);
  if (style == ZQPlusMinusButtonStyle::circle) name += ".circle";
  if (style == ZQPlusMinusButtonStyle::circleFill) name += ".circle.fill";
  return name;
}

}  // namespace zq
