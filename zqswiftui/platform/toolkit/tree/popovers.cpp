// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/tree/popovers.hpp>
#include <zqswiftui/platform/toolkit/tree/root_node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

constexpr double kAnchorGap = 4;  // between anchor and bubble
constexpr double kMargin = 4;     // to the window's edges
constexpr double kWidest = 320;

View bubbleAround(const View& content) {
  return content.padding(EdgeInsets::symmetric(12, 8))
      .background(RoundedRectangle(8).fill(Color::background()))
      .overlay(RoundedRectangle(8).stroke(Color::separator(), {.lineWidth = 1, .dash = {}}));
}

}  // namespace

Rect popoverFrame(const Rect& anchor, Size bubble, Size window, HorizontalAlignment alignment) {
  const double below = anchor.maxY() + kAnchorGap, above = anchor.y - kAnchorGap - bubble.height;
  const bool fitsBelow = below + bubble.height <= window.height - kMargin;
  double y = fitsBelow || above < kMargin ? below : above;
  double x = anchor.midX() - bubble.width / 2;
  if (alignment == HorizontalAlignment::leading) x = anchor.x;
  if (alignment == HorizontalAlignment::trailing) x = anchor.maxX() - bubble.width;
  x = std::max(kMargin, std::min(x, window.width - kMargin - bubble.width));
  y = std::max(kMargin, std::min(y, window.height - kMargin - bubble.height));
  return Rect::of({x, y}, bubble);
}

PopoverController::Bubble* PopoverController::find(const Node& anchor) {
  for (Bubble& b : bubbles_) {
    if (b.anchor == &anchor) return &b;
  }
  return nullptr;
}

void PopoverController::show(Node& anchor, const View& content, std::function<void()> dismiss,
                             HorizontalAlignment alignment) {
  if (find(anchor)) return update(anchor, content, std::move(dismiss));
  auto node = Node::create(bubbleAround(content), tree_, &tree_.root());
  node->setEnvironment(anchor.childEnvironment());
  bubbles_.push_back(
      {&anchor, std::move(node), std::move(dismiss), alignment, tree_.focus().focused()});
  tree_.root().invalidateBounds();
  tree_.root().invalidatePlacement();
  tree_.contentChanged();
}

void PopoverController::update(Node& anchor, const View& content, std::function<void()> dismiss) {
  Bubble* bubble = find(anchor);
  if (!bubble) return;
  bubble->dismiss = std::move(dismiss);
  tree_.root().reconcile(bubble->content, bubbleAround(content));
  bubble->content->setEnvironment(anchor.childEnvironment());
  tree_.root().invalidatePlacement();
}

void PopoverController::forget(const Node& node) {
  for (Bubble& b : bubbles_) {
    if (b.focusBefore == &node) b.focusBefore = nullptr;
  }
}

void PopoverController::hide(const Node& anchor) {
  Bubble* bubble = find(anchor);
  if (!bubble) return;
  bubble->content->damageAll();
  tree_.focus().comeBack(*bubble->content, bubble->focusBefore, *bubble->anchor);
  tree_.willRemove(*bubble->content);
  const auto node = std::move(bubble->content);  // goes after the list has lost it
  bubbles_.erase(bubbles_.begin() + (bubble - bubbles_.data()));
  tree_.root().invalidateBounds();
  tree_.visibilityMayHaveChanged();  // the pointer is over what it covered
  tree_.contentChanged();
}

void PopoverController::setEnvironment(const Node& anchor, const EnvironmentPtr& environment) {
  if (Bubble* bubble = find(anchor)) bubble->content->setEnvironment(environment);
}

bool PopoverController::dismissTop() {
  if (bubbles_.empty()) return false;
  const auto dismiss = bubbles_.back().dismiss;
  if (dismiss) dismiss();
  return true;
}

bool PopoverController::dismissedBy(Point position) {
  if (bubbles_.empty() || bubbles_.back().content->frame().contains(position)) return false;
  return dismissTop();
}

// The side on the screen, where the anchor's is leading and trailing.
HorizontalAlignment PopoverController::placed(const Bubble& bubble) {
  const bool mirrored =
      bubble.anchor->environment().layoutDirection == LayoutDirection::rightToLeft;
  if (!mirrored || bubble.alignment == HorizontalAlignment::center) return bubble.alignment;
  return bubble.alignment == HorizontalAlignment::leading ? HorizontalAlignment::trailing
                                                          : HorizontalAlignment::leading;
}

void PopoverController::place() {
  const Size window = tree_.root().frame().size();
  for (Bubble& b : bubbles_) {
    const double readable = kWidest * b.anchor->environment().textGrowth();
    const double widest = std::max(0.0, std::min(readable, window.width - 2 * kMargin));
    Size size = b.content->measure(ProposedSize::unspecified());
    if (size.width > widest) size = b.content->measure({widest, std::nullopt});
    const Rect anchor = b.anchor->toWindow(b.anchor->localBounds());
    b.content->place(popoverFrame(anchor, size, window, placed(b)));
  }
}

void PopoverController::forEachNode(const NodeVisitor& visit) {
  for (Bubble& b : bubbles_) visit(*b.content);
}

}  // namespace zq
