// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <zqswiftui/platform/toolkit/tree/component_node.hpp>
#include <zqswiftui/platform/toolkit/tree/items.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

bool subtreeHasMemory(Node& node) {
  if (node.hasMemory() || node.motion()) return true;
  bool found = false;
  node.forEachChild([&](Node& child) { found = found || subtreeHasMemory(child); });
  return found;
}

}  // namespace

Node& ItemArray::materialize(std::size_t i) {
  std::unique_ptr<Node>& node = nodes_[i];
  if (!node) {
    node = Node::create(source_.viewOf(i), owner_.tree(), &owner_);
    if (!node) node = Node::create(emptyPlace(), owner_.tree(), &owner_);
    node->slot_ = static_cast<int>(i);
    ++live_;
    noteLive(i);
    owner_.invalidateBounds();
  }
  return *node;
}

const Size& ItemArray::idealSize(std::size_t i) {
  if (!idealKnown_[i]) {
    ideal_[i] = materialize(i).measure(ProposedSize::unspecified());
    idealKnown_[i] = 1;
    --unknown_;
    if (isVirtual() && live_ > kKeptWhileMeasuring) retire(i);
  }
  return ideal_[i];
}

std::span<const Size> ItemArray::idealSizes() {
  for (std::size_t i = 0; unknown_ > 0 && i < nodes_.size(); ++i) {
    if (!idealKnown_[i]) idealSize(i);
  }
  return ideal_;
}

Size ItemArray::sizeFor(std::size_t i, const ProposedSize& proposal) {
  if (proposal == ProposedSize::unspecified()) return idealSize(i);
  if (Node* node = nodes_[i].get()) return node->measure(proposal);
  if (!isVirtual()) return materialize(i).measure(proposal);
  if (!(proposal == otherProposal_) || other_.size() != nodes_.size()) {
    otherProposal_ = proposal;
    other_.assign(nodes_.size(), {});
    otherKnown_.assign(nodes_.size(), 0);
  }
  if (!otherKnown_[i]) {
    other_[i] = materialize(i).measure(proposal);
    otherKnown_[i] = 1;
    if (live_ > kKeptWhileMeasuring) retire(i);
  }
  return other_[i];
}

void ItemArray::placeAt(std::size_t i, Point origin, const Size& size,
                        const ProposedSize& proposal) {
  if (mirrored_) origin.x = width_ - origin.x - size.width;
  positions_[i] = origin;
  placedSizes_[i] = size;
  framesKnown_ = false;
  if (Node* node = nodes_[i].get()) node->place(Rect::of(origin, size), proposal);
}

void ItemArray::placeIdeal(std::size_t first, std::span<const Point> origins) {
  const std::size_t end = first + origins.size();
  for (std::size_t i = first; unknown_ > 0 && i < end; ++i) idealSize(i);
  std::copy_n(ideal_.begin() + static_cast<std::ptrdiff_t>(first), origins.size(),
              placedSizes_.begin() + static_cast<std::ptrdiff_t>(first));
  for (std::size_t i = first; i < end; ++i) {
    const Point at = origins[i - first];
    positions_[i] = {mirrored_ ? width_ - at.x - ideal_[i].width : at.x, at.y};
  }
  framesKnown_ = false;
  for (std::size_t i = std::max(first, liveBegin_); i < std::min(end, liveEnd_); ++i) {
    if (Node* node = nodes_[i].get()) node->place(frameOf(i), ProposedSize::unspecified());
  }
}

void ItemArray::append(std::size_t count) {
  const std::size_t n = nodes_.size() + count;
  nodes_.resize(n);
  ideal_.resize(n);
  idealKnown_.resize(n);
  positions_.resize(n);
  placedSizes_.resize(n);
  unknown_ += count;
  framesKnown_ = false;
}

void ItemArray::clear() {
  for (std::size_t i = 0; i < nodes_.size(); ++i) {
    if (nodes_[i]) owner_.tree().willRemove(*nodes_[i]);
  }
  nodes_.clear();
  ideal_.clear();
  idealKnown_.clear();
  positions_.clear();
  placedSizes_.clear();
  other_.clear();
  live_ = unknown_ = liveBegin_ = liveEnd_ = 0;
  framesKnown_ = false;
}

namespace {

// Puts `made` in the place of v[first, first + oldCount).
template <class T>
void replaceRange(std::vector<T>& v, std::size_t first, std::size_t oldCount, std::vector<T> made) {
  const auto begin = v.begin() + static_cast<std::ptrdiff_t>(first);
  const std::size_t common = std::min(oldCount, made.size());
  std::move(made.begin(), made.begin() + static_cast<std::ptrdiff_t>(common), begin);
  const auto rest = begin + static_cast<std::ptrdiff_t>(common);
  if (made.size() > common) {
    v.insert(rest, std::make_move_iterator(made.begin() + static_cast<std::ptrdiff_t>(common)),
             std::make_move_iterator(made.end()));
  } else {
    v.erase(rest, rest + static_cast<std::ptrdiff_t>(oldCount - common));
  }
}

}  // namespace

void ItemArray::splice(std::size_t first, std::size_t oldCount, std::span<const std::size_t> from) {
  const std::size_t newCount = from.size();
  std::vector<std::unique_ptr<Node>> nodes(newCount);
  std::vector<Size> ideal(newCount), placed(newCount);
  std::vector<unsigned char> known(newCount, 0);
  std::vector<Point> positions(newCount);
  for (std::size_t k = 0; k < newCount; ++k) {
    const std::size_t old = from[k];
    if (old == npos) {
      ++unknown_;
      continue;
    }
    nodes[k] = std::move(nodes_[old]);
    ideal[k] = ideal_[old];
    known[k] = idealKnown_[old];
    positions[k] = positions_[old];
    placed[k] = placedSizes_[old];
    idealKnown_[old] = 1;  // taken: not to be counted below
  }
  for (std::size_t i = first; i < first + oldCount; ++i) {
    if (!idealKnown_[i]) --unknown_;
    if (!nodes_[i]) continue;
    nodes_[i]->damageAll();
    owner_.tree().willRemove(*nodes_[i]);
    nodes_[i].reset();
    --live_;
  }
  replaceRange(nodes_, first, oldCount, std::move(nodes));
  replaceRange(ideal_, first, oldCount, std::move(ideal));
  replaceRange(idealKnown_, first, oldCount, std::move(known));
  replaceRange(positions_, first, oldCount, std::move(positions));
  replaceRange(placedSizes_, first, oldCount, std::move(placed));
  other_.clear();
  framesKnown_ = false;
  liveBegin_ = std::min(liveBegin_, first);
  liveEnd_ = std::max(liveEnd_, first + oldCount) + newCount - oldCount;
  renumber(first);
}

void ItemArray::renumber(std::size_t first) {
  for (std::size_t i = first; i < liveEnd_; ++i) {
    if (nodes_[i]) nodes_[i]->slot_ = static_cast<int>(i);
  }
}

void ItemArray::changed(std::size_t i, const View* next) {
  if (Node* node = nodes_[i].get()) {
    owner_.reconcile(nodes_[i], *next);
    if (!nodes_[i]) nodes_[i] = Node::create(emptyPlace(), owner_.tree(), &owner_);
    if (nodes_[i].get() != node) {
      nodes_[i]->slot_ = static_cast<int>(i);
      invalidated(*nodes_[i]);
    }
    return;
  }
  if (idealKnown_[i]) ++unknown_;
  idealKnown_[i] = 0;
  if (i < otherKnown_.size()) otherKnown_[i] = 0;
  owner_.invalidateMeasure();
}

void ItemArray::invalidated(const Node& child) {
  if (child.slot_ < 0) return;
  const auto i = static_cast<std::size_t>(child.slot_);
  if (i >= nodes_.size() || nodes_[i].get() != &child) return;
  if (idealKnown_[i]) ++unknown_;
  idealKnown_[i] = 0;
  if (i < otherKnown_.size()) otherKnown_[i] = 0;
}

void ItemArray::keepAll() {
  keep_ = Keep::always;
  for (std::size_t i = 0; i < nodes_.size(); ++i) {
    if (!nodes_[i]) materialize(i).place(frameOf(i), ProposedSize::unspecified());
  }
}

void ItemArray::forEachNode(const NodeVisitor& visit) {
  for (std::size_t i = liveBegin_; i < liveEnd_; ++i) {
    if (nodes_[i]) visit(*nodes_[i]);
  }
}

void ItemArray::retire(std::size_t i) {
  if (subtreeHasMemory(*nodes_[i])) return;
  owner_.tree().willRemove(*nodes_[i]);
  nodes_[i].reset();
  --live_;
}

void ItemArray::showOnly(const Rect& visible) {
  const double right = visible.maxX(), bottom = visible.maxY();
  std::size_t begin = nodes_.size(), end = 0;
  for (std::size_t i = 0; i < nodes_.size(); ++i) {
    const Point& at = positions_[i];
    const Size& size = placedSizes_[i];
    const bool shows = at.y < bottom && visible.y < at.y + size.height && at.x < right &&
                       visible.x < at.x + size.width;
    if (shows && !nodes_[i]) {
      materialize(i).place(frameOf(i), ProposedSize::unspecified());
    } else if (!shows && nodes_[i] && isVirtual()) {
      retire(i);
    }
    if (!nodes_[i]) continue;
    begin = std::min(begin, i);
    end = i + 1;
  }
  liveBegin_ = std::min(begin, end);
  liveEnd_ = end;
}

const Rect& ItemArray::frames() {
  if (framesKnown_) return frames_;
  framesKnown_ = true;
  double right = 0, bottom = 0, left = INFINITY, top = INFINITY;
  for (std::size_t i = 0; i < positions_.size(); ++i) {
    left = std::min(left, positions_[i].x);
    top = std::min(top, positions_[i].y);
    right = std::max(right, positions_[i].x + placedSizes_[i].width);
    bottom = std::max(bottom, positions_[i].y + placedSizes_[i].height);
  }
  const bool any = left < right && top < bottom;
  frames_ = any ? Rect{left, top, right - left, bottom - top} : Rect{};
  return frames_;
}

Rect ItemArray::bounds() {
  constexpr double kSlack = 0.01;  // what is lost by reckoning with other corners
  runsBegin_ = liveBegin_;
  runs_.assign((liveEnd_ - liveBegin_ + kRun - 1) / kRun, Rect{});
  Rect all;
  for (std::size_t i = liveBegin_; i < liveEnd_; ++i) {
    Node* node = nodes_[i].get();
    if (!node) continue;
    const Rect painted = owner_.Node::mapFromChild(*node, node->bounds());
    all = unite(all, painted);
    Rect& run = runs_[(i - runsBegin_) / kRun];
    run = unite(run, unite(painted, owner_.Node::mapFromChild(*node, node->localBounds())));
  }
  for (Rect& run : runs_) run = run.insetBy(-kSlack);
  return all;
}

void ItemArray::paint(PaintPass& pass, Point origin) {
  owner_.bounds();
  for (std::size_t run = 0; run < runs_.size(); ++run) {
    if (!pass.meets(runs_[run].offsetBy(origin))) continue;
    const std::size_t first = runsBegin_ + run * kRun;
    for (std::size_t i = first; i < std::min(first + kRun, nodes_.size()); ++i) {
      if (nodes_[i]) Node::paintChild(*nodes_[i], pass, origin);
    }
  }
}

void ItemArray::forgetSizes() {
  std::fill(idealKnown_.begin(), idealKnown_.end(), static_cast<unsigned char>(0));
  unknown_ = nodes_.size();
  other_.clear();
}

bool ItemArray::hitTest(Point point, HitPath& path) {
  owner_.bounds();
  for (std::size_t run = runs_.size(); run-- > 0;) {
    if (!runs_[run].contains(point)) continue;
    const std::size_t first = runsBegin_ + run * kRun;
    for (std::size_t i = std::min(first + kRun, nodes_.size()); i-- > first;) {
      Node* node = nodes_[i].get();
      if (!node) continue;
      // What a child draws outside of its frame can be hit as well.
      const Point inside = owner_.Node::mapToChild(*node, point);
      if (!node->localBounds().contains(inside) && !node->bounds().contains(inside)) continue;
      if (node->hitTest(inside, path)) return true;
    }
  }
  return false;
}

bool hitItems(ItemArray& items, Node& owner, Point point, HitPath& path) {
  if (!items.hitTest(point, path)) return false;
  path.push_back({&owner, point});
  return true;
}

}  // namespace zq
