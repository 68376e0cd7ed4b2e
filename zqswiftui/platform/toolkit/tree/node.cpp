// ZQSwiftUI, MIT licence; see LICENSE.
#include <cmath>
#include <limits>
#include <zqswiftui/platform/toolkit/accessibility.hpp>
#include <zqswiftui/platform/toolkit/tree/items.hpp>
#include <zqswiftui/platform/toolkit/tree/node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

constexpr std::size_t kMostMeasured = 30;
constexpr double kNotGiven = std::numeric_limits<double>::quiet_NaN();

bool sameLength(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

}  // namespace

Node::Node(const NodePlace& place)
    : tree_(place.tree),
      parent_(place.parent),
      view_(place.view),
      environment_(place.parent ? place.parent->childEnvironment() : place.tree.environment()),
      id_(place.tree.newNodeId()),
      depth_(place.parent ? place.parent->depth() + 1 : 0) {}

Node::~Node() {
  tree_.forget(*this);
}

std::unique_ptr<Node> Node::create(const View& view, Tree& tree, Node* parent) {
  if (view.empty()) return nullptr;
  auto node = view.value()->makeNode({tree, parent, view});
  ++tree.counts().nodesCreated;
  node->mount();
  return node;
}

void Node::reconcile(std::unique_ptr<Node>& child, const View& next) {
  if (child) {
    if (child->view_.value() == next.value()) return;
    if (child->view_.typeId() == next.typeId() && child->accepts(next)) {
      child->update(next);
      child->view_ = next;
      return;
    }
    if (child->placed_) child->damageAll();
    tree_.willRemove(*child);
    child.reset();
  } else if (next.empty()) {
    return;
  }
  child = create(next, tree_, this);
  invalidateBounds();
  invalidateMeasure();
}

bool Node::isIn(const Node& subtree) const {
  const Node* node = this;
  while (node && node != &subtree) node = node->parent_;
  return node != nullptr;
}

void Node::setEnvironment(const EnvironmentPtr& environment) {
  if (environment_ == environment || *environment_ == *environment) {
    return;
  }
  const EnvironmentPtr old = environment_;
  const EnvironmentPtr oldForChildren = childEnvironment();
  environment_ = environment;
  if (old->layoutDirection != environment->layoutDirection) layoutDirty_ = true;
  // Hover and gestures end on what is disabled.
  if (old->enabled != environment->enabled) {
    tree_.visibilityMayHaveChanged();
    tree_.contentChanged();
  }
  environmentChanged(*old);
  const EnvironmentPtr forChildren = childEnvironment();
  if (forChildren == oldForChildren) return;
  forEachChild([&](Node& child) { child.setEnvironment(forChildren); });
}

Size Node::measure(const ProposedSize& proposal) {
  const double width = proposal.width ? *proposal.width : kNotGiven;
  const double height = proposal.height ? *proposal.height : kNotGiven;
  if (const Size* known = knownSize(width, height)) return *known;
  Size size = computeSize(proposal);
  size = {sanitized(size.width), sanitized(size.height)};
  remember({width, height, size});
  return size;
}

const Size* Node::knownSize(double width, double height) const {
  const auto find = [&](const Measured* begin, std::size_t count) -> const Size* {
    for (const Measured* m = begin; m != begin + count; ++m) {
      if (sameLength(m->width, width) && sameLength(m->height, height)) return &m->size;
    }
    return nullptr;
  };
  if (const Size* known = find(measured_.data(), measuredCount_)) return known;
  return moreMeasured_ ? find(moreMeasured_->data(), moreMeasured_->size()) : nullptr;
}

// Stacks ask each child for its least, its most and its share on either axis. Each of these must
// be kept: one that is forgotten is asked for again at every level of a deep nesting.
void Node::remember(const Measured& measured) {
  if (measuredCount_ < measured_.size()) {
    measured_[measuredCount_++] = measured;
    return;
  }
  if (!moreMeasured_) moreMeasured_ = std::make_unique<std::vector<Measured>>();
  if (moreMeasured_->size() >= kMostMeasured) moreMeasured_->erase(moreMeasured_->begin());
  moreMeasured_->push_back(measured);
}

void Node::place(const Rect& frame, const ProposedSize& proposal) {
  const bool resized = !placed_ || frame.size() != frame_.size();
  const bool moved = !placed_ || frame.origin() != frame_.origin();
  if (moved || resized) noteMove(frame, resized);
  const bool offeredOther = !(proposal == proposal_);
  proposal_ = proposal;
  if (resized) sizeChanged();
  if (!resized && !layoutDirty_ && !offeredOther) return;
  layoutDirty_ = false;
  tree_.placingChildrenOf(nullptr);
  layoutChildren();
}

void Node::noteMove(const Rect& next, bool resized) {
  tree_.placingChildrenOf(parent_);
  const bool moved = placed_ && next.origin() != frame_.origin();
  const bool other = moved || (resized && sizeShapesContent());
  if (placed_ && other) damageAll();
  if (placed_ && !other && resized) damageOwn();
  if (moved) turnTo(next.origin());
  const bool whole = other || !placed_;
  frame_ = next;
  placed_ = true;
  invalidateBounds();
  tree_.damageAfterLayout(*this, whole);
}

const std::optional<Animation>& Node::animation() const {
  static const std::optional<Animation> none;
  return environment_->reducedMotion ? none : tree_.animation();
}

void Node::turnTo(Point goal) {
  const std::optional<Animation>& animation = this->animation();
  if (!motion_ && !animation) return;
  const double now = tree_.now();
  // A length that is on its way moves the goals of its neighbours, and does not end their ways.
  if (motion_ && tree_.stepping()) return void(motion_->to = goal);
  const Point shown = motion_ ? motion_->shown(now) : frame_.origin();
  const bool listed = motion_ != nullptr;
  if (!listed) motion_ = std::make_unique<Motion<Point>>();
  *motion_ = animation ? Motion<Point>{shown, goal, now, *animation} : Motion<Point>::at(goal, now);
  if (!listed) tree_.animate(*this);
}

void Node::invalidateMeasure() {
  Node* child = nullptr;
  for (Node* node = this; node; child = node, node = node->parent_) {
    if (child) node->childInvalidated(*child);
    if (node->layoutDirty_ && node->measuredCount_ == 0 && node != this) return;
    node->clearMeasured();
    node->layoutDirty_ = true;
    // A fixed size stands whatever is inside of it, but not when it is the size that changes.
    if ((child || !node->parent_) && node->sizeIsFixed()) return tree_.addLayoutRoot(*node);
  }
}

void Node::invalidatePlacement() {
  layoutDirty_ = true;
  if (placed_) tree_.addLayoutRoot(*this);
}

void Node::relayout() {
  // One that was never placed has no size yet: whoever places it lays it out.
  if (!layoutDirty_ || !placed_) return;
  layoutDirty_ = false;
  tree_.placingChildrenOf(nullptr);
  layoutChildren();
}

void Node::collectItems(ItemSink&) {}

Point Node::motionOffset() const {
  if (!motion_) return {};
  const Point shown = motion_->shown(tree_.now());
  return {shown.x - frame_.x, shown.y - frame_.y};
}

// --- Record and play ---

void Node::paintChildren(PaintPass& pass, Point origin) {
  forEachChild([&](Node& child) { paintChild(child, pass, origin); });
}

void Node::paintChildrenUnculled(PaintPass& pass, Point origin) {
  Region everything;
  everything.add({-1e9, -1e9, 2e9, 2e9});
  PaintPass all{pass.canvas, everything, pass.opacity};
  paintChildren(all, origin);
}

void Node::paintChild(Node& child, PaintPass& pass, Point origin) {
  const Point moving = child.motionOffset();
  const Point at{origin.x + child.frame_.x + moving.x, origin.y + child.frame_.y + moving.y};
  if (pass.meets(child.bounds().offsetBy(at))) child.paint(pass, at);
}

PlayState Node::playState(const PaintPass& pass, Point origin) const {
  return {origin, environment_->colorScheme, environment_->layoutDirection, pass.opacity};
}

const Rect& Node::bounds() {
  if (boundsDirty_) {
    boundsDirty_ = false;
    bounds_ = computeBounds();
  }
  return bounds_;
}

Rect Node::computeBounds() {
  Rect all;
  forEachChild([&](Node& child) { all = unite(all, mapFromChild(child, child.bounds())); });
  return unite(ownBounds(), clipOfChildren(all));
}

void Node::invalidateBounds() {
  for (Node* node = this; node && !node->boundsDirty_; node = node->parent_) {
    node->boundsDirty_ = true;
  }
}

void Node::damageAll() {
  Node* inside = ownBounds().empty() ? soleInk() : nullptr;
  inside ? inside->damageAll() : tree_.damage(*this, bounds());
}

void Node::damageOwn() {
  tree_.damage(*this, ownBounds());
}

Rect Node::mapFromChild(const Node& child, const Rect& rect) const {
  const Point moving = child.motionOffset();
  return rect.offsetBy({child.frame_.x + moving.x, child.frame_.y + moving.y});
}

Point Node::mapToChild(const Node& child, Point point) const {
  const Point moving = child.motionOffset();
  return {point.x - child.frame_.x - moving.x, point.y - child.frame_.y - moving.y};
}

Rect Node::toWindow(const Rect& rect) const {
  Rect mapped = rect;
  for (const Node* node = this; node->parent_; node = node->parent_) {
    mapped = node->parent_->mapFromChild(*node, mapped);
  }
  return mapped;
}

Point Node::fromWindow(Point point) const {
  return parent_ ? parent_->mapToChild(*this, parent_->fromWindow(point)) : point;
}

Rect Node::visibleRect() const {
  if (!parent_) return localBounds();
  Rect outer = parent_->visibleRect();
  if (parent_->clipsChildren()) outer = intersection(outer, parent_->localBounds());
  const Point start = parent_->mapToChild(*this, outer.origin());
  const Point end = parent_->mapToChild(*this, {outer.maxX(), outer.maxY()});
  return {start.x, start.y, end.x - start.x, end.y - start.y};
}

bool Node::canBeSeen() const {
  if (!tree_.visible()) return false;
  // What has no size is not even placed by the containers around it.
  if (localBounds().empty()) return parent_ && parent_->canBeSeen();
  return !intersection(localBounds(), visibleRect()).empty();
}

// --- Input ---

void Node::bringInSight(Rect rect) {
  for (Node* node = this; node->parent_; node = node->parent_) {
    node->parent_->reveal(node->parent_->mapFromChild(*node, rect));
    rect = node->parent_->mapFromChild(*node, rect);  // where it is now
  }
}

void Node::countPress(int change) {
  for (Node* node = this; node; node = node->parent_) node->pressCount_ += change;
}

bool Node::hitTest(Point point, HitPath& path) {
  if (!admits(point)) return false;
  if (hitChildren(point, path) || (takesPointer() && localBounds().contains(point))) {
    path.push_back({this, point});
    return true;
  }
  return false;
}

bool Node::hitChildren(Point point, HitPath& path) {
  std::vector<Node*> children;
  forEachChild([&](Node& child) { children.push_back(&child); });
  for (auto it = children.rbegin(); it != children.rend(); ++it) {
    if (hitChild(**it, point, path)) return true;
  }
  return false;
}

bool Node::hitChild(Node& child, Point point, HitPath& path) {
  return child.hitTest(child.parent_->mapToChild(child, point), path);
}

void Node::describe(std::vector<AccessibilityNode>& out) {
  forEachChild([&](Node& child) { child.describe(out); });
}

std::string Node::symbolText() {
  std::string first;
  forEachChild([&](Node& child) {
    if (first.empty()) first = child.symbolText();
  });
  return first;
}

std::string Node::accessibleText() {
  std::string all;
  forEachChild([&](Node& child) {
    const std::string text = child.accessibleText();
    if (text.empty()) return;
    if (!all.empty()) all += ' ';
    all += text;
  });
  return all;
}

}  // namespace zq
