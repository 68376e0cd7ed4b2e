// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// The bar below a sheet: Cancel at the leading end, answering to Escape, and Continue at the
// trailing end, answering to Return. Without onContinue there is no Continue. It takes all
// the width that is offered. Interface thread only.
//   ZQCancelContinueLowerBar({.onCancel = close, .onContinue = next})
class ZQCancelContinueLowerBar : public ViewModifiers<ZQCancelContinueLowerBar> {
 public:
  struct Parameters {
    Required<std::function<void()>> onCancel;
    std::function<void()> onContinue = nullptr;
  };
  explicit ZQCancelContinueLowerBar(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
