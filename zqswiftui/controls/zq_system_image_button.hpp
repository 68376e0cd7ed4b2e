// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/controls/symbol_button.hpp>

namespace zq {

// A symbol without a border that is pressed like a button; the root of the icon buttons. It
// rests at opacity 0.75; under the pointer it is at 1 at once, and fades back afterwards.
// Without a colour it has the foreground's. An unknown symbol draws nothing, a null action
// does nothing. Interface thread only.
//   ZQSystemImageButton("gear", {.action = [] { openSettings(); }})
class ZQSystemImageButton : public SymbolButton<ZQSystemImageButton> {
 public:
  // All but the symbol's name.
  struct Options {
    std::optional<Color> color = std::nullopt;
    ZQButton::Size size = ZQButton::Size::normal;
    Required<std::function<void()>> action;
  };
  struct Parameters {
    Required<std::string> systemName;
    std::optional<Color> color = std::nullopt;
    ZQButton::Size size = ZQButton::Size::normal;
    Required<std::function<void()>> action;
  };
  explicit ZQSystemImageButton(const Parameters& p);
  ZQSystemImageButton(std::string systemName, const Options& options);
};

}  // namespace zq
