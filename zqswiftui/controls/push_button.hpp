// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <concepts>
#include <string>
#include <utility>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// The plain button of forms and dialogs: a title on a quiet ground, as wide as it needs and 28
// points high, more with larger texts. One that is prominent, the answer that is expected, has the
// accent colour. A null action does nothing. Interface thread only.
//   PushButton("Later", close)
//   PushButton("Save", {.action = save, .prominent = true}).keyboardShortcut(Key::enter)
class PushButton : public ViewModifiers<PushButton> {
 public:
  struct Parameters {
    std::string symbol = {};  // before the title
    Required<std::function<void()>> action;
    bool prominent = false;
  };
  PushButton(std::string title, Parameters parameters);
  template <std::invocable Action>
  PushButton(std::string title, Action action)
      : PushButton(std::move(title),
                   Parameters{.action = std::function<void()>(std::move(action))}) {}

  View body(Context& context) const;

 private:
  std::string title_;
  Parameters parameters_;
};

}  // namespace zq
