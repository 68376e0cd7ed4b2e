// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <span>
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/platform/toolkit/symbols/symbol_text.hpp>

namespace zq {
namespace {

using Numbers = std::span<const double>;

constexpr double kDegree = std::numbers::pi / 180;
// A dot is a tiny cross drawn with the common weight: it keeps that weight when scaled, and
// has no inside that a stroker could leave open.
constexpr double kDotRadius = 1.25;

Point polar(Point center, double radius, double degrees) {
  return {center.x + radius * std::cos(degrees * kDegree),
          center.y + radius * std::sin(degrees * kDegree)};
}

Point towards(Point from, Point to, double length) {
  const double whole = std::hypot(to.x - from.x, to.y - from.y);
  const double part = whole > 0 ? length / whole : 0;
  return {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
}

double angleAt(Point corner, Point a, Point b) {
  const double first = std::atan2(a.y - corner.y, a.x - corner.x);
  const double second = std::atan2(b.y - corner.y, b.x - corner.x);
  return std::abs(std::remainder(first - second, 2 * std::numbers::pi));
}

void addPolygon(Path& path, const std::vector<Point>& points, double radius) {
  const std::size_t count = points.size();
  for (std::size_t i = 0; i < count; ++i) {
    const Point corner = points[i];
    const Point before = points[(i + count - 1) % count];
    const Point after = points[(i + 1) % count];
    const double angle = angleAt(corner, before, after);
    // Where the circle of the radius touches the sides; never past their middle.
    const double shorter = std::min(std::hypot(before.x - corner.x, before.y - corner.y),
                                    std::hypot(after.x - corner.x, after.y - corner.y));
    const double reach = std::min(radius / std::tan(angle / 2), shorter / 2);
    const double fitting = reach * std::tan(angle / 2);
    const double handle = 4.0 / 3.0 * std::tan((std::numbers::pi - angle) / 4) * fitting;
    const Point in = towards(corner, before, reach);
    const Point out = towards(corner, after, reach);
    if (i == 0) {
      path.moveTo(in);
    } else {
      path.lineTo(in);
    }
    path.curveTo(towards(in, corner, handle), towards(out, corner, handle), out);
  }
  path.close();
}

void addStar(Path& path, Numbers n) {
  std::vector<Point> points;
  const int tips = static_cast<int>(n[4]);
  points.reserve(2 * static_cast<std::size_t>(tips));
  for (int i = 0; i < 2 * tips; ++i) {
    points.push_back(polar({n[0], n[1]}, i % 2 == 0 ? n[2] : n[3], -90 + 180.0 * i / tips));
  }
  addPolygon(path, points, n[5]);
}

void addGear(Path& path, Numbers n) {
  constexpr double kTip = 0.19, kFoot = 0.30;  // half widths of a tooth, in teeth
  const Point center{n[0], n[1]};
  std::vector<Point> points;
  const int teeth = static_cast<int>(n[4]);
  for (int i = 0; i < teeth; ++i) {
    const double pitch = 360.0 / teeth, middle = -90 + pitch * i;
    points.push_back(polar(center, n[3], middle - kFoot * pitch));
    points.push_back(polar(center, n[2], middle - kTip * pitch));
    points.push_back(polar(center, n[2], middle + kTip * pitch));
    points.push_back(polar(center, n[3], middle + kFoot * pitch));
  }
  addPolygon(path, points, 3);
}

void addRays(Path& path, Numbers n) {
  const int rays = static_cast<int>(n[4]);
  for (int i = 0; i < rays; ++i) {
    const double angle = -90 + 360.0 * i / rays;
    path.moveTo(polar({n[0], n[1]}, n[2], angle)).lineTo(polar({n[0], n[1]}, n[3], angle));
  }
}

void addEllipse(Path& path, double cx, double cy, double rx, double ry) {
  path.addEllipse({cx - rx, cy - ry, 2 * rx, 2 * ry});
}

bool addLines(Path& path, Numbers n, bool begins) {
  if (n.empty() || n.size() % 2 != 0) return false;
  for (std::size_t i = 0; i < n.size(); i += 2) {
    if (begins && i == 0) {
      path.moveTo({n[0], n[1]});
    } else {
      path.lineTo({n[i], n[i + 1]});
    }
  }
  return true;
}

bool addCurves(Path& path, Numbers n) {
  if (n.empty() || n.size() % 6 != 0) return false;
  for (std::size_t i = 0; i < n.size(); i += 6) {
    path.curveTo({n[i], n[i + 1]}, {n[i + 2], n[i + 3]}, {n[i + 4], n[i + 5]});
  }
  return true;
}

bool addCorners(Path& path, Numbers n) {
  if (n.size() < 7 || n.size() % 2 == 0) return false;
  std::vector<Point> points;
  for (std::size_t i = 1; i < n.size(); i += 2) points.push_back({n[i], n[i + 1]});
  addPolygon(path, points, n[0]);
  return true;
}

std::size_t numbersOf(char command) {
  switch (command) {
    case 'A':
    case 'R':
    case 'G':
    case 'Y':
      return 5;
    case 'S':
      return 6;
    case 'D':
      return 2;
    default:
      return 0;
  }
}

bool addCommand(Path& path, char command, Numbers n) {
  if (const std::size_t fixed = numbersOf(command); fixed != 0 && n.size() != fixed) return false;
  switch (command) {
    case 'M':
    case 'L':
      return addLines(path, n, command == 'M');
    case 'C':
      return addCurves(path, n);
    case 'P':
      return addCorners(path, n);
    case 'O':
      if (n.size() != 3 && n.size() != 4) return false;
      addEllipse(path, n[0], n[1], n[2], n.back());
      return true;
    case 'A':
      path.addArc({n[0], n[1]}, n[2], n[3] * kDegree, n[4] * kDegree);
      return true;
    case 'R':
      path.addRoundedRect({n[0], n[1], n[2], n[3]}, n[4], true);
      return true;
    case 'S':
      addStar(path, n);
      return true;
    case 'G':
      addGear(path, n);
      return true;
    case 'Y':
      addRays(path, n);
      return true;
    case 'D':
      path.moveTo({n[0] - kDotRadius, n[1]}).lineTo({n[0] + kDotRadius, n[1]});
      path.moveTo({n[0], n[1] - kDotRadius}).lineTo({n[0], n[1] + kDotRadius});
      return true;
    case 'Z':
      path.close();
      return n.empty();
    default:
      return false;
  }
}

bool readOutline(std::string_view text, Path& path) {
  while (true) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.empty()) return true;
    const char command = text.front();
    text.remove_prefix(1);
    std::vector<double> numbers;
    while (true) {
      text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
      double number = 0;
      const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
      if (error != std::errc()) break;
      numbers.push_back(number);
      text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    }
    if (!addCommand(path, command, numbers)) return false;
  }
}

bool addParts(SymbolDrawing& drawing, char kind, const Path& path) {
  constexpr double kWide = kSymbolWeight + 2 * kSymbolSeam;
  switch (kind) {
    case 's':
      drawing.parts.push_back({path, kSymbolWeight, false});
      return true;
    case 'f':
      drawing.parts.push_back({path, 0, false});
      return true;
    case 'b':
      drawing.parts.push_back({path, 0, false});
      drawing.parts.push_back({path, kSymbolWeight, false});
      return true;
    case 'x':
      drawing.parts.push_back({path, kSymbolWeight, true});
      return true;
    case 'e':
      drawing.parts.push_back({path, 0, true});
      return true;
    case 'k':
      drawing.parts.push_back({path, 0, true});
      drawing.parts.push_back({path, kWide, true});
      return true;
    case 'g':
      drawing.parts.push_back({path, kWide, true});
      return true;
    default:
      return false;
  }
}

}  // namespace

SymbolDrawing readSymbol(std::string_view text) {
  SymbolDrawing drawing;
  bool understood = true;
  while (!text.empty() && understood) {
    const std::size_t end = std::min(text.find(';'), text.size());
    std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    part.remove_prefix(std::min(part.find_first_not_of(' '), part.size()));
    Path path;
    understood = !part.empty() && readOutline(part.substr(1), path) &&
                 addParts(drawing, part.front(), path.transformed(0.01, 0.01, {}));
  }
  ZQ_REQUIRE(understood, "Symbols: a drawing of the table cannot be read");
  return drawing;
}

}  // namespace zq
