// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <utility>
#include <vector>
#include <zqswiftui/platform/toolkit/for_each.hpp>
#include <zqswiftui/platform/toolkit/tree/component_node.hpp>
#include <zqswiftui/platform/toolkit/tree/items.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

using detail::ForEachSource;

class ForEachNode;

class ForEachValue final : public ViewValue {
 public:
  explicit ForEachValue(Shared<const ForEachSource> givenSource) : source(std::move(givenSource)) {}
  // Lists of other items or children are other views.
  const void* typeId() const override { return source->type(); }
  bool equals(const ViewValue& other) const override {
    const auto& o = *static_cast<const ForEachValue&>(other).source;
    return source->size() == o.size() && source->commonPrefix(o) == o.size();
  }
  std::unique_ptr<Node> makeNode(const NodePlace& place) const override;
  Shared<const ForEachSource> source;
};

// A key of the list before.
struct Place {
  std::size_t hash;
  std::size_t index;     // none when it is taken
  std::ptrdiff_t taken;  // in the first one of a hash: so many from here on are
};

// Which old child each new one continues, for the part where the lists differ.
std::vector<std::size_t> matchKeys(const ForEachSource& now, const ForEachSource& before,
                                   std::size_t first, std::size_t nowEnd, std::size_t beforeEnd) {
  std::vector<Place> places;
  places.reserve(beforeEnd - first);
  for (std::size_t j = first; j < beforeEnd; ++j) places.push_back({before.keyHash(j), j, 0});
  std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) {
    return a.hash != b.hash ? a.hash < b.hash : a.index < b.index;
  });
  std::vector<std::size_t> from(nowEnd - first, ItemArray::npos);
  for (std::size_t i = first; i < nowEnd; ++i) {
    const std::size_t hash = now.keyHash(i);
    const auto head =
        std::lower_bound(places.begin(), places.end(), hash,
                         [](const Place& place, std::size_t h) { return place.hash < h; });
    if (head == places.end() || head->hash != hash) continue;
    for (auto p = head + head->taken; p != places.end() && p->hash == hash; ++p) {
      if (p->index == ItemArray::npos || !now.sameKey(i, before, p->index)) continue;
      from[i - first] = std::exchange(p->index, ItemArray::npos);
      if (p == head + head->taken) ++head->taken;
      break;
    }
  }
  return from;
}

class ForEachNode final : public Node, private ItemArray::Source {
 public:
  explicit ForEachNode(const NodePlace& place)
      : Node(place), items_(*this, *this, ItemArray::Keep::whileVisible) {}

  void mount() override {
    items_.append(source().size());
    tree().addVisibilityListener(*this, [this](const Rect& visible) { items_.showOnly(visible); });
  }
  void update(const View& next) override;
  void forEachChild(const NodeVisitor& visit) override { items_.forEachNode(visit); }
  void paint(PaintPass& pass, Point origin) override { items_.paint(pass, origin); }
  bool hitTest(Point point, HitPath& path) override { return hitItems(items_, *this, point, path); }
  bool hasMemory() const override { return true; }
  bool isGroup() const override { return true; }
  void collectItems(ItemSink& sink) override {
    collected_ = true;
    sink.add(items_, 0, items_.size());
  }
  std::string debugName() const override { return "ForEach"; }
  void describe(std::vector<AccessibilityNode>& out) override {
    items_.keepAll();  // a screen reader comes back with the ids that it was told
    Node::describe(out);
  }

 protected:
  Size computeSize(const ProposedSize& proposal) override;
  void layoutChildren() override;
  void childInvalidated(Node& child) override { items_.invalidated(child); }
  void environmentChanged(const Environment& old) override {
    // Children without a node cannot say that their texts are of another size now.
    if (old.font == environment().font && old.lineLimit == environment().lineLimit &&
        old.custom == environment().custom) {
      return;
    }
    items_.forgetSizes();
    invalidateMeasure();
  }
  Rect computeBounds() override {
    const Rect painted = items_.bounds();
    return items_.isVirtual() ? unite(items_.frames(), painted) : painted;
  }

 private:
  const ForEachSource& source() const {
    return *static_cast<const ForEachValue&>(*view().value()).source;
  }
  View viewOf(std::size_t i) const override { return source().makeView(i); }

  ItemArray items_;
  bool collected_ = false;  // by a container, which then places the children
};

std::unique_ptr<Node> ForEachValue::makeNode(const NodePlace& place) const {
  return std::make_unique<ForEachNode>(place);
}

void ForEachNode::update(const View& next) {
  const View was = view();
  const ForEachSource& before = source();
  setView(next);
  const ForEachSource& now = source();
  const std::size_t first = now.commonPrefix(before);
  if (first == now.size() && first == before.size()) return;
  const std::size_t tail = now.commonSuffix(before, first);
  const std::size_t nowEnd = now.size() - tail, beforeEnd = before.size() - tail;
  bool inPlace = nowEnd == beforeEnd;
  for (std::size_t i = first; inPlace && i < nowEnd; ++i) inPlace = now.sameKey(i, before, i);
  if (inPlace) {
    for (std::size_t i = first; i < nowEnd; ++i) {
      if (now.sameLook(i, before, i)) continue;
      const View child = items_.nodeAt(i) ? now.makeView(i) : View();
      items_.changed(i, &child);
    }
    return;
  }
  const auto from = matchKeys(now, before, first, nowEnd, beforeEnd);
  items_.splice(first, beforeEnd - first, from);
  for (std::size_t i = first; i < nowEnd; ++i) {
    const std::size_t old = from[i - first];
    if (old == ItemArray::npos || now.sameLook(i, before, old)) continue;
    const View child = items_.nodeAt(i) ? now.makeView(i) : View();
    items_.changed(i, &child);
  }
  invalidateBounds();
  invalidateMeasure();
  tree().contentChanged();
}

// Outside of a container: one below the other, at the preferred distance.
Size ForEachNode::computeSize(const ProposedSize& proposal) {
  Size all;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const Size s = items_.sizeFor(i, {proposal.width, std::nullopt});
    all.width = std::max(all.width, s.width);
    all.height += s.height + (i > 0 ? kPreferredSpacing : 0);
  }
  return all;
}

void ForEachNode::layoutChildren() {
  if (collected_) return;
  items_.beginPlacing(frame().width, rightToLeft());
  const ProposedSize offer{proposal().width, std::nullopt};
  double y = 0;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    const Size s = items_.sizeFor(i, offer);
    items_.placeAt(i, {(frame().width - s.width) / 2, y}, s, offer);
    y += s.height + kPreferredSpacing;
  }
}

}  // namespace

View detail::forEachView(Shared<const ForEachSource> source) {
  return View::make<ForEachValue>(std::move(source));
}

}  // namespace zq
