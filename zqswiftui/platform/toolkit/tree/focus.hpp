// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <vector>
#include <zqswiftui/platform/toolkit/events.hpp>
#include <zqswiftui/platform/toolkit/tree/node.hpp>

namespace zq {

// Where the keyboard goes in one tree. The order of Tab is that of the tree.
class FocusController {
 public:
  // A ring is drawn where the focus came from the keyboard.
  enum class Ring : unsigned char { hidden, shown };

  explicit FocusController(Tree& tree) : tree_(tree) {}

  Node* focused() const { return focused_; }
  bool showsRing(const Node& node) const { return focused_ == &node && windowFocused_ && ring_; }
  bool isIn(const Node& node) const;  // in a window that has it
  void set(Node* node, Ring ring);
  void enter(Node& within);   // its first place, where it has one
  bool next(bool backwards);  // false at the end: nothing is focused then
  bool key(const KeyEvent& event);
  void setWindowFocused(bool focused);
  void refresh();  // what has the focus may be disabled now
  // The subtree goes: where it has the focus, or had it last, Tab goes on from the other node.
  void goOnFrom(const Node& subtree, Node& other);
  // The same of a subtree for which the focus was taken from `before`, which gets it back.
  void comeBack(const Node& subtree, Node* before, Node& other);
  void forget(const Node& node);

 private:
  static void moved(Node* from);  // tells those around it
  void giveUp(Node& place);
  bool pressFocused(const KeyEvent& event);
  bool openMenu();
  bool pressShortcut(Node& within, const KeyEvent& event);

  Tree& tree_;
  Node* focused_ = nullptr;
  Node* lost_ = nullptr;  // where the focus was given up: Tab goes on from here
  bool ring_ = false;
  bool windowFocused_ = false;
};

}  // namespace zq
