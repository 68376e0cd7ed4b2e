// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/zq_labeled_spinner.hpp>
#include <zqswiftui/platform/toolkit/progress_view.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {

ZQLabeledSpinner::ZQLabeledSpinner(Parameters parameters) : parameters_(std::move(parameters)) {}

View ZQLabeledSpinner::body(Context&) const {
  const std::string& label = parameters_.label;
  View all = ProgressView::spinner(parameters_.n, parameters_.side);
  if (!label.empty()) {
    all = VStack({.spacing = 8}, {all, Text(label).multilineTextAlignment(TextAlignment::center)});
  }
  if (parameters_.width) all = all.frame({.width = parameters_.width});
  return all.foregroundColor(parameters_.color)
      .accessibility({.role = Role::progress,
                      .label = label.empty() ? std::string("Loading") : label,
                      .value = "busy"});
}

}  // namespace zq
