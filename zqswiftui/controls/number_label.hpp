// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/controls/number_field.hpp>

namespace zq {

// The caption of a number that is dragged to either side to change it: a step for every 4 points.
// The field below it is the way for keys and assistive technology. Interface thread only.
//   VStack({NumberLabel("Width", {.value = width.binding()}),
//           NumberField({.label = "Width", .value = width.binding()})})
class NumberLabel : public ViewModifiers<NumberLabel> {
 public:
  struct Parameters {
    Required<Binding<double>> value;
    NumberRange range = {};
  };
  NumberLabel(std::string caption, Parameters parameters);

  View body(Context& context) const;

 private:
  std::string caption_;
  Parameters parameters_;
};

}  // namespace zq
