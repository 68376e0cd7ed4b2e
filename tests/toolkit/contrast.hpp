// ZQSwiftUI, MIT licence; see LICENSE.
// Whether texts and symbols stand out from what they are drawn on.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <tests/toolkit/fitting.hpp>
#include <variant>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/display_list.hpp>

namespace zq::contrasts {

inline constexpr double kLeastContrast = 4.5;  // of texts, WCAG 2.2, success criterion 1.4.3

struct Light {
  double red, green, blue;
};

inline Light over(const RGBA& front, double opacity, const Light& behind) {
  const double alpha = static_cast<double>(front.alpha) * opacity;
  const auto mixed = [alpha](float a, double b) {
    return alpha * static_cast<double>(a) + (1 - alpha) * b;
  };
  return {mixed(front.red, behind.red), mixed(front.green, behind.green),
          mixed(front.blue, behind.blue)};
}

// Relative luminance and contrast ratio as WCAG 2.2 defines them, in its glossary.
inline double luminance(const Light& light) {
  const auto linear = [](double c) {
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(light.red) + 0.7152 * linear(light.green) + 0.0722 * linear(light.blue);
}

inline double contrast(const Light& a, const Light& b) {
  const auto [less, more] = std::minmax({luminance(a), luminance(b)});
  return (more + 0.05) / (less + 0.05);
}

// The colour of what writes, if it does; strokes do not.
inline const Color* inkOf(const DrawCommand& command) {
  if (const auto* text = std::get_if<DrawText>(&command)) return &text->color;
  if (const auto* symbol = std::get_if<DrawSymbol>(&command)) return &symbol->color;
  return nullptr;
}

// What an area is filled with, if it is.
inline const Paint* paintOf(const DrawCommand& command) {
  if (const auto* fill = std::get_if<FillRect>(&command)) return &fill->paint;
  if (const auto* fill = std::get_if<FillRoundedRect>(&command)) return &fill->paint;
  if (const auto* fill = std::get_if<FillPath>(&command)) return &fill->paint;
  return nullptr;
}

inline std::string nameOf(const DrawCommand& command) {
  const auto* text = std::get_if<DrawText>(&command);
  return text ? text->content->text : std::get<DrawSymbol>(command).name;
}

// How a text or symbol stands out from a ground.
inline double contrastOn(const DrawnCommand& written, const Light& ground) {
  const RGBA ink = inkOf(written.command)->resolve(written.state.scheme);
  return contrast(over(ink, written.opacity, ground), ground);
}

// What a fill makes of the ground below a text or symbol: of a gradient, the stop on which it
// stands out least.
inline Light filled(const DrawnCommand& fill, const DrawnCommand& written, const Light& ground) {
  const Paint& paint = *paintOf(fill.command);
  const auto laid = [&](const Color& color) {
    return over(color.resolve(fill.state.scheme), fill.opacity, ground);
  };
  if (const Color* color = paint.color()) return laid(*color);
  std::vector<Light> grounds;
  for (const auto& stop : paint.gradient()->stops) grounds.push_back(laid(stop.color));
  const auto least =
      std::min_element(grounds.begin(), grounds.end(), [&](const Light& a, const Light& b) {
        return contrastOn(written, a) < contrastOn(written, b);
      });
  return least == grounds.end() ? ground : *least;
}

// The contrast that is asked of a text or symbol.
using Asked = std::function<double(const DrawnCommand&)>;

inline double askedOfTexts(const DrawnCommand& /*any*/) {
  return kLeastContrast;
}

// Lays what is drawn one over the other in the middle of each text and symbol. What is disabled
// need not be read: the criterion leaves it out.
inline void expectReadable(Harness& h, ColorScheme scheme, const Asked& asked = askedOfTexts) {
  const std::vector<DrawnCommand> all = h.drawn();
  const std::vector<fitting::Placed> elements = fitting::elementsOf(h);
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Color* ink = inkOf(all[i].command);
    if (!ink || all[i].visible.empty() || all[i].opacity <= 0) continue;
    const Point middle{all[i].bounds.midX(), all[i].bounds.midY()};
    const bool disabled = std::any_of(elements.begin(), elements.end(), [&](const auto& element) {
      return !element.node.enabled && element.node.bounds.contains(middle);
    });
    if (disabled) continue;
    Light ground = over(Color::background().resolve(scheme), 1, {});
    for (std::size_t behind = 0; behind < i; ++behind) {
      if (!paintOf(all[behind].command) || !all[behind].visible.contains(middle)) continue;
      ground = filled(all[behind], all[i], ground);
    }
    EXPECT_GE(contrastOn(all[i], ground), asked(all[i]))
        << nameOf(all[i].command) << " in " << ink->description() << " at " << all[i].opacity;
  }
}

}  // namespace zq::contrasts
