// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/text_canvas.hpp>
#include <zqswiftui/platform/toolkit/tree/responder.hpp>
#include <zqswiftui/platform/toolkit/tree/root_node.hpp>
#include <zqswiftui/platform/toolkit/tree/text_field_node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>
#include <zqswiftui/platform/toolkit/view_host.hpp>

namespace zq {
namespace {

Node* findNode(Node& node, std::uint64_t id) {
  if (node.id() == id) return &node;
  Node* found = nullptr;
  node.forEachChild([&](Node& child) {
    if (!found) found = findNode(child, id);
  });
  return found;
}

void collectFields(Node& node, std::vector<TextFieldState>& fields) {
  const Responder* r = node.responder();
  if (r && r->isTextField()) fields.push_back(static_cast<TextFieldNode&>(node).state());
  node.forEachChild([&](Node& child) { collectFields(child, fields); });
}

// The node of that id with its responder, where it takes input.
Node* inputNode(Tree& tree, std::uint64_t id) {
  Node* node = findNode(tree.root(), id);
  return node && node->responder() && node->environment().enabled ? node : nullptr;
}

}  // namespace

ViewHost::ViewHost(View root, HostDelegate& delegate)
    : tree_(std::make_unique<Tree>(std::move(root), delegate)) {
  tree_->requestFrame();
}
ViewHost::~ViewHost() = default;

void ViewHost::setRoot(View root) {
  tree_->setRoot(root);
}
void ViewHost::setSize(Size size) {
  tree_->setSize(size);
}
Size ViewHost::size() const {
  return tree_->root().frame().size();
}
Size ViewHost::sizeThatFits(const ProposedSize& p) {
  return tree_->sizeThatFits(p);
}
void ViewHost::setAppearance(const AppearanceValues& v) {
  tree_->setAppearance(v);
}
void ViewHost::fontsChanged() {
  tree_->fontsChanged();
}
void ViewHost::setWindowActive(bool active) {
  tree_->pointer().setWindowActive(active);
}
void ViewHost::setVisible(bool visible) {
  tree_->setVisible(visible);
}

bool ViewHost::needsFrame() const {
  return tree_->needsFrame();
}
bool ViewHost::animating() const {
  return tree_->animating();
}
void ViewHost::frame() {
  tree_->frame();
}
const Region& ViewHost::damage() const {
  return tree_->damageRegion();
}
void ViewHost::clearDamage() {
  tree_->damageRegion().clear();
}
void ViewHost::paint(Canvas& canvas, const Region& region) {
  tree_->paint(canvas, region);
}
void ViewHost::paintAll(Canvas& canvas) {
  Region all;
  all.add(tree_->root().localBounds());
  tree_->paint(canvas, all);
}

bool ViewHost::pointerDown(Point p, PointerButton b, int clicks, Modifiers) {
  return tree_->pointer().down(p, b, clicks);
}
bool ViewHost::pointerMove(Point p, Modifiers) {
  return tree_->pointer().move(p);
}
bool ViewHost::pointerUp(Point p, PointerButton b, Modifiers) {
  return tree_->pointer().up(p, b);
}
void ViewHost::pointerLeft() {
  tree_->pointer().left();
}
std::uint64_t ViewHost::pressTarget(Point p) const {
  const Node* const node = tree_->pointer().pressTarget(p);
  return node ? node->id() : 0;
}
bool ViewHost::wheel(const WheelEvent& e) {
  return tree_->pointer().wheel(e);
}
bool ViewHost::key(const KeyEvent& e) {
  return tree_->focus().key(e);
}

void ViewHost::focusIn(bool fromKeyboard, bool last) {
  tree_->focus().setWindowFocused(true);
  if (!fromKeyboard) return;
  tree_->focus().set(nullptr, FocusController::Ring::hidden);
  tree_->focus().next(last);
}
void ViewHost::focusOut() {
  tree_->focus().setWindowFocused(false);
}
bool ViewHost::focusNext(bool backwards) {
  return tree_->focus().next(backwards);
}

void ViewHost::cancelGestures() {
  tree_->pointer().cancelGestures();
}
bool ViewHost::dragMoved(const DropInfo& info) {
  return tree_->pointer().dragMoved(info);
}
void ViewHost::dragLeft() {
  tree_->pointer().dragLeft();
}
std::vector<std::string> ViewHost::dropTypes(const DropInfo& info) const {
  return tree_->pointer().dropTypes(info);
}
bool ViewHost::drop(const DropInfo& info) {
  return tree_->pointer().drop(info);
}

std::vector<TextFieldState> ViewHost::textFields() const {
  std::vector<TextFieldState> fields;
  // The view comes first, then the bubbles, each above all before it.
  tree_->root().forEachChild([&](Node& layer) {
    const Rect over = layer.toWindow(layer.localBounds());
    for (TextFieldState& under : fields) {
      const Rect covered = intersection(under.clip, over);
      if (!covered.empty()) under.covered.push_back(covered);
    }
    collectFields(layer, fields);
  });
  return fields;
}
void ViewHost::fieldEdited(std::uint64_t id, const std::string& text) {
  if (Node* node = inputNode(*tree_, id)) node->responder()->edited(text);
}
void ViewHost::fieldSubmitted(std::uint64_t id) {
  if (Node* node = inputNode(*tree_, id)) node->responder()->submitted();
}
void ViewHost::fieldFocused(std::uint64_t id) {
  if (Node* node = inputNode(*tree_, id)) {
    tree_->focus().set(node, FocusController::Ring::shown);
  }
}

AccessibilityNode ViewHost::accessibilityTree() {
  AccessibilityNode root;
  root.id = tree_->root().id();
  root.role = Role::window;
  root.bounds = tree_->root().localBounds();
  tree_->root().describe(root.children);
  return root;
}
std::uint64_t ViewHost::accessibilityVersion() const {
  return tree_->accessibilityVersion();
}
bool ViewHost::accessibilityPress(std::uint64_t id) {
  Node* node = inputNode(*tree_, id);
  if (!node || !node->responder()->wantsPress()) return false;
  node->responder()->pressed();
  return true;
}
bool ViewHost::accessibilityFocus(std::uint64_t id) {
  Node* node = inputNode(*tree_, id);
  if (!node || !node->responder()->focusable()) return false;
  tree_->focus().set(node, FocusController::Ring::shown);
  return true;
}
void ViewHost::accessibilitySetNumber(std::uint64_t id, double number) {
  std::vector<Node*> around;  // the outermost one that says something of it is heard
  for (Node* node = findNode(tree_->root(), id); node; node = node->parent()) {
    around.push_back(node);
  }
  while (!around.empty() && !around.back()->setNumber(id, number)) around.pop_back();
}
bool ViewHost::accessibilitySetValue(std::uint64_t id, const std::string& value) {
  Node* node = inputNode(*tree_, id);
  if (!node || !node->responder()->isTextField()) return false;
  node->responder()->edited(value);
  return true;
}

std::string ViewHost::displayListText() {
  TextCanvas canvas;
  paintAll(canvas);
  return canvas.text();
}
WorkCounts ViewHost::counts() const {
  WorkCounts counts = tree_->counts();
  counts.textsMeasured = tree_->texts().measured();
  return counts;
}

}  // namespace zq
