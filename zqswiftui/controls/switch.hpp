// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A label and a track with a knob that is on or off; a click anywhere on them, or Space or Enter,
// changes it. An empty label leaves the track alone; say then what it is by accessibilityLabel.
// Interface thread only.
//   Switch("Follow edits", follows.binding())
class Switch : public ViewModifiers<Switch> {
 public:
  Switch(std::string label, Binding<bool> isOn);

  View body(Context& context) const;

 private:
  std::string label_;
  Binding<bool> isOn_;
};

}  // namespace zq
