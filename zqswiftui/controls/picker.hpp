// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <string>
#include <vector>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// One of several texts. The chosen one is shown; a click, Space or Enter opens the list of all in a
// bubble, and Up and Down go through them without it. An index beyond the choices shows nothing.
// Interface thread only.
//   Picker({.label = "Type", .choices = {"number", "text"}, .selection = type.binding()})
class Picker : public ViewModifiers<Picker> {
 public:
  struct Parameters {
    Required<std::string> label;  // what it chooses; spoken, not shown
    std::vector<std::string> choices = {};
    Required<Binding<std::size_t>> selection;  // an index
  };
  explicit Picker(Parameters parameters);

  View body(Context& context) const;

 private:
  View list(const Binding<bool>& isOpen) const;
  Parameters parameters_;
};

}  // namespace zq
