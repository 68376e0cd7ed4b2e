// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>
#include <zqswiftui/controls/menu.hpp>

namespace zq::detail {

// Which of a bar's menus is open, and the line that the next Return presses.
struct OpenedMenu {
  std::size_t menu = 0;
  std::optional<std::size_t> line = std::nullopt;
  Point at = {};        // of a context menu
  bool byKeys = false;  // a pointer that rests there no longer chooses
  bool operator==(const OpenedMenu&) const = default;
};

// The content with a menu that opens at a point of it.
View withMenu(const View& content, const State<std::optional<OpenedMenu>>& opened,
              const std::vector<MenuItem>& items, LayoutDirection direction);

}  // namespace zq::detail
