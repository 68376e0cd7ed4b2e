// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <utility>
#include <zqswiftui/platform/toolkit/tree/focus.hpp>
#include <zqswiftui/platform/toolkit/tree/responder.hpp>
#include <zqswiftui/platform/toolkit/tree/root_node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

void collect(Node& node, std::vector<Node*>& stops) {
  const Responder* r = node.responder();
  if (r && r->focusable() && node.environment().enabled) stops.push_back(&node);
  node.forEachChild([&](Node& child) { collect(child, stops); });
}

// The first node in here that can be pressed.
Node* firstPressable(Node& node) {
  const Responder* r = node.responder();
  if (r && r->wantsPress() && node.environment().enabled) return &node;
  Node* found = nullptr;
  node.forEachChild([&](Node& child) {
    if (!found) found = firstPressable(child);
  });
  return found;
}

Node* shortcutTarget(Node& node, Key key) {
  const Responder* r = node.responder();
  if (r && r->shortcut() == key) {
    if (Node* target = firstPressable(node)) return target;
  }
  Node* found = nullptr;
  node.forEachChild([&](Node& child) {
    if (!found) found = shortcutTarget(child, key);
  });
  return found;
}

}  // namespace

std::vector<Node*> FocusController::stops() const {
  std::vector<Node*> all;
  collect(tree_.root(), all);
  return all;
}

void FocusController::set(Node* node, Ring ring) {
  const bool shown = ring == Ring::shown;
  if (node == focused_ && shown == ring_) return;
  Node* before = std::exchange(focused_, node);
  ring_ = shown;
  tree_.contentChanged();
  if (before && before != node) before->responder()->focusChanged(false, false);
  if (!node) return;
  node->responder()->focusChanged(true, shown);
  if (!shown) return;
  Rect rect = node->localBounds();
  for (Node* n = node; n->parent(); n = n->parent()) {
    rect = n->parent()->mapFromChild(*n, rect);
    n->parent()->reveal(rect);
  }
}

bool FocusController::next(bool backwards) {
  std::vector<Node*> all = stops();
  if (backwards) std::reverse(all.begin(), all.end());
  auto it = std::find(all.begin(), all.end(), focused_);
  if (it == all.end()) {
    it = all.begin();
  } else {
    ++it;
  }
  if (it == all.end()) {
    set(nullptr, Ring::hidden);
    return false;
  }
  set(*it, Ring::shown);
  return true;
}

bool FocusController::pressShortcut(Key key) {
  Node* target = shortcutTarget(tree_.root(), key);
  if (target) target->responder()->pressed();
  return target != nullptr;
}

bool FocusController::key(const KeyEvent& event) {
  for (Node* node = focused_; node; node = node->parent()) {
    Responder* r = node->responder();
    if (r && node->environment().enabled && r->key(event)) return true;
  }
  if (focused_ && focused_->environment().enabled &&
      (event.key == Key::space || event.key == Key::enter) && focused_->responder()->wantsPress()) {
    focused_->responder()->pressed();
    return true;
  }
  if (event.key == Key::tab) return next(event.modifiers.shift);
  if (event.key == Key::escape && tree_.popovers().dismissTop()) return true;
  return pressShortcut(event.key);
}

void FocusController::setWindowFocused(bool focused) {
  if (windowFocused_ == focused) return;
  windowFocused_ = focused;
  if (focused_) focused_->responder()->focusChanged(focused, focused && ring_);
}

void FocusController::forget(const Node& node) {
  if (focused_ == &node) focused_ = nullptr;
}

}  // namespace zq
