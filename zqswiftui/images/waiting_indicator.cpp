// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/images/waiting_indicator.hpp>
#include <zqswiftui/platform/toolkit/progress_view.hpp>

namespace zq {

View waitingIndicator(double scale) {
  const double factor = sanitized(scale);
  const double side = ProgressView::spinnerSide * factor;
  return ProgressView()
      .foregroundColor(Color::gray())
      .scale(factor)
      .frame(side, side)
      .accessibilityLabel("Loading");
}

}  // namespace zq
