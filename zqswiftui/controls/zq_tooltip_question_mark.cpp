// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/zq_system_image_button.hpp>
#include <zqswiftui/controls/zq_tooltip_question_mark.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kWidestPopover = 320;  // a line that is still read with ease

}  // namespace

ZQTooltipQuestionMark::ZQTooltipQuestionMark(Parameters parameters)
    : parameters_(std::move(parameters)) {}

View ZQTooltipQuestionMark::body(Context& context) const {
  const auto showPop = context.state(false);
  const View bubble =
      Text(parameters_.text)
          .flexFrame({.maxWidth = kWidestPopover, .alignment = Alignment::leading()})
          .padding(10);
  return ZQSystemImageButton(
             "questionmark.circle",
             {.color = parameters_.color, .action = [showPop] { showPop.set(!*showPop); }})
      .accessibilityLabel("Help")
      .help(parameters_.text)
      .popover(showPop.binding(), bubble);
}

}  // namespace zq
