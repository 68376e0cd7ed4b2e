// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <zqswiftui/platform/toolkit/color.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

inline View block(double width, double height, const Color& color = Color::red()) {
  return View(color).frame(width, height);
}

}  // namespace zq
