// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <zqswiftui/platform/toolkit/path.hpp>

namespace zq {
namespace {

// Control length of a quarter circle of radius 1 drawn as a cubic: 4/3 (sqrt(2) - 1).
constexpr double kQuarter = 0.5522847498307936;

// Of continuous corners: how much longer the bend is, and how near its controls come.
constexpr double kEarlier = 0.28;
constexpr double kPull = 0.30;

bool finite(Point p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

}  // namespace

bool Path::empty() const {
  return elements_.empty();
}

Path& Path::moveTo(Point p) {
  if (finite(p)) elements_.push_back({Verb::move, {}, {}, p});
  return *this;
}

Path& Path::lineTo(Point p) {
  if (elements_.empty()) return moveTo(p);
  if (finite(p)) elements_.push_back({Verb::line, {}, {}, p});
  return *this;
}

Path& Path::curveTo(Point control1, Point control2, Point end) {
  if (!finite(control1) || !finite(control2) || !finite(end)) return *this;
  if (elements_.empty()) moveTo(control1);
  elements_.push_back({Verb::cubic, control1, control2, end});
  return *this;
}

Path& Path::close() {
  if (!elements_.empty()) elements_.push_back({Verb::close, {}, {}, {}});
  return *this;
}

Path& Path::addRect(const Rect& r) {
  return moveTo({r.x, r.y})
      .lineTo({r.maxX(), r.y})
      .lineTo({r.maxX(), r.maxY()})
      .lineTo({r.x, r.maxY()})
      .close();
}

Path& Path::addEllipse(const Rect& r) {
  const double cx = r.midX(), cy = r.midY();
  const double kx = r.width / 2 * kQuarter, ky = r.height / 2 * kQuarter;
  moveTo({r.maxX(), cy});
  curveTo({r.maxX(), cy + ky}, {cx + kx, r.maxY()}, {cx, r.maxY()});
  curveTo({cx - kx, r.maxY()}, {r.x, cy + ky}, {r.x, cy});
  curveTo({r.x, cy - ky}, {cx - kx, r.y}, {cx, r.y});
  curveTo({cx + kx, r.y}, {r.maxX(), cy - ky}, {r.maxX(), cy});
  return close();
}

Path& Path::addRoundedRect(const Rect& r, double radius, bool continuous) {
  const double half = std::min(r.width, r.height) / 2;
  const double want = std::clamp(sanitized(radius), 0.0, std::max(half, 0.0));
  if (want == 0) return addRect(r);
  // A continuous corner begins its bend earlier and pulls harder towards the corner; where the
  // sides leave no room for that it is a circular one, so that a capsule's ends are round.
  const double smooth = continuous ? std::clamp((half / want - 1) / kEarlier, 0.0, 1.0) : 0.0;
  const double reach = want * (1 + kEarlier * smooth);
  const double pull = reach * ((1 - kQuarter) * (1 - smooth) + kPull * smooth);
  moveTo({r.x + reach, r.y});
  lineTo({r.maxX() - reach, r.y});
  curveTo({r.maxX() - pull, r.y}, {r.maxX(), r.y + pull}, {r.maxX(), r.y + reach});
  lineTo({r.maxX(), r.maxY() - reach});
  curveTo({r.maxX(), r.maxY() - pull}, {r.maxX() - pull, r.maxY()}, {r.maxX() - reach, r.maxY()});
  lineTo({r.x + reach, r.maxY()});
  curveTo({r.x + pull, r.maxY()}, {r.x, r.maxY() - pull}, {r.x, r.maxY() - reach});
  lineTo({r.x, r.y + reach});
  curveTo({r.x, r.y + pull}, {r.x + pull, r.y}, {r.x + reach, r.y});
  return close();
}

Path& Path::addArc(Point c, double radius, double startAngle, double endAngle) {
  if (!finite(c) || !std::isfinite(radius) || !std::isfinite(startAngle) ||
      !std::isfinite(endAngle)) {
    return *this;
  }
  const double sweep =
      std::clamp(endAngle - startAngle, -2 * std::numbers::pi, 2 * std::numbers::pi);
  const int pieces = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / 1.5)));
  const double step = sweep / pieces;
  const double k = 4.0 / 3.0 * std::tan(step / 4) * radius;  // cubic through a circle's arc
  double a = startAngle;
  Point from{c.x + radius * std::cos(a), c.y + radius * std::sin(a)};
  lineTo(from);
  for (int i = 0; i < pieces; ++i) {
    const double b = a + step;
    const Point to{c.x + radius * std::cos(b), c.y + radius * std::sin(b)};
    curveTo({from.x - k * std::sin(a), from.y + k * std::cos(a)},
            {to.x + k * std::sin(b), to.y - k * std::cos(b)}, to);
    a = b;
    from = to;
  }
  return *this;
}

Path& Path::append(const Path& other) {
  elements_.insert(elements_.end(), other.elements_.begin(), other.elements_.end());
  return *this;
}

Path Path::transformed(double scaleX, double scaleY, Point d) const {
  Path result;
  result.elements_.reserve(elements_.size());
  const auto map = [&](Point p) { return Point{p.x * scaleX + d.x, p.y * scaleY + d.y}; };
  for (const Element& e : elements_) {
    result.elements_.push_back({e.verb, map(e.p1), map(e.p2), map(e.p3)});
  }
  return result;
}

bool Path::isRect() const {
  constexpr Verb verbs[] = {Verb::move, Verb::line, Verb::line, Verb::line, Verb::close};
  const auto alike = [](const Element& e, Verb verb) { return e.verb == verb; };
  const auto& e = elements_;
  return std::equal(e.begin(), e.end(), std::begin(verbs), std::end(verbs), alike) &&
         e[0].p3.y == e[1].p3.y && e[1].p3.x == e[2].p3.x && e[2].p3.y == e[3].p3.y &&
         e[3].p3.x == e[0].p3.x;
}

Rect Path::bounds() const {
  constexpr double end = std::numeric_limits<double>::infinity();
  double left = end, top = end, right = -end, bottom = -end;
  const auto add = [&](Point p) {
    left = std::min(left, p.x);
    right = std::max(right, p.x);
    top = std::min(top, p.y);
    bottom = std::max(bottom, p.y);
  };
  for (const Element& e : elements_) {
    if (e.verb == Verb::close) continue;
    add(e.p3);
    if (e.verb != Verb::cubic) continue;
    add(e.p1);
    add(e.p2);
  }
  if (!(left <= right)) return {};
  return {left, top, right - left, bottom - top};
}

}  // namespace zq
