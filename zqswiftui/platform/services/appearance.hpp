// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

enum class ColorScheme { light, dark };
enum class LayoutDirection { leftToRight, rightToLeft };

// What the desktop asks of every window.
struct AppearanceValues {
  ColorScheme colorScheme = ColorScheme::light;
  LayoutDirection layoutDirection = LayoutDirection::leftToRight;
  bool reducedMotion = false;
  double textScale = 1;  // a factor on the size of every text, from 0.5 to 4
  bool operator==(const AppearanceValues&) const = default;
};

// The desktop's appearance. Interface thread only.
class Appearance {
 public:
  virtual ~Appearance() = default;
  virtual AppearanceValues values() const = 0;
  // Called on the interface thread after each change; 0 is never returned.
  virtual unsigned long addListener(std::function<void()> listener) = 0;
  virtual void removeListener(unsigned long id) = 0;
};

}  // namespace zq
