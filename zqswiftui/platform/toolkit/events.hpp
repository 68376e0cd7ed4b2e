// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/platform/services/drag_data.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/geometry.hpp>

namespace zq {

// What the host tells the tree. Points are in points of the hosted view, top left (0, 0).

struct Modifiers {
  bool shift = false;
  bool control = false;
  bool alt = false;
  bool operator==(const Modifiers&) const = default;
};

// Whether Tab comes by at what is pressed. What is reached by keys of the view around it, as the
// rows of a list are, is no stop of its own.
enum class TabStop : unsigned char { yes, no };

// The least width and height of what reacts to a press, in points: WCAG 2.2, success criterion
// 2.5.8. What is drawn smaller reacts in a square of this size around its middle, unless another
// target is hit exactly there or a nearer small one takes it.
constexpr double kLeastTarget = 24;

enum class PointerButton : unsigned char { primary, secondary, middle };

enum class Key : unsigned char {
  character,
  tab,
  enter,
  escape,
  space,
  backspace,
  deleteForward,
  left,
  right,
  up,
  down,
  home,
  end,
  pageUp,
  pageDown,
  menu  // asks for what a secondary click would
};

struct KeyEvent {
  Key key = Key::character;
  std::string text;  // UTF-8, what the key types; empty for most keys
  Modifiers modifiers;
};

// A key with what is held down with it. One of a character goes by what is typed without Shift.
//   save.keyboardShortcut(Shortcut::control("s"))
struct Shortcut {
  Shortcut(Key pressed) : key(pressed) {}  // NOLINT(google-explicit-constructor): mostly a key
  static Shortcut control(std::string letter);
  static Shortcut controlShift(std::string letter);
  bool matches(const KeyEvent& event) const;
  std::string text() const;  // as a menu shows it: "Ctrl+Shift+Z"
  bool operator==(const Shortcut&) const = default;

  Key key;
  std::string letter = {};  // in lower case, of Key::character
  Modifiers modifiers = {};
};

// Positive y scrolls towards the end of the content. Points, already scaled by the host.
struct WheelEvent {
  Point position;
  double deltaX = 0;
  double deltaY = 0;
};

enum class Cursor : unsigned char {
  arrow,
  pointingHand,
  crosshair,
  text,
  resizeDiagonal,
  resizeDiagonalBack,
  resizeHorizontal,
  resizeVertical,
  grab
};

// What a drag over the window carries.
struct DropInfo {
  Point location{};                  // in points of the view that takes it
  std::vector<std::string> types{};  // "public.file-url", "public.url", "public.utf8-plain-text"
  DragItems items{};  // none until the drop; then those of a type that the view takes
};

// A place to drop: `types` lists what is taken.
struct DropTarget {
  std::vector<std::string> types;
  std::function<void(bool inside)> onTargeted = nullptr;  // may be null
  std::function<bool(const DropInfo&)> onDrop = nullptr;  // returns whether the drop was taken
};

// A drag with the primary button: begins when the pointer has moved by minimumDistance.
struct DragValue {
  Point startLocation;
  Point location;
  Size translation() const { return {location.x - startLocation.x, location.y - startLocation.y}; }
  bool operator==(const DragValue&) const = default;
};

struct DragGesture {
  double minimumDistance = 10;
  std::function<void(const DragValue&)> onChanged = nullptr;
  std::function<void(const DragValue&)> onEnded = nullptr;
  std::function<void()> onCancelled = nullptr;  // taken away: window left, view gone, disabled
};

}  // namespace zq
