// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/controls/zq_button.hpp>

namespace zq {

struct ZQLargeSquareButtonParameters {
  Required<std::string> systemImage;
  double side = 96;  // points
  std::optional<Color> color = std::nullopt;
  Required<Action> action;
};
// A square tile with a large symbol above its title; its ground rests at opacity 0.1 and shows
// 0.3 under the pointer.
//   ZQLargeSquareButton("New project", {.systemImage = "plus", .action = f})
class ZQLargeSquareButton : public ViewModifiers<ZQLargeSquareButton> {
 public:
  using Parameters = ZQLargeSquareButtonParameters;
  ZQLargeSquareButton(std::string title, Parameters p)
      : title_(std::move(title)), parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  std::string title_;
  Parameters parameters_;
};

struct ZQLargeSquareSelectableButtonParameters {
  Required<std::string> systemImage;
  Required<Binding<bool>> isSelected;
  double side = 96;               // points
  Color color = Color::accent();  // of the frame and the symbol while it is selected
  std::function<void(bool)> callback = nullptr;
};
// The same as a switch: framed while it is selected.
class ZQLargeSquareSelectableButton : public ViewModifiers<ZQLargeSquareSelectableButton> {
 public:
  using Parameters = ZQLargeSquareSelectableButtonParameters;
  ZQLargeSquareSelectableButton(std::string title, Parameters p)
      : title_(std::move(title)), parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  std::string title_;
  Parameters parameters_;
};

}  // namespace zq
