// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/geometry.hpp>

namespace zq {

enum class Role : unsigned char {
  none,
  group,
  text,
  button,
  toggle,
  textField,
  image,
  progress,
  scrollArea,
  list,
  listItem,
  slider,
  window
};

// A number that an element stands for, as a slider does, or a bar of progress. It lies between
// the two ends; what is not finite is not set.
struct AccessibleNumber {
  double value = 0;
  double least = 0;
  double most = 1;
  double step = 0;  // what one key changes; 0: a tenth of the way
  bool operator==(const AccessibleNumber&) const = default;
};

// What is done when assistive technology sets the number. It is made anew with each view, so any
// two are equal that do something.
struct NumberSetter : std::function<void(double)> {
  using std::function<void(double)>::function;
  bool operator==(const NumberSetter& other) const { return !*this == !other; }
};

// What a component says of itself to assistive technology; whatever is left out is derived
// from the texts and buttons inside.
struct Accessibility {
  Role role = Role::none;  // none: that of what is inside
  std::optional<std::string> label = std::nullopt;
  std::optional<std::string> value = std::nullopt;
  std::optional<std::string> description = std::nullopt;
  std::optional<bool> checked = std::nullopt;
  std::optional<bool> selected = std::nullopt;  // one of several that can be
  std::optional<AccessibleNumber> number = std::nullopt;
  NumberSetter setNumber = {};  // with the number; none: it can only be read
  bool hidden = false;          // this view and what is in it
  bool operator==(const Accessibility&) const = default;
};

// One element of the tree that a screen reader sees. Ids live as long as the view does and are
// never used again. Bounds in points of the window.
struct AccessibilityNode {
  std::uint64_t id = 0;
  Role role = Role::group;
  std::string name;
  std::string value;
  std::string description;
  Rect bounds;
  bool enabled = true;
  bool focusable = false;
  bool focused = false;
  bool pressable = false;  // the action "press" (a toggle's "toggle")
  std::optional<bool> checked;
  std::optional<bool> selected;
  std::optional<AccessibleNumber> number;
  bool adjustable = false;  // its number can be set
  std::vector<AccessibilityNode> children;
  bool operator==(const AccessibilityNode&) const = default;
};

}  // namespace zq
