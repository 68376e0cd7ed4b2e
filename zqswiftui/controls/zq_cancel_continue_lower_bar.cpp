// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/controls/zq_cancel_continue_lower_bar.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {

View ZQCancelContinueLowerBar::body(Context&) const {
  std::vector<View> row{
      ZQCancelButton("Cancel", {.action = *parameters_.onCancel}).keyboardShortcut(Key::escape),
      Spacer()};
  if (parameters_.onContinue) {
    row.emplace_back(
        ZQOkButton("OK", {.action = parameters_.onContinue}).keyboardShortcut(Key::enter));
  }
  return HStack(row).padding(EdgeInsets::symmetric(16, 10));
}

}  // namespace zq
