// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// Two views side by side, and between them a line that is dragged, or moved by Left and Right, with
// Shift ten times as far. Takes the room that is offered. Where that is less than both need, the
// leading view keeps its least width. Interface thread only.
//   SplitView({.leading = sidebar, .trailing = page, .leadingWidth = width.binding()})
class SplitView : public ViewModifiers<SplitView> {
 public:
  struct Parameters {
    Required<View> leading;
    Required<View> trailing;
    Required<Binding<double>> leadingWidth;  // in points; what is shown lies within the bounds
    double leastLeading = 120;
    double leastTrailing = 160;
    std::string label = "Width of the sidebar";  // of the line; spoken
  };
  explicit SplitView(Parameters parameters);

  View body(Context& context) const;

  // How wide the leading view is of all that there is.
  double widthOf(double wished, double all) const;

 private:
  View grip(double all, bool leftToRight, const State<std::optional<double>>& start) const;
  Parameters parameters_;
};

}  // namespace zq
