// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A square of 96 points with a large symbol over a title, for the few choices of a start page.
// Its background is at opacity 0.1 without a colour and 0.5 with one, and at 0.3 and 0.75 under
// the pointer; on a colour, symbol and title are black or white, whichever stands out more. A null
// action does nothing. Interface thread only.
//   ZQLargeSquareButton("New project", {.systemImage = "plus", .action = create})
class ZQLargeSquareButton : public ViewModifiers<ZQLargeSquareButton> {
 public:
  struct Parameters {
    Required<std::string> systemImage;
    std::optional<Color> backgroundColor = std::nullopt;
    Required<std::function<void()>> action;
  };
  ZQLargeSquareButton(std::string title, Parameters parameters);

  View body(Context& context) const;

 private:
  std::string title_;
  Parameters parameters_;
};

// The same as one of several to choose from: the selected one has a border in the accent
// colour. The host keeps the selection and changes it in the action.
//   ZQLargeSquareSelectableButton("Dark", {.systemImage = "moon", .isSelected = dark,
//                                          .action = [=] { choose(dark); }})
class ZQLargeSquareSelectableButton : public ViewModifiers<ZQLargeSquareSelectableButton> {
 public:
  struct Parameters {
    Required<std::string> systemImage;
    Required<bool> isSelected;
    std::optional<Color> backgroundColor = std::nullopt;
    Required<std::function<void()>> action;
  };
  ZQLargeSquareSelectableButton(std::string title, Parameters parameters);

  View body(Context& context) const;

 private:
  std::string title_;
  Parameters parameters_;
};

}  // namespace zq
