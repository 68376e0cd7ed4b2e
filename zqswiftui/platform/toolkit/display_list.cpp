// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/display_list.hpp>

namespace zq {

Rect boundsOf(const DrawCommand& command) {
  return std::visit([](const auto& c) { return c.rect; }, command);
}

}  // namespace zq
