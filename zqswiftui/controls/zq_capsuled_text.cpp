// ZQSwiftUI, MIT licence; see LICENSE.
#include <cmath>
#include <utility>
#include <zqswiftui/controls/zq_capsuled_text.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kTextInset = 4;  // keeps letters out of the round ends

double linear(double component) {
  return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

// Relative luminance of WCAG 2.2, from 0 to 1, of what is seen of a colour over another one:
// 0.2126 R + 0.7152 G + 0.0722 B, of components made linear.
double luminance(const RGBA& front, const RGBA& behind) {
  const auto mixed = [alpha = static_cast<double>(front.alpha)](float a, float b) {
    return linear(alpha * static_cast<double>(a) + (1 - alpha) * static_cast<double>(b));
  };
  return 0.2126 * mixed(front.red, behind.red) + 0.7152 * mixed(front.green, behind.green) +
         0.0722 * mixed(front.blue, behind.blue);
}

}  // namespace

ZQCapsuledText::ZQCapsuledText(Parameters parameters) : parameters_(std::move(parameters)) {}

Color readableTextColor(Color background, ColorScheme scheme) {
  // Both contrasts, (L + 0.05) / 0.05 with black and 1.05 / (L + 0.05) with white, are equal
  // at this luminance.
  constexpr double kEvenContrast = 0.1791;
  const double seen = luminance(background.resolve(scheme), Color::background().resolve(scheme));
  return seen > kEvenContrast ? Color::black() : Color::white();
}

View ZQCapsuledText::body(Context& context) const {
  const Color ink =
      readableTextColor(parameters_.backgroundColor, context.environment<ColorSchemeKey>());
  const double padding = sanitized(parameters_.padding);
  return Text(parameters_.text)
      .font(parameters_.font)
      .multilineTextAlignment(parameters_.alignment)
      .foregroundColor(ink)
      .padding(EdgeInsets::symmetric(padding + kTextInset, padding))
      .background(Capsule().fill(parameters_.backgroundColor));
}

}  // namespace zq
