// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/font.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A title on a capsule that brightens under the pointer; a click anywhere on it, or Space or
// Enter, calls the action. A symbol or a picture may stand before the title (the symbol, where
// both are given). Without a width, in points, it is as wide as its content; the height is
// 20, 18 or 30 by size. A null action does nothing. Interface thread only.
//   ZQButton("Save", {.icon = "gear", .size = ZQButton::Size::normal, .action = save})
class ZQButton : public ViewModifiers<ZQButton> {
 public:
  // The scale of the whole family: body, caption, and the larger title2.
  enum class Size : unsigned char { normal, small, mini };

  struct Parameters {
    std::optional<std::string> icon = std::nullopt;   // name of a symbol
    std::optional<std::string> image = std::nullopt;  // name of a picture of the application
    std::optional<double> width = std::nullopt;
    Required<Size> size;
    std::optional<Color> backgroundColor = std::nullopt;
    std::optional<LinearGradient> backgroundGradient = std::nullopt;  // goes before the colour
    Required<std::function<void()>> action;
  };
  ZQButton(std::string title, Parameters parameters);

  View body(Context& context) const;

 private:
  View content() const;
  View background() const;
  bool isColored() const { return parameters_.backgroundColor || parameters_.backgroundGradient; }

  std::string title_;
  Parameters parameters_;
};

// The font of a label or symbol of that size.
Font fontOf(ZQButton::Size size);
// The height of a ZQButton of that size, in points; it grows with larger texts.
double heightOf(ZQButton::Size size);

}  // namespace zq
