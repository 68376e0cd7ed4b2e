// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>

namespace zq {

// Lengths are points; x grows to the right, y downwards. A length that is not finite or is
// negative is taken for nothing wherever something is drawn or measured.

struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  double width = 0;
  double height = 0;
  bool operator==(const Size&) const = default;
};

struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  static Rect of(Point origin, Size size) { return {origin.x, origin.y, size.width, size.height}; }
  Point origin() const { return {x, y}; }
  Size size() const { return {width, height}; }
  double maxX() const { return x + width; }
  double maxY() const { return y + height; }
  double midX() const { return x + width / 2; }
  double midY() const { return y + height / 2; }
  bool empty() const { return !(width > 0 && height > 0); }
  // Left and top edges are inside, right and bottom ones are not.
  bool contains(Point p) const { return p.x >= x && p.x < maxX() && p.y >= y && p.y < maxY(); }
  bool intersects(const Rect& other) const {
    return x < other.maxX() && other.x < maxX() && y < other.maxY() && other.y < maxY();
  }
  Rect offsetBy(Point d) const { return {x + d.x, y + d.y, width, height}; }
  Rect insetBy(double d) const { return {x + d, y + d, width - 2 * d, height - 2 * d}; }
  bool operator==(const Rect&) const = default;
};

// Here and not of the standard library, whose header takes longer to read than this one.
constexpr double larger(double a, double b) {
  return a < b ? b : a;
}
constexpr double smaller(double a, double b) {
  return b < a ? b : a;
}

// The common part; empty (all zero) where there is none.
inline Rect intersection(const Rect& a, const Rect& b) {
  const double x = larger(a.x, b.x), y = larger(a.y, b.y);
  const double right = smaller(a.maxX(), b.maxX()), bottom = smaller(a.maxY(), b.maxY());
  if (!(right > x && bottom > y)) return {};
  return {x, y, right - x, bottom - y};
}

// The smallest rectangle around both; an empty one adds nothing.
inline Rect unite(const Rect& a, const Rect& b) {
  if (a.empty()) return b;
  if (b.empty()) return a;
  const double x = smaller(a.x, b.x), y = smaller(a.y, b.y);
  return {x, y, larger(a.maxX(), b.maxX()) - x, larger(a.maxY(), b.maxY()) - y};
}

struct EdgeInsets {
  double top = 0;
  double leading = 0;
  double bottom = 0;
  double trailing = 0;
  static EdgeInsets all(double d) { return {d, d, d, d}; }
  static EdgeInsets symmetric(double horizontal, double vertical) {
    return {vertical, horizontal, vertical, horizontal};
  }
  bool operator==(const EdgeInsets&) const = default;
};

// What a parent offers a child: a width or height that is not given asks for the ideal one,
// zero for the least, infinity for the most.
struct ProposedSize {
  std::optional<double> width;
  std::optional<double> height;

  static ProposedSize unspecified() { return {}; }
  static ProposedSize exactly(Size size) { return {size.width, size.height}; }
  // The offer where it is given, otherwise the fallback.
  Size replacingUnspecified(Size fallback) const {
    return {width.value_or(fallback.width), height.value_or(fallback.height)};
  }
  bool operator==(const ProposedSize&) const = default;
};

enum class HorizontalAlignment { leading, center, trailing };
enum class VerticalAlignment { top, center, bottom };

struct Alignment {
  HorizontalAlignment horizontal = HorizontalAlignment::center;
  VerticalAlignment vertical = VerticalAlignment::center;

  static constexpr Alignment center() { return {}; }
  static constexpr Alignment leading() {
    return {HorizontalAlignment::leading, VerticalAlignment::center};
  }
  static constexpr Alignment trailing() {
    return {HorizontalAlignment::trailing, VerticalAlignment::center};
  }
  static constexpr Alignment top() { return {HorizontalAlignment::center, VerticalAlignment::top}; }
  static constexpr Alignment bottom() {
    return {HorizontalAlignment::center, VerticalAlignment::bottom};
  }
  static constexpr Alignment topLeading() {
    return {HorizontalAlignment::leading, VerticalAlignment::top};
  }
  static constexpr Alignment topTrailing() {
    return {HorizontalAlignment::trailing, VerticalAlignment::top};
  }
  static constexpr Alignment bottomLeading() {
    return {HorizontalAlignment::leading, VerticalAlignment::bottom};
  }
  static constexpr Alignment bottomTrailing() {
    return {HorizontalAlignment::trailing, VerticalAlignment::bottom};
  }
  bool operator==(const Alignment&) const = default;
};

// How much of the free length lies before the child: 0, a half, or all of it.
inline double fraction(HorizontalAlignment a) {
  return 0.5 * static_cast<double>(a);
}
inline double fraction(VerticalAlignment a) {
  return 0.5 * static_cast<double>(a);
}

// A place inside a rectangle as fractions of its sides, (0, 0) top leading.
struct UnitPoint {
  double x = 0.5;
  double y = 0.5;
  static constexpr UnitPoint topLeading() { return {0, 0}; }
  static constexpr UnitPoint top() { return {0.5, 0}; }
  static constexpr UnitPoint topTrailing() { return {1, 0}; }
  static constexpr UnitPoint leading() { return {0, 0.5}; }
  static constexpr UnitPoint center() { return {0.5, 0.5}; }
  static constexpr UnitPoint trailing() { return {1, 0.5}; }
  static constexpr UnitPoint bottomLeading() { return {0, 1}; }
  static constexpr UnitPoint bottom() { return {0.5, 1}; }
  static constexpr UnitPoint bottomTrailing() { return {1, 1}; }
  bool operator==(const UnitPoint&) const = default;
};

enum class Axis { horizontal, vertical };

// Lengths that come from a caller: NaN and negatives count as zero.
inline double sanitized(double length) {
  return length > 0 ? length : 0.0;
}

}  // namespace zq
