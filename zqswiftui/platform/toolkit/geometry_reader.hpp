// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <functional>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// Takes all the room that is offered and makes its content for the size that it got, in
// points, at the top leading corner. The function runs while views are placed: it may read,
// but not write states.
//   GeometryReader([](Size size) { return Text(size.width > 300 ? "wide" : "narrow"); })
class GeometryReader : public ViewModifiers<GeometryReader> {
 public:
  explicit GeometryReader(std::function<View(Size)> content) : content_(std::move(content)) {}
  operator View() const;  // NOLINT(google-explicit-constructor)

 private:
  std::function<View(Size)> content_;
};

}  // namespace zq
