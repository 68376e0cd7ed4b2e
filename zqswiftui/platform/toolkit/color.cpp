// ZQSwiftUI, MIT licence; see LICENSE.
#include <array>
#include <cmath>
#include <cstdio>
#include <utility>
#include <zqswiftui/platform/toolkit/color.hpp>

namespace zq {
namespace {

struct NamedColor {
  const char* name;
  unsigned light;  // 0xAARRGGBB
  unsigned dark;
};

// In the order of Color::Name. Primary, secondary, accent, gray, red, blue, purple and brown keep a
// contrast of 4.5:1 against the window and the cards on it, for texts are written in them. The
// other hues are for marks and grounds.
constexpr std::array<NamedColor, 22> kNamed{{
    {"fixed", 0xff000000, 0xff000000},      {"primary", 0xdd000000, 0xe6ffffff},
    {"secondary", 0x99000000, 0x99ffffff},  {"accent", 0xff0a64f0, 0xff3d8bff},
    {"background", 0xffffffff, 0xff1e1e20}, {"separator", 0x24000000, 0x2effffff},
    {"black", 0xff000000, 0xff000000},      {"white", 0xffffffff, 0xffffffff},
    {"gray", 0xff69696f, 0xff98989e},       {"red", 0xffd42a1f, 0xffff5147},
    {"orange", 0xfff08a00, 0xffff9f1a},     {"yellow", 0xffe8b800, 0xffffd426},
    {"green", 0xff2fae4b, 0xff38d15c},      {"mint", 0xff00b5a6, 0xff5ce3d8},
    {"teal", 0xff2a9db3, 0xff47c2db},       {"cyan", 0xff2ba6de, 0xff5ac8f5},
    {"blue", 0xff0a64f0, 0xff3d8bff},       {"indigo", 0xff5451cf, 0xff6a67e6},
    {"purple", 0xff923fca, 0xffc880f6},     {"pink", 0xfff0325c, 0xffff4a70},
    {"brown", 0xff80663f, 0xffac8e68},      {"clear", 0x00000000, 0x00000000},
}};

float clamped(double v) {
  return static_cast<float>(v > 0 ? (v < 1 ? v : 1.0) : 0.0);
}

RGBA unpack(unsigned argb) {
  const auto part = [&](int shift) { return static_cast<float>((argb >> shift) & 0xffu) / 255.0f; };
  return {part(16), part(8), part(0), part(24)};
}

}  // namespace

Color Color::rgb(double red, double green, double blue, double alpha) {
  Color c(Name::fixed);
  c.fixed_ = {clamped(red), clamped(green), clamped(blue), clamped(alpha)};
  return c;
}

Color Color::hex(unsigned rrggbb) {
  Color c(Name::fixed);
  c.fixed_ = unpack(0xff000000u | rrggbb);
  return c;
}

Color Color::opacity(double fraction) const {
  Color c = *this;
  c.opacity_ = clamped(static_cast<double>(opacity_) * static_cast<double>(clamped(fraction)));
  return c;
}

RGBA Color::resolve(ColorScheme scheme) const {
  const NamedColor& entry = kNamed[static_cast<std::size_t>(name_)];
  RGBA c = name_ == Name::fixed ? fixed_
                                : unpack(scheme == ColorScheme::dark ? entry.dark : entry.light);
  c.alpha *= opacity_;
  return c;
}

std::string Color::description() const {
  std::array<char, 32> text{};
  std::string result = kNamed[static_cast<std::size_t>(name_)].name;
  if (name_ == Name::fixed) {
    const auto byte = [](float v) { return static_cast<unsigned>(std::lround(v * 255.0f)); };
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", byte(fixed_.red), byte(fixed_.green),
                  byte(fixed_.blue));
    result = text.data();
  }
  const double alpha = static_cast<double>(opacity_) *
                       (name_ == Name::fixed ? static_cast<double>(fixed_.alpha) : 1.0);
  if (alpha < 0.9995) {
    std::snprintf(text.data(), text.size(), " %.3g", alpha);
    result += text.data();
  }
  return result;
}

LinearGradient LinearGradient::of(const std::vector<Color>& colors, UnitPoint start,
                                  UnitPoint end) {
  LinearGradient g;
  g.startPoint = start;
  g.endPoint = end;
  const double last = colors.size() > 1 ? static_cast<double>(colors.size() - 1) : 1.0;
  for (std::size_t i = 0; i < colors.size(); ++i) {
    g.stops.push_back({colors[i], static_cast<double>(i) / last});
  }
  return g;
}

Paint::Paint(LinearGradient gradient)
    : gradient_(std::make_shared<const LinearGradient>(std::move(gradient))) {}

bool Paint::operator==(const Paint& other) const {
  if (gradient_ && other.gradient_) return *gradient_ == *other.gradient_;
  return !gradient_ && !other.gradient_ && color_ == other.color_;
}

}  // namespace zq
