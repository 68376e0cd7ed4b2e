// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <zqswiftui/platform/toolkit/tree/near_target.hpp>
#include <zqswiftui/platform/toolkit/tree/pointer.hpp>
#include <zqswiftui/platform/toolkit/tree/responder.hpp>
#include <zqswiftui/platform/toolkit/tree/root_node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

template <class T, class U>
bool contains(const std::vector<T>& all, const U& one) {
  return std::find(all.begin(), all.end(), one) != all.end();
}

// Those of the types that the target takes, in their order.
std::vector<std::string> typesFor(const DropTarget& target, const std::vector<std::string>& types) {
  std::vector<std::string> taken;
  for (const std::string& type : types) {
    if (contains(target.types, type)) taken.push_back(type);
  }
  return taken;
}

// The node's responder, where the node is not disabled.
Responder* enabledResponder(Node& node) {
  return node.environment().enabled ? node.responder() : nullptr;
}

}  // namespace

HitPath PointerController::hit(Point position) const {
  HitPath path;
  tree_.root().hitTest(position, path);
  return path;
}

HitPath PointerController::aimed(Point position) const {
  HitPath exact = hit(position);
  Node* const near = nearTarget(tree_, position, exact);
  if (!near) return exact;
  HitPath path;
  const auto isHit = [&](const Node* node) {
    return std::any_of(exact.begin(), exact.end(), [&](const Hit& h) { return h.node == node; });
  };
  for (Node* node = near; node && !isHit(node); node = node->parent()) {
    path.push_back({node, node->fromWindow(position)});
  }
  path.insert(path.end(), exact.begin(), exact.end());
  return path;
}

Node* PointerController::pressTarget(Point position) const {
  for (const Hit& h : aimed(position)) {
    const Responder* r = enabledResponder(*h.node);
    if (r && r->wantsPress()) return h.node;
  }
  return nullptr;
}

bool PointerController::down(Point position, PointerButton button, int clicks) {
  position_ = position;
  if (tree_.popovers().dismissedBy(position)) return true;
  if (button == PointerButton::secondary) return secondaryTap(position);
  if (button != PointerButton::primary) return false;
  if (press_ || drag_) cancelGestures();  // its release was lost
  const HitPath path = aimed(position);
  grabPath_.clear();
  for (const Hit& h : path) grabPath_.push_back(h.node);
  bool focusedSome = false;
  std::function<void(int)> told;
  for (const Hit& h : path) {
    Responder* r = enabledResponder(*h.node);
    if (!r) continue;
    const bool taken = told || press_ || drag_ || focusedSome;
    if (!taken && r->pressAction()) told = *r->pressAction();
    if (!press_ && r->wantsPress()) press_ = h.node;
    if (!drag_ && r->dragGesture()) {
      drag_ = h.node;
      dragStart_ = position;
    }
    if (!focusedSome && r->focusable()) {
      focusedSome = true;
      tree_.focus().set(h.node, FocusController::Ring::hidden);
    }
  }
  if (press_) {
    pressInside_ = true;
    press_->responder()->pressChanged(true);
  }
  if (told) told(clicks);
  if (drag_ && drag_->responder()->dragGesture()->minimumDistance <= 0) return move(position), true;
  return press_ || drag_ || focusedSome || told;
}

// Of the front-most view that has one; what can have the focus there gets it.
bool PointerController::secondaryTap(Point position) {
  Node* focusable = nullptr;
  Node* taking = nullptr;
  for (const Hit& h : hit(position)) {
    const Responder* r = enabledResponder(*h.node);
    if (!focusable && r && r->focusable()) focusable = h.node;
    if (!taking && r && r->secondaryTap()) taking = h.node;
  }
  if (!taking) return false;
  const Point local = taking->fromWindow(position);
  const auto action = *taking->responder()->secondaryTap();  // it may end this view
  if (focusable) tree_.focus().set(focusable, FocusController::Ring::hidden);
  action(local);
  return true;
}

DragValue PointerController::dragValue(Point position) const {
  return {drag_->fromWindow(dragStart_), drag_->fromWindow(position)};
}

bool PointerController::move(Point position) {
  position_ = position;
  if (drag_) {
    const DragGesture gesture = *drag_->responder()->dragGesture();
    const double distance = std::hypot(position.x - dragStart_.x, position.y - dragStart_.y);
    if (!dragging_ && distance >= gesture.minimumDistance) {
      dragging_ = true;
      endPress(false);
    }
    if (dragging_ && gesture.onChanged) gesture.onChanged(dragValue(position));
  }
  if (press_) {
    const bool inside = reaches(*press_, position);
    if (inside != pressInside_) {
      pressInside_ = inside;
      press_->responder()->pressChanged(inside);
    }
  }
  refresh();
  return press_ || drag_ || !hovered_.empty();
}

void PointerController::endPress(bool fire) {
  Node* node = std::exchange(press_, nullptr);
  if (!node) return;
  Responder* r = node->responder();
  if (pressInside_) r->pressChanged(false);
  if (fire && pressInside_ && node->environment().enabled) r->pressed();
}

bool PointerController::up(Point position, PointerButton button) {
  if (button != PointerButton::primary) return false;
  position_ = position;
  const bool had = press_ || drag_;
  if (drag_ && dragging_) {
    const DragGesture gesture = *drag_->responder()->dragGesture();
    const DragValue value = dragValue(position);
    drag_ = nullptr;
    dragging_ = false;
    if (gesture.onEnded) gesture.onEnded(value);
  }
  drag_ = nullptr;
  dragging_ = false;
  if (press_) pressInside_ = pressInside_ && reaches(*press_, position);
  endPress(true);
  grabPath_.clear();
  refresh();
  return had;
}

void PointerController::left() {
  position_.reset();
  refresh();
}

void PointerController::cancelDrag() {
  Node* node = std::exchange(drag_, nullptr);
  if (!node || !std::exchange(dragging_, false)) return;
  const DragGesture gesture = *node->responder()->dragGesture();
  if (gesture.onCancelled) gesture.onCancelled();
}

void PointerController::cancelGestures() {
  endPress(false);
  cancelDrag();
  grabPath_.clear();
  refresh();
}

void PointerController::setWindowActive(bool active) {
  active_ = active;
  if (active) return refresh();
  cancelGestures();
}

void PointerController::setVisible(bool visible) {
  visible_ = visible;
  if (visible) return refresh();
  dragLeft();
  cancelGestures();
}

void PointerController::refresh() {
  if (press_ && !press_->environment().enabled) endPress(false);
  if (drag_ && !drag_->environment().enabled) cancelDrag();
  if (targeted_ && !targeted_->environment().enabled) setTargeted(nullptr);
  HitPath path;
  if (position_ && active_ && visible_ && !dragging_ && !targeted_) path = aimed(*position_);
  std::vector<Node*> nodes;
  for (const Hit& h : path) {
    const Responder* r = enabledResponder(*h.node);
    if (!r || !r->wantsHover()) continue;
    if (!grabPath_.empty() && !contains(grabPath_, h.node)) continue;
    nodes.push_back(h.node);
  }
  setHovered(std::move(nodes));
  if (!dragging_) updateCursorAndHelp(path);
}

void PointerController::setHovered(std::vector<Node*> nodes) {
  if (nodes == hovered_) return;
  const std::vector<Node*> before = std::exchange(hovered_, nodes);
  for (Node* node : before) {
    if (!contains(nodes, node)) node->responder()->hoverChanged(false);
  }
  for (Node* node : nodes) {
    if (!contains(before, node) && contains(hovered_, node)) node->responder()->hoverChanged(true);
  }
}

void PointerController::updateCursorAndHelp(const HitPath& path) {
  std::optional<Cursor> cursor;
  const std::string* help = nullptr;
  Rect place;
  for (const Hit& h : path) {
    const Responder* r = h.node->responder();
    if (!r) continue;
    if (!cursor && h.node->environment().enabled) cursor = r->cursor();
    if (!help && r->help()) {
      help = r->help();
      place = h.node->toWindow(h.node->localBounds());
    }
  }
  if (cursor.value_or(Cursor::arrow) != cursor_) {
    cursor_ = cursor.value_or(Cursor::arrow);
    tree_.delegate().cursorChanged(cursor_);
  }
  const std::string text = help ? *help : std::string();
  if (text == help_) return;
  help_ = text;
  tree_.delegate().helpChanged(help_, place);
}

bool PointerController::wheel(const WheelEvent& event) {
  position_ = event.position;
  for (const Hit& h : hit(event.position)) {
    Responder* r = h.node->responder();
    if (r && r->wheel(event)) return true;
  }
  return false;
}

Node* PointerController::dropNode(const DropInfo& info, Point& local) const {
  for (const Hit& h : hit(info.location)) {
    const Responder* r = enabledResponder(*h.node);
    const DropTarget* target = r ? r->dropTarget() : nullptr;
    if (!target || typesFor(*target, info.types).empty()) continue;
    local = h.point;
    return h.node;
  }
  return nullptr;
}

std::vector<std::string> PointerController::dropTypes(const DropInfo& info) const {
  Point local;
  Node* node = dropNode(info, local);
  if (!node) return {};
  return typesFor(*node->responder()->dropTarget(), info.types);
}

void PointerController::setTargeted(Node* node) {
  if (node == targeted_) return;
  Node* before = std::exchange(targeted_, node);
  const auto tell = [](Node* n, bool inside) {
    const DropTarget target = *n->responder()->dropTarget();
    if (target.onTargeted) target.onTargeted(inside);
  };
  if (before) tell(before, false);
  if (node && targeted_ == node) tell(node, true);
}

bool PointerController::dragMoved(const DropInfo& info) {
  Point local;
  Node* node = visible_ ? dropNode(info, local) : nullptr;
  setTargeted(node);
  refresh();
  return node != nullptr;
}

void PointerController::dragLeft() {
  setTargeted(nullptr);
  refresh();
}

bool PointerController::drop(const DropInfo& info) {
  Point local;
  Node* node = dropNode(info, local);
  setTargeted(nullptr);
  bool taken = false;
  if (node) {
    const DropTarget target = *node->responder()->dropTarget();
    DropInfo here{local, info.types, info.items};
    std::erase_if(here.items,
                  [&](const auto& item) { return typesFor(target, item->types()).empty(); });
    taken = target.onDrop && target.onDrop(here);
  }
  refresh();
  return taken;
}

void PointerController::willRemove(const Node& subtree) {
  for (Node* node : hovered_) {
    if (!node->isIn(subtree)) continue;
    if (auto farewell = node->responder()->hoverFarewell()) tree_.later(std::move(farewell));
  }
  if (targeted_ && targeted_->isIn(subtree)) {
    const auto targeted = targeted_->responder()->dropTarget()->onTargeted;
    if (targeted) tree_.later([targeted] { targeted(false); });
  }
  if (drag_ && dragging_ && drag_->isIn(subtree)) {
    if (auto cancelled = drag_->responder()->dragGesture()->onCancelled) {
      tree_.later(std::move(cancelled));
    }
  }
}

void PointerController::forget(const Node& node) {
  std::erase(hovered_, &node);
  std::erase(grabPath_, &node);
  if (press_ == &node) press_ = nullptr;
  if (drag_ == &node) drag_ = nullptr, dragging_ = false;
  if (targeted_ == &node) targeted_ = nullptr;
}

}  // namespace zq
