// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/icon_buttons.hpp>
#include <zqswiftui/controls/zq_cancel_continue_lower_bar.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {

ZQCancelContinueLowerBar::ZQCancelContinueLowerBar(Parameters parameters)
    : parameters_(std::move(parameters)) {}

View ZQCancelContinueLowerBar::body(Context& /*context*/) const {
  constexpr auto kSize = ZQButton::Size::normal;
  std::vector<View> bar{ZQCancelButton("Cancel", {.size = kSize, .action = parameters_.onCancel})
                            .keyboardShortcut(Key::escape),
                        Spacer()};
  if (parameters_.onContinue) {
    bar.push_back(ZQContinueButton("Continue", {.size = kSize, .action = parameters_.onContinue})
                      .keyboardShortcut(Key::enter));
  }
  return HStack(std::move(bar)).padding(10);
}

}  // namespace zq
