// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

class ZQNotificableValue;

// The last number that was posted under the keyword, from 0 to 1, as a ZQProgressBarView that moves
// there; 0 until the first. A ZQNotificableValue of its own follows it from the construction on,
// and stays with the view's place. Interface thread only, but for the posts.
//   ZQNotificablePercentageView({.key = "export"})
//   ZQNotify::notify("export", 0.25);   // anywhere
class ZQNotificablePercentageView : public ViewModifiers<ZQNotificablePercentageView> {
 public:
  struct Parameters {
    Required<std::string> key;
    Color foregroundColor = Color::accent();
    Color backgroundColor = Color::primary().opacity(0.15);
    bool showPercentage = true;
    bool operator==(const Parameters&) const = default;
  };
  explicit ZQNotificablePercentageView(Parameters parameters);

  View body(Context& context) const;
  // Of the same parameters.
  bool operator==(const ZQNotificablePercentageView& other) const {
    return parameters_ == other.parameters_;
  }

 private:
  Parameters parameters_;
  Shared<ZQNotificableValue> notificableValue_;
};

}  // namespace zq
