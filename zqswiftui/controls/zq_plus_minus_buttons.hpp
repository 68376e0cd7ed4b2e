// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string_view>
#include <zqswiftui/controls/symbol_button.hpp>

namespace zq {

// Whether a plus or minus stands alone, in a circle, or cut out of a filled one.
enum class ZQPlusMinusButtonStyle : unsigned char { flat, circle, circleFill };

// The symbol of that style, "plus" giving plus, plus.circle and plus.circle.fill.
std::string symbolName(std::string_view base, ZQPlusMinusButtonStyle style);

// Adds something. A label stands at the right of the symbol, and a click on it counts.
//   ZQPlusButton({.style = ZQPlusMinusButtonStyle::circle, .action = add})
class ZQPlusButton : public SymbolButton<ZQPlusButton> {
 public:
  struct Parameters {
    std::optional<std::string> label = std::nullopt;
    Required<ZQPlusMinusButtonStyle> style;
    std::optional<Color> color = std::nullopt;
    Required<std::function<void()>> action;
  };
  explicit ZQPlusButton(const Parameters& p);
};

// Removes something.
class ZQMinusButton : public SymbolButton<ZQMinusButton> {
 public:
  struct Parameters {
    Required<ZQPlusMinusButtonStyle> style;
    std::optional<Color> color = std::nullopt;
    Required<std::function<void()>> action;
  };
  explicit ZQMinusButton(const Parameters& p);
};

}  // namespace zq
