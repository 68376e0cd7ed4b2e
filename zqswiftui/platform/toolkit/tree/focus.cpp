// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <utility>
#include <zqswiftui/platform/toolkit/tree/focus.hpp>
#include <zqswiftui/platform/toolkit/tree/responder.hpp>
#include <zqswiftui/platform/toolkit/tree/root_node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

// The places of Tab in the order of the tree, and how many of them lie before one node.
struct Stops {
  std::vector<Node*> nodes;
  std::size_t before = 0;
};

void collect(Node& node, const Node* place, Stops& stops) {
  if (&node == place) stops.before = stops.nodes.size();
  const Responder* r = node.responder();
  if (r && r->focusable() && node.environment().enabled) stops.nodes.push_back(&node);
  node.forEachChild([&](Node& child) { collect(child, place, stops); });
}

// The first node in here that can be pressed, or typed into.
Node* firstTaker(Node& node) {
  const Responder* r = node.responder();
  const bool takes = r && (r->wantsPress() || r->isTextField());
  if (takes && node.environment().enabled) return &node;
  Node* found = nullptr;
  node.forEachChild([&](Node& child) {
    if (!found) found = firstTaker(child);
  });
  return found;
}

void pressOrFocus(Node& node) {
  if (!node.responder()->isTextField()) return node.responder()->pressed();
  node.tree().focus().set(&node, FocusController::Ring::shown);
}

// What the first view that knows the shortcut does by it.
std::function<void()> shortcutAction(Node& node, const KeyEvent& event) {
  const Responder* r = node.responder();
  if (r && r->shortcut() && r->shortcut()->matches(event) && node.environment().enabled) {
    if (const auto* action = r->shortcutAction()) return *action;
    if (Node* target = firstTaker(node)) return [target] { pressOrFocus(*target); };
  }
  std::function<void()> found;
  node.forEachChild([&](Node& child) {
    if (!found) found = shortcutAction(child, event);
  });
  return found;
}

bool offerKey(Node& node, const KeyEvent& event) {
  Responder* r = node.responder();
  if (r && node.environment().enabled && r->bubbleKey(event)) return true;
  std::vector<Node*> children;  // the key may change the tree
  node.forEachChild([&](Node& child) { children.push_back(&child); });
  return std::any_of(children.begin(), children.end(),
                     [&](Node* child) { return offerKey(*child, event); });
}

}  // namespace

void FocusController::enter(Node& within) {
  Stops stops;
  collect(within, nullptr, stops);
  if (!stops.nodes.empty()) set(stops.nodes.front(), Ring::shown);
}

void FocusController::set(Node* node, Ring ring) {
  const bool shown = ring == Ring::shown;
  lost_ = nullptr;
  if (node == focused_ && shown == ring_) return;
  Node* before = std::exchange(focused_, node);
  ring_ = shown;
  tree_.contentChanged();
  if (before && before != node) before->responder()->focusChanged(false, false);
  if (before != node) {
    moved(before);
    moved(node);
  }
  if (!node) return;
  node->responder()->focusChanged(true, shown);
  if (shown) node->bringInSight(node->localBounds());
}

bool FocusController::isIn(const Node& node) const {
  return windowFocused_ && focused_ && focused_->isIn(node);
}

void FocusController::moved(Node* from) {
  for (Node* node = from; node; node = node->parent()) {
    if (Responder* r = node->responder()) r->focusMoved();
  }
}

bool FocusController::next(bool backwards) {
  const Node* place = focused_ ? focused_ : lost_;
  Stops stops;
  // A bubble that has places of its own keeps Tab to them while it is open.
  Node* bubble = tree_.popovers().top();
  if (bubble) collect(*bubble, place, stops);
  if (stops.nodes.empty()) {
    collect(tree_.root(), place, stops);
  } else if (place && !place->isIn(*bubble)) {
    place = nullptr;
  }
  const std::size_t count = stops.nodes.size();
  // Of what can be reached no longer, the first place behind it is the next one.
  std::size_t next = backwards ? stops.before - 1 : stops.before;
  if (!backwards && next < count && stops.nodes[next] == focused_) ++next;
  if (!place) next = backwards ? count - 1 : 0;
  if (next >= count) {  // also below the first
    set(nullptr, Ring::hidden);
    return false;
  }
  set(stops.nodes[next], Ring::shown);
  return true;
}

void FocusController::giveUp(Node& place) {
  set(nullptr, Ring::hidden);
  lost_ = &place;
}

void FocusController::refresh() {
  if (focused_ && !focused_->environment().enabled) giveUp(*focused_);
}

void FocusController::comeBack(const Node& subtree, Node* before, Node& other) {
  const bool inside = focused_ && focused_->isIn(subtree);
  if (!inside || !before || !before->environment().enabled) return goOnFrom(subtree, other);
  set(before, ring_ ? Ring::shown : Ring::hidden);
}

void FocusController::goOnFrom(const Node& subtree, Node& other) {
  const Node* place = focused_ ? focused_ : lost_;
  if (place && place->isIn(subtree)) giveUp(other);
}

bool FocusController::pressShortcut(Node& within, const KeyEvent& event) {
  const std::function<void()> action = shortcutAction(within, event);
  if (action) action();
  return action != nullptr;
}

// The focused view and those around it, then a press of it.
bool FocusController::pressFocused(const KeyEvent& event) {
  for (Node* node = focused_; node; node = node->parent()) {
    Responder* r = node->responder();
    if (r && node->environment().enabled && r->key(event)) return true;
  }
  if (event.key == Key::menu) return openMenu();
  const bool presses = event.key == Key::space || event.key == Key::enter;
  if (!presses || !focused_ || !focused_->environment().enabled) return false;
  if (!focused_->responder()->wantsPress()) return false;
  focused_->responder()->pressed();
  return true;
}

bool FocusController::openMenu() {
  for (Node* node = focused_; node; node = node->parent()) {
    const Responder* r = node->responder();
    if (!r || !r->secondaryTap() || !node->environment().enabled) continue;
    const Rect place = focused_->localBounds();
    const auto action = *r->secondaryTap();  // it may end this view
    action(node->fromWindow(focused_->toWindow({place.x, place.maxY(), 0, 0}).origin()));
    return true;
  }
  return false;
}

bool FocusController::key(const KeyEvent& event) {
  Node* bubble = tree_.popovers().top();
  Node& layer = bubble ? *bubble : tree_.root();
  const auto pressLayer = [&] {
    if (pressShortcut(layer, event)) return true;
    return event.key == Key::escape && tree_.popovers().dismissTop();
  };
  // A bubble comes before what has the focus behind it; what lies behind keeps no shortcuts.
  const bool first = bubble && !(focused_ && focused_->isIn(*bubble));
  if (first && (pressLayer() || offerKey(*bubble, event))) return true;
  if (pressFocused(event)) return true;
  if (event.key == Key::tab) return next(event.modifiers.shift);
  return !first && pressLayer();
}

void FocusController::setWindowFocused(bool focused) {
  if (windowFocused_ == focused) return;
  windowFocused_ = focused;
  if (focused_) focused_->responder()->focusChanged(focused, focused && ring_);
  moved(focused_);
}

void FocusController::forget(const Node& node) {
  if (focused_ == &node) focused_ = nullptr;
  if (lost_ == &node) lost_ = nullptr;
}

}  // namespace zq
