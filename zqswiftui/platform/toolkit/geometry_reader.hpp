// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// Takes all the room that is offered and makes its content for the size that it got, in
// points, at the top leading corner. The function runs while views are placed: it may read,
// but not write states.
//   GeometryReader([](Size size) { return Text(size.width > 300 ? "wide" : "narrow"); })
// Content that is large and regular is told which part of it to make: what can be seen and half
// as much around it, in its own points from the leading edge, which may reach beyond its size. It
// runs again when more comes into sight, as by scrolling; while nothing is seen the part is empty.
//   GeometryReader([](Size size, const Rect& part) { return gridLines(size, part); })
class GeometryReader : public ViewModifiers<GeometryReader> {
 public:
  using ContentOfPart = std::function<View(Size, const Rect& part)>;
  explicit GeometryReader(std::function<View(Size)> content) : content_(std::move(content)) {}
  explicit GeometryReader(ContentOfPart content) : contentOfPart_(std::move(content)) {}
  explicit GeometryReader(std::nullptr_t) {}  // shows nothing
  operator View() const;                      // NOLINT(google-explicit-constructor)

 private:
  std::function<View(Size)> content_;
  ContentOfPart contentOfPart_;
};

}  // namespace zq
