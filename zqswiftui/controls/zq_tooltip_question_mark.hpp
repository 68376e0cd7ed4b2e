// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A question mark that reveals a help text: in a popover when it is pressed, and near the
// pointer after it has rested on the mark for a moment. Interface thread only.
//   ZQTooltipQuestionMark("The folder is searched with all that is in it.")
class ZQTooltipQuestionMark : public ViewModifiers<ZQTooltipQuestionMark> {
 public:
  struct Parameters {
    std::optional<Color> color = std::nullopt;
    Required<std::string> text;
    bool operator==(const Parameters&) const = default;
  };
  explicit ZQTooltipQuestionMark(Parameters parameters);
  // A template, so that braces always mean the parameters.
  template <std::convertible_to<std::string> Text>
  explicit ZQTooltipQuestionMark(const Text& text) : parameters_{std::nullopt, text} {}

  View body(Context& context) const;
  bool operator==(const ZQTooltipQuestionMark&) const = default;

 private:
  Parameters parameters_;
};

}  // namespace zq
