// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <utility>
#include <zqswiftui/platform/services/clock.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/platform/toolkit/tree/component_node.hpp>
#include <zqswiftui/platform/toolkit/tree/root_node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

// Callbacks of one frame may change states that call for another round; a host whose callbacks
// never settle gets its next round in the next frame.
constexpr int kMostRounds = 8;

}  // namespace

Tree::Tree(View root, HostDelegate& delegate)
    : delegate_(delegate),
      inbox_(std::make_shared<MarkInbox>(delegate)),
      environment_(std::make_shared<const Environment>()),
      now_(Platform::current().clock().now()),
      pointer_(*this),
      focus_(*this),
      popovers_(*this) {
  const View none;
  root_ = std::make_unique<RootNode>(NodePlace{*this, nullptr, none});
  root_->setContent(root);
}

Tree::~Tree() {
  inbox_->close();
  visible_ = false;
  later_.clear();
  root_->setContent(View());
  runLater();  // the views' farewells
}

void Tree::setRoot(const View& view) {
  nextRoot_ = view;
  requestFrame();
}

void Tree::setSize(Size size) {
  const Size next{sanitized(size.width), sanitized(size.height)};
  if (next == root_->frame().size()) return;
  root_->place(Rect::of({}, next));
  damage_.add(root_->localBounds());
  visibilityDirty_ = true;
  requestFrame();
}

void Tree::setAppearance(const AppearanceValues& values) {
  Environment next = *environment_;
  next.colorScheme = values.colorScheme;
  next.layoutDirection = values.layoutDirection;
  next.reducedMotion = values.reducedMotion;
  next.textScale = boundedTextScale(values.textScale);
  if (next == *environment_) return;
  const bool turned = next.layoutDirection != environment_->layoutDirection;
  environment_ = std::make_shared<const Environment>(std::move(next));
  root_->forEachChild([&](Node& child) { child.setEnvironment(environment_); });
  if (turned) root_->invalidatePlacement();
  damage_.add(root_->localBounds());
  requestFrame();
}

void Tree::fontsChanged() {
  texts_.forget();
  measureAgain(*root_);
  addLayoutRoot(*root_);
  damage_.add(root_->localBounds());
}

void Tree::measureAgain(Node& node) {
  node.clearMeasured();
  node.layoutDirty_ = true;
  node.invalidatePicture();
  node.forEachChild([&](Node& child) {
    node.childInvalidated(child);
    measureAgain(child);
  });
}

void Tree::setVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  pointer_.setVisible(visible);
  visibilityDirty_ = true;
  if (visible || !visibility_.empty()) requestFrame();
}

bool Tree::needsFrame() const {
  return inbox_->pending();
}

void Tree::frame() {
  inbox_->beginFrame();
  inFrame_ = true;
  ++counts_.frames;
  // What is on its way was painted where it stood at the time of the last frame.
  for (const Animated& a : animated_) a.node->damageAll();
  now_ = Platform::current().clock().now();
  if (nextRoot_) {
    applyRoot();
    layout();
  }
  tickAnimations();
  stepping_ = true;
  layout();
  stepping_ = false;
  for (int round = 0; round < kMostRounds; ++round) {
    const bool changed = applyMarks();
    if (!changed && later_.empty()) break;
    runLater();
  }
  tellVisibility();
  inFrame_ = false;
  inbox_->endFrame(nextRoot_ || !later_.empty() || !layoutRoots_.empty() || !placed_.empty());
}

void Tree::tickAnimations() {
  // Ticks may start and end animations, and nodes may go: the list is a member while it runs.
  ticking_ = std::exchange(animated_, {});
  for (std::size_t i = 0; i < ticking_.size(); ++i) {
    if (!ticking_[i].node || !ticking_[i].tick(now_)) continue;
    if (ticking_[i].node) animated_.push_back(std::move(ticking_[i]));
  }
  ticking_.clear();
}

void Tree::animate(Node& node, Tick tick) {
  node.listed_ = true;
  animated_.push_back({&node, std::move(tick)});
  requestFrame();
}

void Tree::animate(Node& node) {
  animate(node, [this, &node](double now) {
    const bool over = !node.motion() || node.motion()->over(now);
    if (over) node.endMotion();
    node.invalidateBounds();
    if (node.parent()) node.parent()->invalidateBounds();
    node.damageAll();
    visibilityDirty_ = true;
    return !over;
  });
}

void Tree::applyRoot() {
  if (const auto next = std::exchange(nextRoot_, std::nullopt)) root_->setContent(*next);
}

bool Tree::applyMarks() {
  MarkInbox::Batch batch = inbox_->take();
  if (batch.empty() && layoutRoots_.empty()) return false;
  evaluate(batch.plain);
  layout();
  for (auto& [animation, marks] : batch.animated) {
    if (!environment_->reducedMotion && animation.duration() > 0) animation_ = animation;
    // What a view hands on to those inside that read it changes by the same animation.
    withAnimation(animation, [&] { evaluate(marks); });
    layout();
    animation_.reset();
  }
  return true;
}

void Tree::evaluate(std::vector<std::shared_ptr<detail::ViewMark>>& marks) {
  std::erase_if(marks, [](const auto& mark) { return mark->node() == nullptr; });
  // Parents first: evaluating one may make or end the children that wait as well.
  std::stable_sort(marks.begin(), marks.end(), [](const auto& a, const auto& b) {
    return a->node()->depth() < b->node()->depth();
  });
  for (const auto& mark : marks) {
    if (ComponentNode* node = mark->node(); node && mark->due()) node->evaluate();
  }
  if (!marks.empty()) contentChanged();
}

void Tree::addLayoutRoot(Node& node) {
  if (std::find(layoutRoots_.begin(), layoutRoots_.end(), &node) == layoutRoots_.end()) {
    layoutRoots_.push_back(&node);
    node.listed_ = true;
    requestFrame();
  }
}

void Tree::layout() {
  if (layoutRoots_.empty() && placed_.empty()) return;
  layingOut_ = true;
  while (!layoutRoots_.empty()) {
    const auto top =
        std::min_element(layoutRoots_.begin(), layoutRoots_.end(),
                         [](const Node* a, const Node* b) { return a->depth() < b->depth(); });
    Node* node = *top;
    layoutRoots_.erase(top);
    node->relayout();
  }
  popovers_.place();
  damagePlaced();
  layingOut_ = false;
  visibilityDirty_ = true;
  contentChanged();
}

// By the time a rectangle is mapped to the window, everything above it stands.
void Tree::damagePlaced() {
  placingChildrenOf(nullptr);
  for (const Placed& p : std::exchange(placed_, {})) {
    if (!p.node) continue;
    p.node->placedAt_ = -1;
    placingChildrenOf(p.node->parent());
    p.whole ? p.node->damageAll() : p.node->damageOwn();
  }
  placingChildrenOf(nullptr);
}

void Tree::runLater() {
  for (std::size_t n = later_.size(); n > 0 && !later_.empty(); --n) {
    const std::function<void()> work = std::move(later_.front().work);
    later_.pop_front();
    work();
  }
}

void Tree::addVisibilityListener(Node& node, std::function<void(const Rect&)> listener) {
  visibility_.push_back({&node, std::move(listener)});
  node.listed_ = true;
  visibilityDirty_ = true;
}

void Tree::tellVisibility() {
  if (!visibilityDirty_) return;
  visibilityDirty_ = false;
  for (std::size_t i = 0; i < visibility_.size(); ++i) {
    visibility_[i].listener(visibility_[i].node->visibleRect());
  }
  popovers_.place();  // their anchors may have been scrolled, or be on their way
  layout();
  visibilityDirty_ = false;
  pointer_.refresh();
  focus_.refresh();
}

// --- Damage ---

void Tree::damage(const Node& node, const Rect& localRect) {
  if (localRect.empty()) return;
  const Rect rect = inWindow(node, localRect);
  if (rect.empty()) return;
  damage_.add(rect);
  requestFrame();
}

// What of a node's rectangle the clips around it leave.
Rect Tree::inWindow(const Node& node, const Rect& localRect) {
  Rect rect = localRect;
  for (const Node* n = &node; n->parent(); n = n->parent()) {
    const Node& around = *n->parent();
    rect = around.mapFromChild(*n, rect);
    if (&around == ground_.parent && findGround()) {
      return intersection(rect.offsetBy(ground_.offset), ground_.clip);
    }
    if (around.clipsChildren()) rect = intersection(rect, around.localBounds());
    if (rect.empty()) return {};
  }
  return intersection(rect, root_->localBounds());
}

bool Tree::findGround() {
  if (ground_.known) return ground_.moved;
  const Node& parent = *ground_.parent;
  const Rect one = parent.toWindow(Rect{0, 0, 1, 1});
  ground_.known = true;
  ground_.moved = one.width == 1 && one.height == 1;
  ground_.offset = one.origin();
  ground_.clip = parent.clipOfChildren(parent.visibleRect()).offsetBy(ground_.offset);
  return ground_.moved;
}

void Tree::damageAfterLayout(Node& node, bool whole) {
  if (node.placedAt_ >= 0) {
    Placed& known = placed_[static_cast<std::size_t>(node.placedAt_)];
    known.whole = known.whole || whole;
    return;
  }
  node.placedAt_ = static_cast<int>(placed_.size());
  placed_.push_back({&node, whole});
}

void Tree::paint(Canvas& canvas, const Region& region) {
  PaintPass pass{canvas, region, 1};
  root_->paint(pass, {});
  counts_.textsMeasured = texts_.measured();
}

Size Tree::sizeThatFits(const ProposedSize& proposal) {
  applyRoot();
  applyMarks();
  return root_->content() ? root_->content()->measure(proposal) : Size{};
}

std::vector<Node*> Tree::takeEvaluated() {
  if (!evaluated_) evaluated_ = std::make_unique<std::vector<Node*>>();
  return std::exchange(*evaluated_, {});
}

// --- Removal ---

void Tree::willRemove(Node& node) {
  pointer_.willRemove(node);
  if (node.parent()) focus_.goOnFrom(node, *node.parent());
  contentChanged();
}

// Called for every node that goes: a long list may lose all of its nodes in one frame, so what
// names few of them is searched only for those.
void Tree::forget(const Node& node) {
  if (node.placedAt_ >= 0) placed_[static_cast<std::size_t>(node.placedAt_)].node = nullptr;
  if (ground_.parent == &node) ground_ = {};
  pointer_.forget(node);
  focus_.forget(node);
  popovers_.forget(node);
  if (!node.listed_) return;
  for (Animated& a : ticking_) {
    if (a.node == &node) a.node = nullptr;
  }
  std::erase_if(later_, [&](const Later& l) { return l.node == &node; });
  std::erase_if(animated_, [&](const Animated& a) { return a.node == &node; });
  std::erase(layoutRoots_, &node);
  if (evaluated_) std::erase(*evaluated_, &node);
  std::erase_if(visibility_, [&](const VisibilityListener& v) { return v.node == &node; });
}

}  // namespace zq
