// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// What a number may be. Bounds that are not in order, or no numbers, are none.
struct NumberRange {
  double least = -kInfinity;
  double most = kInfinity;
  double step = 1;   // of an arrow, with Shift ten of them; not above zero: 1
  int decimals = 6;  // that are kept, 0 to 15: a step never leaves 0.30000000000000004
  bool operator==(const NumberRange&) const = default;

  double clamped(double value) const;  // zero where it is no number
  double stepped(double value, double steps) const;
};

// Two arrows that step a number down and up; held, they go on. Up and Down do the same, Home and
// End go to the bounds. Interface thread only.
//   Stepper({.label = "Copies", .value = copies.binding(), .range = {.least = 1, .decimals = 0}})
class Stepper : public ViewModifiers<Stepper> {
 public:
  struct Parameters {
    Required<std::string> label;  // what it is; spoken, not shown
    Required<Binding<double>> value;
    NumberRange range = {};
  };
  explicit Stepper(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

// A number that is typed or stepped. What is typed is written at once where it reads as a number
// within the bounds; at the end, by Return or by leaving the field, one beyond them becomes the
// nearest bound, and what is no number goes. Interface thread only.
//   NumberField({.label = "Width", .value = width.binding(), .range = {.least = 0}})
class NumberField : public ViewModifiers<NumberField> {
 public:
  using Parameters = Stepper::Parameters;
  explicit NumberField(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
