// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <utility>
#include <vector>
#include <zqswiftui/platform/services/appearance.hpp>
#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/font.hpp>

namespace zq {

// What views inherit from those around them. A key of one's own is a type with a Value and a
// default:
//   struct DensityKey { using Value = double; static Value defaultValue() { return 1; } };
//   view.environment<DensityKey>(2.0);      context.environment<DensityKey>()
// The toolkit's own keys are below; they are fields because every text reads them.
struct Environment {
  Font font;
  std::optional<Color> foreground;  // none: primary
  TextAlignment textAlignment = TextAlignment::leading;
  int lineLimit = 0;  // 0: any number
  ColorScheme colorScheme = ColorScheme::light;
  LayoutDirection layoutDirection = LayoutDirection::leftToRight;
  bool enabled = true;
  bool reducedMotion = false;
  double textScale = 1;  // a factor on the size of every font, and of the symbols beside texts
  // A value under a key of one's own, with the way to compare two of them.
  struct Custom {
    const void* key = nullptr;
    std::shared_ptr<const void> value;
    bool (*same)(const void*, const void*) = nullptr;
    bool operator==(const Custom& o) const;
  };
  std::vector<Custom> custom;

  // Of lengths that hold a text: they keep to what they are where texts are smaller than usual.
  double textGrowth() const { return textScale > 1 ? textScale : 1; }
  const void* find(const void* key) const;
  void put(Custom entry);
  bool operator==(const Environment&) const;
};

using EnvironmentPtr = std::shared_ptr<const Environment>;

namespace detail {

template <class Key>
inline const char environmentKeyId = 0;

template <class T>
inline const char environmentObjectId = 0;

}  // namespace detail

#define ZQ_ENVIRONMENT_FIELD(KeyName, Type, field)       \
  struct KeyName {                                       \
    using Value = Type;                                  \
    static Value get(const Environment& environment) {   \
      return environment.field;                          \
    }                                                    \
    static void set(Environment& environment, Value v) { \
      environment.field = v;                             \
    }                                                    \
  }
ZQ_ENVIRONMENT_FIELD(FontKey, Font, font);
ZQ_ENVIRONMENT_FIELD(ForegroundColorKey, std::optional<Color>, foreground);
ZQ_ENVIRONMENT_FIELD(TextAlignmentKey, TextAlignment, textAlignment);
ZQ_ENVIRONMENT_FIELD(LineLimitKey, int, lineLimit);
ZQ_ENVIRONMENT_FIELD(ColorSchemeKey, ColorScheme, colorScheme);
ZQ_ENVIRONMENT_FIELD(LayoutDirectionKey, LayoutDirection, layoutDirection);
ZQ_ENVIRONMENT_FIELD(EnabledKey, bool, enabled);
ZQ_ENVIRONMENT_FIELD(ReducedMotionKey, bool, reducedMotion);
#undef ZQ_ENVIRONMENT_FIELD

struct TextScaleKey {
  using Value = double;
  static Value get(const Environment& environment) { return environment.textScale; }
  static void set(Environment& environment, Value v) {
    environment.textScale = boundedTextScale(v);
  }
};

template <class Key>
concept EnvironmentField = requires(const Environment& e) { Key::get(e); };

template <class Key>
typename Key::Value readEnvironment(const Environment& environment) {
  if constexpr (EnvironmentField<Key>) {
    return Key::get(environment);
  } else {
    const void* found = environment.find(&detail::environmentKeyId<Key>);
    return found ? *static_cast<const typename Key::Value*>(found) : Key::defaultValue();
  }
}

}  // namespace zq
