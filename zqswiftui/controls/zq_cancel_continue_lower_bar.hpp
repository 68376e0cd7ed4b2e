// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/controls/icon_buttons.hpp>

namespace zq {

struct ZQCancelContinueLowerBarParameters {
  Required<Action> onCancel;
  Action onContinue = nullptr;  // none: only the cancel button shows
};
// The bar at the bottom of a panel: Cancel at the leading end, which answers to Escape, and OK
// at the trailing end, which answers to Return and goes on.
//   ZQCancelContinueLowerBar({.onCancel = close, .onContinue = next})
class ZQCancelContinueLowerBar : public ViewModifiers<ZQCancelContinueLowerBar> {
 public:
  using Parameters = ZQCancelContinueLowerBarParameters;
  explicit ZQCancelContinueLowerBar(Parameters p) : parameters_(std::move(p)) {}
  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
