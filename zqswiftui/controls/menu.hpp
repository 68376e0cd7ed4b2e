// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
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

struct OpenedMenu;
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
  Shared<const std::vector<Menu>> menus_;
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
