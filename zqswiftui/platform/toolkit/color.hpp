// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/services/appearance.hpp>
#include <zqswiftui/platform/toolkit/geometry.hpp>

namespace zq {

class View;

// Components from 0 to 1, sRGB, alpha not multiplied in.
struct RGBA {
  float red = 0;
  float green = 0;
  float blue = 0;
  float alpha = 1;
  bool operator==(const RGBA&) const = default;
};

// A colour that is resolved when it is painted: named ones follow light and dark. Components
// outside 0 to 1, and NaN, are clamped. A plain value, cheap to copy and compare.
class Color {
 public:
  enum class Name : unsigned char {
    fixed,
    primary,
    secondary,
    accent,
    background,
    separator,
    black,
    white,
    gray,
    red,
    orange,
    yellow,
    green,
    mint,
    teal,
    cyan,
    blue,
    indigo,
    purple,
    pink,
    brown,
    clear
  };

  Color() = default;  // primary
  static Color rgb(double red, double green, double blue, double alpha = 1);
  static Color hex(unsigned rrggbb);
  static Color named(Name name) { return Color(name); }
  static Color primary() { return Color(Name::primary); }
  static Color secondary() { return Color(Name::secondary); }
  static Color accent() { return Color(Name::accent); }
  static Color background() { return Color(Name::background); }  // of a window
  static Color separator() { return Color(Name::separator); }
  static Color black() { return Color(Name::black); }
  static Color white() { return Color(Name::white); }
  static Color gray() { return Color(Name::gray); }
  static Color red() { return Color(Name::red); }
  static Color orange() { return Color(Name::orange); }
  static Color yellow() { return Color(Name::yellow); }
  static Color green() { return Color(Name::green); }
  static Color mint() { return Color(Name::mint); }
  static Color teal() { return Color(Name::teal); }
  static Color cyan() { return Color(Name::cyan); }
  static Color blue() { return Color(Name::blue); }
  static Color indigo() { return Color(Name::indigo); }
  static Color purple() { return Color(Name::purple); }
  static Color pink() { return Color(Name::pink); }
  static Color brown() { return Color(Name::brown); }
  static Color clear() { return Color(Name::clear); }

  // The same colour at that part of its own opacity.
  Color opacity(double fraction) const;
  RGBA resolve(ColorScheme scheme) const;
  // "teal", "gray 0.8" (opacity), "#336699 0.5": for text dumps.
  std::string description() const;
  bool operator==(const Color&) const = default;
  // As a view it fills all the room that it is offered.
  operator View() const;  // NOLINT(google-explicit-constructor)

 private:
  explicit Color(Name name) : name_(name) {}
  RGBA fixed_;
  float opacity_ = 1;
  Name name_ = Name::primary;
};

// Colours from one place of the shape to another; stops are fractions from 0 to 1, rising.
struct LinearGradient {
  struct Stop {
    Color color;
    double location = 0;
    bool operator==(const Stop&) const = default;
  };
  std::vector<Stop> stops;
  UnitPoint startPoint = UnitPoint::top();
  UnitPoint endPoint = UnitPoint::bottom();

  // Evenly spread stops.
  static LinearGradient of(const std::vector<Color>& colors, UnitPoint start = UnitPoint::top(),
                           UnitPoint end = UnitPoint::bottom());
  bool operator==(const LinearGradient&) const = default;
};

// What a shape is filled or drawn with: a colour, or a gradient.
class Paint {
 public:
  Paint() = default;
  Paint(Color color) : color_(color) {}  // NOLINT(google-explicit-constructor)
  Paint(LinearGradient gradient);        // NOLINT(google-explicit-constructor)

  // None where it is the other.
  const Color* color() const { return gradient_ ? nullptr : &color_; }
  const LinearGradient* gradient() const { return gradient_.get(); }
  bool operator==(const Paint& other) const;

 private:
  Color color_;
  Shared<const LinearGradient> gradient_;
};

}  // namespace zq
