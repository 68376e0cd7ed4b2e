// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// Work in progress: a turning spinner, or a bar that is filled to a fraction from 0 to 1.
// Fractions outside, and NaN, are clamped. With reduced motion the spinner stands still.
class ProgressView : public ViewModifiers<ProgressView> {
 public:
  ProgressView() = default;
  explicit ProgressView(double fraction);
  operator View() const;  // NOLINT(google-explicit-constructor)
  bool operator==(const ProgressView&) const = default;

 private:
  friend class ProgressNode;
  std::optional<double> fraction_;
};

}  // namespace zq
