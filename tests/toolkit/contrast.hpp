// ZQSwiftUI, MIT licence; see LICENSE.
// Whether texts and symbols stand out from what they are drawn on.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <variant>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/display_list.hpp>

namespace zq::contrasts {

inline constexpr double kLeastContrast = 4.5;  // of texts, WCAG 2.2, success criterion 1.4.3
inline constexpr double kDisabled = 0.5;       // what shows no stronger is disabled, or not there

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

// What fills an area, or writes on it; strokes are neither.
inline const Color* colorOf(const DrawCommand& command, bool& writes) {
  const auto plain = [](const Paint& paint) { return paint.color(); };
  writes = true;
  if (const auto* text = std::get_if<DrawText>(&command)) return &text->color;
  if (const auto* symbol = std::get_if<DrawSymbol>(&command)) return &symbol->color;
  writes = false;
  if (const auto* fill = std::get_if<FillRect>(&command)) return plain(fill->paint);
  if (const auto* fill = std::get_if<FillRoundedRect>(&command)) return plain(fill->paint);
  if (const auto* fill = std::get_if<FillPath>(&command)) return plain(fill->paint);
  return nullptr;
}

inline std::string nameOf(const DrawCommand& command) {
  const auto* text = std::get_if<DrawText>(&command);
  return text ? text->content->text : std::get<DrawSymbol>(command).name;
}

// Lays what is drawn one over the other in the middle of each text and symbol.
inline void expectReadable(Harness& h, ColorScheme scheme) {
  const std::vector<DrawnCommand> all = h.drawn();
  for (std::size_t i = 0; i < all.size(); ++i) {
    bool writes = false;
    const Color* ink = colorOf(all[i].command, writes);
    if (!ink || !writes || all[i].visible.empty() || all[i].opacity < kDisabled) continue;
    const Point middle{all[i].bounds.midX(), all[i].bounds.midY()};
    Light ground = over(Color::background().resolve(scheme), 1, {});
    for (std::size_t behind = 0; behind < i; ++behind) {
      bool text = false;
      const Color* fill = colorOf(all[behind].command, text);
      if (!fill || text || !all[behind].visible.contains(middle)) continue;
      ground = over(fill->resolve(scheme), all[behind].opacity, ground);
    }
    const Light seen = over(ink->resolve(scheme), all[i].opacity, ground);
    EXPECT_GE(contrast(seen, ground), kLeastContrast) << nameOf(all[i].command);
  }
}

}  // namespace zq::contrasts
