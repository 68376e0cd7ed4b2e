// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <vector>
#include <zqswiftui/platform/toolkit/geometry.hpp>

namespace zq {

// An outline of lines and cubic curves, in points of the view that draws it. Values that are
// not finite are left out.
class Path {
 public:
  enum class Verb : unsigned char { move, line, cubic, close };
  // move and line use p3 alone; cubic runs from the current point over p1 and p2 to p3.
  struct Element {
    Verb verb = Verb::move;
    Point p1;
    Point p2;
    Point p3;
    bool operator==(const Element&) const = default;
  };

  Path& moveTo(Point p);
  Path& lineTo(Point p);
  Path& curveTo(Point control1, Point control2, Point end);
  Path& close();
  Path& addRect(const Rect& rect);
  Path& addEllipse(const Rect& rect);
  // Corners of the radius, shortened to half the shorter side; continuous corners blend into
  // the sides more slowly than circular ones.
  Path& addRoundedRect(const Rect& rect, double radius, bool continuous = false);
  // An arc of a circle; angles in radians, clockwise from the positive x axis. Begins with a
  // line from the current point, or a move where there is none.
  Path& addArc(Point center, double radius, double startAngle, double endAngle);
  Path& append(const Path& other);

  Path transformed(double scaleX, double scaleY, Point offset) const;
  Rect bounds() const;  // of the control points
  bool isRect() const;  // what addRect makes, and no more
  bool empty() const;
  const std::vector<Element>& elements() const { return elements_; }
  bool operator==(const Path&) const = default;

 private:
  std::vector<Element> elements_;
};

struct StrokeStyle {
  double lineWidth = 1;
  bool roundCap = false;
  bool roundJoin = false;
  std::vector<double> dash = {};  // lengths of line and gap in turn; empty for a whole line
  double dashPhase = 0;
  bool operator==(const StrokeStyle&) const = default;
};

}  // namespace zq
