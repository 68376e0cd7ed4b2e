// ZQSwiftUI, MIT licence; see LICENSE.
#include <cstddef>
#include <utility>
#include <zqswiftui/controls/list_line.hpp>
#include <zqswiftui/controls/opened_menu.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {

using Opened = detail::OpenedMenu;
using OpenedState = State<std::optional<Opened>>;

namespace {

constexpr double kLeastWidth = 190;
constexpr double kLeastGap = 24;  // between a title and its shortcut

bool usable(const MenuItem& item) {
  return !item.isSeparator() && item.enabled && item.action;
}

// The next line that can be pressed, past the ends too; the same where there is no other.
std::optional<std::size_t> nextLine(const std::vector<MenuItem>& items,
                                    std::optional<std::size_t> line, bool down) {
  const std::size_t count = items.size();
  std::size_t at = line.value_or(down ? count - 1 : 0);
  for (std::size_t i = 0; i < count; ++i) {
    at = (at + (down ? 1 : count - 1)) % count;
    if (usable(items[at])) return at;
  }
  return std::nullopt;
}

void press(const MenuItem& item, const OpenedState& opened) {
  const auto action = item.action;  // it may end the menu
  opened.set(std::nullopt);
  action();
}

View lineOf(const MenuItem& item, bool lit, const OpenedState& opened, std::size_t number) {
  if (item.isSeparator()) {
    return View(Rectangle().fill(Color::separator()))
        .frame({.height = 1})
        .padding(
            {.top = 4, .leading = kListLinePadding, .bottom = 4, .trailing = kListLinePadding});
  }
  const View shortcut = View(Text(item.shortcut ? item.shortcut->text() : "").lineLimit(1))
                            .foregroundColor(Color::secondary())
                            .padding({.leading = kLeastGap});
  const View line = listLine({.title = item.title,
                              .checked = item.checked.value_or(false),
                              .behind = shortcut,
                              .lit = lit})
                        .opacity(usable(item) ? 1 : kDisabledOpacity);
  Accessibility meaning{.role = Role::button, .label = item.title};
  meaning.checked = item.checked;
  if (item.shortcut) meaning.description = item.shortcut->text();
  if (!usable(item)) return line.accessibility(meaning).disabled();
  return line.onTap([item, opened] { press(item, opened); })
      .onHover([opened, number](bool inside) {
        if (!*opened || !inside || (*opened)->byKeys) return;
        Opened now = **opened;
        now.line = number;
        opened.set(now);
      })
      .accessibility(meaning);
}

// Whether the key went through an open menu.
bool goThrough(const KeyEvent& event, const std::vector<MenuItem>& items,
               const OpenedState& opened) {
  if (!*opened) return false;
  Opened now = **opened;
  if (event.key == Key::up || event.key == Key::down) {
    now.line = nextLine(items, now.line, event.key == Key::down);
    now.byKeys = true;
    opened.set(now);
    return true;
  }
  if (event.key != Key::enter && event.key != Key::space) return false;
  if (now.line && *now.line < items.size()) press(items[*now.line], opened);
  return true;
}

using KeyAction = std::function<bool(const KeyEvent&)>;

// `others` hears the keys that do not go through the lines.
View listOf(const std::vector<MenuItem>& items, const OpenedState& opened, KeyAction others) {
  const std::size_t lit = *opened && (*opened)->line ? *(*opened)->line : items.size();
  std::vector<View> lines;
  for (std::size_t i = 0; i < items.size(); ++i) {
    lines.push_back(lineOf(items[i], i == lit, opened, i));
  }
  return listOfLines(std::move(lines))
      .flexFrame({.minWidth = kLeastWidth})
      .onLeftoverKey([items, opened, others = std::move(others)](const KeyEvent& event) {
        return goThrough(event, items, opened) || (others && others(event));
      });
}

View withShortcuts(View view, const std::vector<MenuItem>& items) {
  for (const MenuItem& item : items) {
    if (item.shortcut && usable(item)) view = view.onShortcut(*item.shortcut, item.action);
  }
  return view;
}

Binding<bool> isOpen(const OpenedState& opened, std::size_t menu) {
  return {[opened, menu] { return *opened && (*opened)->menu == menu; },
          [opened](bool open) {
            if (!open) opened.set(std::nullopt);
          }};
}

}  // namespace

MenuBar::MenuBar(std::vector<Menu> menus)
    : menus_(std::make_shared<const std::vector<Menu>>(std::move(menus))) {}

View MenuBar::title(std::size_t number, const OpenedState& opened, bool leftToRight) const {
  const Menu& menu = (*menus_)[number];
  const bool open = *opened && (*opened)->menu == number;
  const auto opens = [opened, menu, number](const KeyEvent& event) {
    if (event.key != Key::down && event.key != Key::enter && event.key != Key::space) return false;
    opened.set(
        Opened{.menu = number, .line = nextLine(menu.items, std::nullopt, true), .byKeys = true});
    return true;
  };
  const auto aside = [opened, number, count = menus_->size(), leftToRight](const KeyEvent& event) {
    if (event.key != Key::left && event.key != Key::right) return false;
    const bool forward = event.key == (leftToRight ? Key::right : Key::left);
    opened.set(Opened{.menu = (number + (forward ? 1 : count - 1)) % count});
    return true;
  };
  return View(Text(menu.title).lineLimit(1))
      .padding({.leading = kListLinePadding, .trailing = kListLinePadding})
      .frame({.height = kListLineHeight, .growsWithText = true})
      .background(
          RoundedRectangle(kControlRadius).fill(Color::primary().opacity(open ? 0.12 : 0.001)))
      .onTap([opened, open, number] {
        opened.set(open ? std::nullopt : std::optional(Opened{.menu = number}));
      })
      .onLeftoverKey(opens)
      .accessibility(
          {.role = Role::button, .label = menu.title, .value = open ? "expanded" : "collapsed"})
      .popover(isOpen(opened, number), listOf(menu.items, opened, aside),
               HorizontalAlignment::leading);
}

View MenuBar::body(Context& context) const {
  const auto opened = context.state(std::optional<Opened>());
  const bool leftToRight =
      context.environment<LayoutDirectionKey>() == LayoutDirection::leftToRight;
  std::vector<View> titles;
  for (std::size_t i = 0; i < menus_->size(); ++i) {
    titles.push_back(withShortcuts(title(i, opened, leftToRight), (*menus_)[i].items));
  }
  return HStack({.spacing = 2}, std::move(titles));
}

ContextMenu::ContextMenu(View content, std::vector<MenuItem> items)
    : content_(std::move(content)), items_(std::move(items)) {}

// The point is one of the screen, so it counts from the left wherever a line begins.
View detail::withMenu(const View& content, const OpenedState& opened,
                      const std::vector<MenuItem>& items, LayoutDirection direction) {
  const Point at = *opened ? (*opened)->at : Point{};
  const View anchor =
      View(Color::gray())
          .opacity(0)
          .frame(1, 1)
          .accessibility({.hidden = true})
          .popover(isOpen(opened, 0), listOf(items, opened, nullptr), HorizontalAlignment::leading)
          .offset(at.x, at.y);
  const bool leftToRight = direction == LayoutDirection::leftToRight;
  return content.overlay(anchor, leftToRight ? Alignment::topLeading() : Alignment::topTrailing());
}

View ContextMenu::body(Context& context) const {
  const auto opened = context.state(std::optional<Opened>());
  const View view =
      detail::withMenu(content_, opened, items_, context.environment<LayoutDirectionKey>());
  return withShortcuts(
      view.onSecondaryTap([opened](Point point) { opened.set(Opened{.at = point}); }), items_);
}

}  // namespace zq
