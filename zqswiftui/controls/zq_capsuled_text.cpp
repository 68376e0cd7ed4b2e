// ZQSwiftUI, MIT licence; see LICENSE.
#include <cmath>
#include <zqswiftui/controls/zq_capsuled_text.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kRoundEnds = 4;  // beside the padding, so that letters keep off the curve

double linear(double component) {
  return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const RGBA& c) {
  return 0.2126 * linear(static_cast<double>(c.red)) +
         0.7152 * linear(static_cast<double>(c.green)) +
         0.0722 * linear(static_cast<double>(c.blue));
}

double over(float front, float behind, float alpha) {
  return static_cast<double>(front * alpha + behind * (1 - alpha));
}

// White or black, whichever contrasts more with the background as it shows over the window.
Color readableOn(const Color& background, ColorScheme scheme) {
  const RGBA c = background.resolve(scheme);
  const RGBA w = Color::background().resolve(scheme);
  const RGBA seen{static_cast<float>(over(c.red, w.red, c.alpha)),
                  static_cast<float>(over(c.green, w.green, c.alpha)),
                  static_cast<float>(over(c.blue, w.blue, c.alpha)), 1};
  const double l = luminance(seen);
  return 1.05 / (l + 0.05) >= (l + 0.05) / 0.05 ? Color::white() : Color::black();
}

}  // namespace

View ZQCapsuledText::body(Context& context) const {
  const Parameters& p = parameters_;
  return Text(p.text)
      .font(p.font)
      .multilineTextAlignment(p.alignment)
      .foregroundColor(readableOn(p.backgroundColor, context.environment<ColorSchemeKey>()))
      .padding(EdgeInsets::symmetric(p.padding + kRoundEnds, p.padding))
      .background(Capsule().fill(p.backgroundColor));
}

}  // namespace zq
