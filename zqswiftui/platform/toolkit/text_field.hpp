// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// One line of text that the user edits; each edit is written to the binding at once. The host
// lends its native editor, with input methods, selection and clipboard. Takes the width that
// is offered.
//   TextField("Name", name).onSubmit([] { save(); })
class TextField : public ViewModifiers<TextField> {
 public:
  TextField(std::string placeholder, Binding<std::string> text);
  TextField onSubmit(std::function<void()> action) const;  // Return was pressed
  // The focus has gone elsewhere, to another window too.
  TextField onEditingEnded(std::function<void()> action) const;
  operator View() const;  // NOLINT(google-explicit-constructor)

 private:
  std::string placeholder_;
  Binding<std::string> text_;
  std::function<void()> submit_;
  std::function<void()> ended_;
};

}  // namespace zq
