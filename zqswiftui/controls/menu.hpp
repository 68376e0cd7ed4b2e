// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// One line of a menu. Its shortcut is shown beside it and works while the menu is closed.
struct MenuItem {
  std::string title;
  std::function<void()> action = nullptr;
  std::optional<Shortcut> shortcut = std::nullopt;
  bool enabled = true;
  std::optional<bool> checked = std::nullopt;

  static MenuItem separator() { return {.title = ""}; }
  bool isSeparator() const { return title.empty(); }
};

struct Menu {
  std::string title;
  std::vector<MenuItem> items;
};

namespace detail {

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

}  // namespace detail

// Menus side by side, each opened by a click, by Space, Enter or Down; Up and Down go through its
// lines, Left and Right to the next menu, Escape closes it. Interface thread only.
//   MenuBar({{"File", {{.title = "Save", .action = save, .shortcut = Shortcut::control("s")}}}})
class MenuBar : public ViewModifiers<MenuBar> {
 public:
  explicit MenuBar(std::vector<Menu> menus);

  View body(Context& context) const;

 private:
  View title(std::size_t number, const State<std::optional<detail::OpenedMenu>>& opened,
             bool leftToRight) const;
  std::shared_ptr<const std::vector<Menu>> menus_;
};

// A view with a menu of its own, opened by the other button of the mouse or by the menu key.
//   ContextMenu(row, {{.title = "Rename", .action = rename}})
class ContextMenu : public ViewModifiers<ContextMenu> {
 public:
  ContextMenu(View content, std::vector<MenuItem> items);

  View body(Context& context) const;

 private:
  View content_;
  std::vector<MenuItem> items_;
};

}  // namespace zq
