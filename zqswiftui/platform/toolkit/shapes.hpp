// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/toolkit/path.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// An outline that fills all the room that it is offered. Without fill or stroke it is filled
// with the foreground colour.
//   Capsule().fill(Color::teal())      RoundedRectangle(8).stroke(Color::gray(), {.lineWidth = 2})
class ShapeView : public ViewModifiers<ShapeView> {
 public:
  enum class Kind : unsigned char { rectangle, roundedRectangle, capsule, circle, path };

  ShapeView fill(Color color) const;
  ShapeView fill(LinearGradient gradient) const;
  // The line lies inside the shape's edge.
  ShapeView stroke(Color color, StrokeStyle style = {}) const;
  operator View() const;  // NOLINT(google-explicit-constructor)

  // The outline in that rectangle.
  Path outline(const Rect& rect) const;
  bool operator==(const ShapeView& other) const;

 protected:
  explicit ShapeView(Kind kind) : kind_(kind) {}

 private:
  friend class ShapeNode;
  friend class RoundedRectangle;
  friend class Capsule;
  friend class PathShape;
  Kind kind_;
  bool continuous_ = false;
  double radius_ = 0;
  Shared<const Path> path_;
  bool filled_ = false;
  bool stroked_ = false;
  Paint fill_;
  Paint stroke_;
  StrokeStyle style_;
};

class Rectangle : public ShapeView {
 public:
  Rectangle() : ShapeView(Kind::rectangle) {}
};

enum class CornerStyle : unsigned char { circular, continuous };

class RoundedRectangle : public ShapeView {
 public:
  explicit RoundedRectangle(double radius, CornerStyle style = CornerStyle::continuous)
      : ShapeView(Kind::roundedRectangle) {
    radius_ = sanitized(radius);
    continuous_ = style == CornerStyle::continuous;
  }
};

class Capsule : public ShapeView {
 public:
  explicit Capsule(CornerStyle style = CornerStyle::continuous) : ShapeView(Kind::capsule) {
    continuous_ = style == CornerStyle::continuous;
  }
};

// The largest circle that fits, in the middle.
class Circle : public ShapeView {
 public:
  Circle() : ShapeView(Kind::circle) {}
};

// Any outline, in points from the top left; not scaled.
class PathShape : public ShapeView {
 public:
  explicit PathShape(Path path);
};

}  // namespace zq
