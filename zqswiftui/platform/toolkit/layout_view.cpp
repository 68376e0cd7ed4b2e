// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <typeinfo>
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/platform/toolkit/tree/component_node.hpp>
#include <zqswiftui/platform/toolkit/tree/items.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

class LayoutNode;

class LayoutValue final : public ViewValue {
 public:
  LayoutValue(Shared<const Layout> givenLayout, std::vector<View> givenChildren)
      : layout(std::move(givenLayout)), children(std::move(givenChildren)) {}
  const void* typeId() const override { return &detail::viewTypeId<LayoutValue>; }
  bool equals(const ViewValue& other) const override {
    const auto& o = static_cast<const LayoutValue&>(other);
    return sameLayout(o) && children == o.children;
  }
  bool sameLayout(const LayoutValue& o) const {
    const Layout &a = *layout, &b = *o.layout;
    return typeid(a) == typeid(b) && a.equals(b);
  }
  std::unique_ptr<Node> makeNode(const NodePlace& place) const override;

  Shared<const Layout> layout;
  std::vector<View> children;
};

class LayoutNode final : public Node, private ItemArray::Source {
 public:
  explicit LayoutNode(const NodePlace& place)
      : Node(place), items_(*this, *this, ItemArray::Keep::always) {}

  void mount() override {
    items_.append(value().children.size());
    for (std::size_t i = 0; i < items_.size(); ++i) items_.materialize(i);
  }
  void update(const View& next) override;
  void forEachChild(const NodeVisitor& visit) override { items_.forEachNode(visit); }
  void paint(PaintPass& pass, Point origin) override { items_.paint(pass, origin); }
  bool hitTest(Point point, HitPath& path) override { return hitItems(items_, *this, point, path); }
  std::string debugName() const override { return "Layout"; }

 protected:
  Size computeSize(const ProposedSize& proposal) override {
    const ItemSink sink = collect();
    return value().layout->sizeThatFits(proposal, Subviews(sink.parts, sink.count));
  }
  void layoutChildren() override;
  void childInvalidated(Node& child) override { items_.invalidated(child); }
  Rect computeBounds() override { return items_.bounds(); }

 private:
  const LayoutValue& value() const { return static_cast<const LayoutValue&>(*view().value()); }
  View viewOf(std::size_t i) const override {
    const View& child = value().children[i];
    return child.empty() ? emptyPlace() : child;
  }
  ItemSink collect();

  ItemArray items_;
};

std::unique_ptr<Node> LayoutValue::makeNode(const NodePlace& place) const {
  return std::make_unique<LayoutNode>(place);
}

ItemSink LayoutNode::collect() {
  ItemSink sink;
  const void* nothing = emptyPlace().typeId();
  for (std::size_t i = 0; i < items_.size(); ++i) {
    Node& child = items_.materialize(i);
    if (child.isGroup()) {
      child.collectItems(sink);
    } else if (!child.showsNothing()) {
      if (child.view().typeId() != nothing) sink.add(items_, i, 1);
    } else {
      // It is not placed. What has been measured tells those above when it comes to show something.
      child.measure(ProposedSize::exactly({}));
    }
  }
  return sink;
}

void LayoutNode::update(const View& next) {
  const bool sameLayout = value().sameLayout(static_cast<const LayoutValue&>(*next.value()));
  const std::size_t before = value().children.size();
  setView(next);
  if (!sameLayout) invalidateMeasure();
  const std::size_t now = value().children.size();
  const std::size_t common = std::min(before, now);
  for (std::size_t i = 0; i < common; ++i) {
    const View child = viewOf(i);
    items_.changed(i, &child);
  }
  if (before == now) return;
  const std::vector<std::size_t> added(now - common, ItemArray::npos);
  items_.splice(common, before - common, added);
  for (std::size_t i = common; i < items_.size(); ++i) items_.materialize(i);
  invalidateBounds();
  invalidateMeasure();
}

void LayoutNode::layoutChildren() {
  const ItemSink sink = collect();
  for (std::size_t i = 0; i < items_.size(); ++i) {
    Node& child = *items_.nodeAt(i);
    if (child.isGroup()) child.place(localBounds());
  }
  for (const Subviews::Part& part : sink.parts) {
    part.items->beginPlacing(frame().width, rightToLeft());
  }
  value().layout->placeSubviews(localBounds(), proposal(), Subviews(sink.parts, sink.count));
}

}  // namespace

LayoutView::operator View() const {
  return View::make<LayoutValue>(layout_, children_);
}

// --- Subviews ---

Subviews::Subviews(const std::vector<Part>& parts, std::size_t size) : parts_(parts), size_(size) {}

Subview Subviews::operator[](std::size_t index) const {
  ZQ_REQUIRE(index < size_, "Subviews: index out of range");
  for (const Part& part : parts_) {
    if (index < part.first + part.count) {
      return {*part.items, part.begin + (index - part.first)};
    }
  }
  return {*parts_.back().items, 0};
}

std::span<const Size> Subviews::idealSizes() const {
  if (parts_.size() == 1 && parts_[0].count == parts_[0].items->size()) {
    return parts_[0].items->idealSizes();
  }
  joined_.clear();
  for (const Part& part : parts_) {
    for (std::size_t i = 0; i < part.count; ++i) {
      joined_.push_back(part.items->idealSize(part.begin + i));
    }
  }
  return joined_;
}

void Subviews::placeIdeal(std::span<const Point> points) const {
  ZQ_REQUIRE(points.size() == size_, "Subviews: one point for each child");
  for (const Part& part : parts_) {
    part.items->placeIdeal(part.begin, points.subspan(part.first, part.count));
  }
}

Size Subview::sizeThatFits(const ProposedSize& proposal) const {
  return items_.sizeFor(index_, proposal);
}

double Subview::priority() const {
  const Node* node = items_.nodeAt(index_);
  return node ? node->priority() : 0;
}

bool Subview::spring(Axis axis) const {
  const Node* node = items_.nodeAt(index_);
  return node && node->spring(axis);
}

void Subview::place(Point point, UnitPoint anchor, const ProposedSize& proposal) const {
  const Size size = items_.sizeFor(index_, proposal);
  items_.placeAt(index_, {point.x - anchor.x * size.width, point.y - anchor.y * size.height}, size,
                 proposal);
}

}  // namespace zq
