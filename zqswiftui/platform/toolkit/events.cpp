// ZQSwiftUI, MIT licence; see LICENSE.
#include <array>
#include <utility>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/toolkit/events.hpp>

namespace zq {
namespace {

Shortcut ofLetter(std::string letter, Modifiers modifiers) {
  Shortcut shortcut(Key::character);
  shortcut.letter = std::move(letter);
  shortcut.modifiers = modifiers;
  return shortcut;
}

}  // namespace

Shortcut Shortcut::control(std::string letter) {
  return ofLetter(std::move(letter), {.control = true});
}

Shortcut Shortcut::controlShift(std::string letter) {
  return ofLetter(std::move(letter), {.shift = true, .control = true});
}

std::string Shortcut::text() const {
  constexpr std::array<const char*, 16> kNames{
      "",      "Tab", "Enter", "Escape", "Space", "Backspace", "Delete",    "Left",
      "Right", "Up",  "Down",  "Home",   "End",   "Page Up",   "Page Down", "Menu"};
  std::string text;
  if (modifiers.control) text += "Ctrl+";
  if (modifiers.alt) text += "Alt+";
  if (modifiers.shift) text += "Shift+";
  if (key != Key::character) return text + kNames.at(static_cast<std::size_t>(key));
  for (const char c : letter) text += c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
  return text;
}

bool Shortcut::matches(const KeyEvent& event) const {
  if (key != event.key || modifiers != event.modifiers) return false;
  return key != Key::character || lowercased(event.text) == letter;
}

}  // namespace zq
