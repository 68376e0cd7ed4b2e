// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <initializer_list>
#include <optional>
#include <span>
#include <vector>
#include <zqswiftui/platform/toolkit/layout.hpp>

namespace zq {

// Children side by side, at their own sizes; those that can stretch or shrink share what is
// left. Spacing that is not given is the preferred one, 8.
//   HStack({.spacing = 4}, {Image::symbol("gear"), Text("Settings")})
struct HStackParameters {
  VerticalAlignment alignment = VerticalAlignment::center;
  std::optional<double> spacing = std::nullopt;
};
class HStack : public ViewModifiers<HStack> {
 public:
  using Parameters = HStackParameters;
  explicit HStack(std::vector<View> children);
  HStack(Parameters parameters, std::vector<View> children);
  operator View() const;  // NOLINT(google-explicit-constructor)

 private:
  Parameters parameters_;
  std::vector<View> children_;
};

// Children one below the other.
struct VStackParameters {
  HorizontalAlignment alignment = HorizontalAlignment::center;
  std::optional<double> spacing = std::nullopt;
};
class VStack : public ViewModifiers<VStack> {
 public:
  using Parameters = VStackParameters;
  explicit VStack(std::vector<View> children);
  VStack(Parameters parameters, std::vector<View> children);
  operator View() const;  // NOLINT(google-explicit-constructor)

 private:
  Parameters parameters_;
  std::vector<View> children_;
};

// Children one on the other, the last in front; as large as the largest.
class ZStack : public ViewModifiers<ZStack> {
 public:
  explicit ZStack(std::vector<View> children, Alignment alignment = Alignment::center());
  operator View() const;  // NOLINT(google-explicit-constructor)

 private:
  Alignment alignment_;
  std::vector<View> children_;
};

// Room that takes whatever is left along the axis of its stack, at least minLength.
class Spacer : public ViewModifiers<Spacer> {
 public:
  explicit Spacer(double minLength = 0) : minLength_(sanitized(minLength)) {}
  operator View() const;  // NOLINT(google-explicit-constructor)

 private:
  double minLength_;
};

// Nothing: takes no room and no spacing.
class EmptyView : public ViewModifiers<EmptyView> {
 public:
  operator View() const { return {}; }  // NOLINT(google-explicit-constructor)
};

// How far a child can go along the axis of a stack.
struct StackItem {
  double least = 0;
  double most = 0;
  double priority = 0;
};

// The lengths that a stack offers its children, one after the other: the least flexible first,
// each an equal share of what is left, or its most where there is room for the most of all that
// are left; higher priorities before lower ones. `take` is told a child's index and offer, and
// answers the length that the child takes.
std::vector<double> shareLength(double available, std::span<const StackItem> items,
                                const std::function<double(std::size_t, double)>& take);

}  // namespace zq
