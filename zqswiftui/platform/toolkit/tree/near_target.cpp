// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <zqswiftui/platform/toolkit/events.hpp>
#include <zqswiftui/platform/toolkit/tree/near_target.hpp>
#include <zqswiftui/platform/toolkit/tree/responder.hpp>
#include <zqswiftui/platform/toolkit/tree/root_node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

constexpr double kReach = kLeastTarget / 2;

struct Near {
  Node* node;
  Rect shown;  // in the window
  double distance;
};

Rect squareAround(const Rect& shown) {
  return {shown.midX() - kReach, shown.midY() - kReach, kLeastTarget, kLeastTarget};
}

bool isSmallTarget(const Rect& shown) {
  return shown.width < kLeastTarget || shown.height < kLeastTarget;
}

// Those with the point in their squares. Goes down only where there is something to press and
// something of a view, drawn or laid out, is within reach of the point.
class NearSearch {
 public:
  explicit NearSearch(Point inWindow) : window_(inWindow) {}

  void look(Node& node, Point point, double reach) {
    const bool within = node.localBounds().insetBy(-reach).contains(point) ||
                        node.bounds().insetBy(-reach).contains(point);
    if (!within || !node.admits(point)) return;
    node.forEachChild([&](Node& child) {
      if (!child.holdsPresses()) return;
      const Point there = node.mapToChild(child, point);
      const double scaled = node.mapToChild(child, {point.x + reach, point.y}).x - there.x;
      look(child, there, scaled);
    });
    const Responder* r = node.responder();
    if (r && r->wantsPress() && node.environment().enabled) consider(node);
  }

  std::vector<Near> nearestFirst() {
    const auto nearer = [](const Near& a, const Near& b) { return a.distance < b.distance; };
    std::stable_sort(found_.begin(), found_.end(), nearer);
    return std::move(found_);
  }

 private:
  void consider(Node& node) {
    const Rect shown = node.toWindow(node.localBounds());
    if (!isSmallTarget(shown) || !squareAround(shown).contains(window_)) return;
    found_.push_back(
        {&node, shown, std::hypot(window_.x - shown.midX(), window_.y - shown.midY())});
  }

  Point window_;
  std::vector<Near> found_;
};

// Whether the place of the target that is nearest to the point is hit there.
bool isUncovered(Tree& tree, const Near& target, Point inWindow) {
  const Rect local = intersection(target.node->localBounds(), target.node->visibleRect());
  const Rect seen = intersection(target.node->toWindow(local), tree.root().localBounds());
  if (seen.empty()) return false;
  // A hair within: the ends of a rectangle are no part of it.
  const double dx = std::min(0.5, seen.width / 2), dy = std::min(0.5, seen.height / 2);
  HitPath path;
  tree.root().hitTest({std::clamp(inWindow.x, seen.x + dx, seen.maxX() - dx),
                       std::clamp(inWindow.y, seen.y + dy, seen.maxY() - dy)},
                      path);
  return std::any_of(path.begin(), path.end(),
                     [&](const Hit& hit) { return hit.node == target.node; });
}

}  // namespace

bool reaches(const Node& target, Point inWindow) {
  if (target.localBounds().contains(target.fromWindow(inWindow))) return true;
  const Rect shown = target.toWindow(target.localBounds());
  return isSmallTarget(shown) && squareAround(shown).contains(inWindow);
}

Node* nearTarget(Tree& tree, Point inWindow, const HitPath& exact) {
  const Node* focusable = nullptr;  // a press inside of it that nothing takes gives it the focus
  for (const Hit& hit : exact) {
    const Responder* r = hit.node->responder();
    if (!r) continue;
    if (r->wantsPress() || r->pressAction() || r->dragGesture()) return nullptr;
    if (!focusable && r->focusable()) focusable = hit.node;
  }
  Node* const bubble = tree.popovers().top();
  Node* const layer = bubble ? bubble : tree.root().content();
  if (!layer || (bubble && !bubble->frame().contains(inWindow))) return nullptr;
  NearSearch search(inWindow);
  search.look(*layer, tree.root().mapToChild(*layer, inWindow), kReach);
  for (const Near& near : search.nearestFirst()) {
    if (focusable && !near.node->isIn(*focusable)) continue;
    if (isUncovered(tree, near, inWindow)) return near.node;
  }
  return nullptr;
}

}  // namespace zq
