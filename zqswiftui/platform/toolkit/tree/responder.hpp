// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/events.hpp>

namespace zq {

// What a node does with input. The controllers ask the nodes on a path for theirs, the
// front-most first.
class Responder {
 public:
  virtual ~Responder() = default;

  virtual bool wantsHover() const { return false; }
  virtual void hoverChanged(bool /*inside*/) {}
  // What is left to tell when the node goes while the pointer is on it.
  virtual std::function<void()> hoverFarewell() const { return nullptr; }

  virtual bool wantsPress() const { return false; }
  virtual void pressChanged(bool /*down*/) {}
  virtual void pressed() {}  // released inside, or by key or screen reader

  virtual const std::function<void(int)>* pressAction() const { return nullptr; }
  virtual const std::function<void(Point)>* secondaryTap() const { return nullptr; }
  virtual const DragGesture* dragGesture() const { return nullptr; }
  virtual const DropTarget* dropTarget() const { return nullptr; }
  virtual bool wheel(const WheelEvent&) { return false; }
  virtual std::optional<Cursor> cursor() const { return std::nullopt; }
  virtual const std::string* help() const { return nullptr; }

  virtual bool focusable() const { return false; }
  virtual void focusChanged(bool /*focused*/, bool /*ring*/) {}
  virtual void focusMoved() {}  // into this subtree, or out of it
  virtual bool key(const KeyEvent&) { return false; }
  // What a bubble does with a key while the focus is behind it.
  virtual bool bubbleKey(const KeyEvent&) { return false; }
  virtual const Shortcut* shortcut() const { return nullptr; }
  // None: what is inside is pressed.
  virtual const std::function<void()>* shortcutAction() const { return nullptr; }
  virtual bool isTextField() const { return false; }
  virtual void edited(const std::string& /*text*/) {}
  virtual void submitted() {}
};

}  // namespace zq
