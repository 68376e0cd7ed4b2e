// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// A label that calls its action when it is clicked, or pressed by Space, Enter or a screen
// reader. Plain: no border, a little dimmer while it is held down. A null action does nothing.
//   Button([] { save(); }, Text("Save"))
class Button : public ViewModifiers<Button> {
 public:
  Button(std::function<void()> action, View label)
      : action_(std::move(action)), label_(std::move(label)) {}
  operator View() const;  // NOLINT(google-explicit-constructor)

 private:
  std::function<void()> action_;
  View label_;
};

}  // namespace zq
