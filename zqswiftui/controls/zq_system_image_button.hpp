// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/controls/zq_button.hpp>

namespace zq {

struct ZQSystemImageButtonParameters {
  std::optional<Color> color = std::nullopt;  // none: the foreground colour
  ZQButton::Size size = ZQButton::Size::normal;
  Required<Action> action;
};

// A symbol without border that brightens under the pointer: from 0.75 to 1 at once, back in
// an animation. Read out by `name`, or by the symbol's own name.
//   ZQSystemImageButton("gear", {.size = ZQButton::Size::mini, .action = openSettings})
class ZQSystemImageButton : public ViewModifiers<ZQSystemImageButton> {
 public:
  using Parameters = ZQSystemImageButtonParameters;
  ZQSystemImageButton(std::string systemName, Parameters parameters)
      : systemName_(std::move(systemName)), parameters_(std::move(parameters)) {}
  View body(Context& context) const;

  // The text that stands right of the symbol and belongs to the button.
  ZQSystemImageButton label(std::optional<std::string> text) const;
  // What a screen reader says.
  ZQSystemImageButton name(std::string text) const;

 private:
  std::string systemName_;
  Parameters parameters_;
  std::optional<std::string> label_;
  std::string name_;
};

}  // namespace zq
