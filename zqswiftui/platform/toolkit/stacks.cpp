// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/tree/component_node.hpp>
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>

namespace zq {
namespace {

constexpr double kLengthRounding = 1e-6;  // of sums, in points

}  // namespace

HStack::HStack(std::vector<View> children) : HStack(Parameters{}, std::move(children)) {}

HStack::HStack(Parameters parameters, std::vector<View> children)
    : parameters_(parameters), children_(std::move(children)) {}

VStack::VStack(std::vector<View> children) : VStack(Parameters{}, std::move(children)) {}

VStack::VStack(Parameters parameters, std::vector<View> children)
    : parameters_(parameters), children_(std::move(children)) {}

ZStack::ZStack(std::vector<View> children, Alignment alignment)
    : alignment_(alignment), children_(std::move(children)) {}

std::vector<double> shareLength(double available, std::span<const StackItem> items,
                                const std::function<double(std::size_t, double)>& take) {
  std::vector<std::size_t> order(items.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto flexibility = [&](std::size_t i) { return items[i].most - items[i].least; };
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    if (items[a].priority != items[b].priority) return items[a].priority > items[b].priority;
    return flexibility(a) < flexibility(b);
  });
  std::vector<double> lengths(items.size(), 0);
  double left = available;
  double leastBelow = 0;  // what children of lower priority must have
  for (const StackItem& item : items) leastBelow += item.least;
  for (std::size_t k = 0; k < order.size(); ++k) {
    const double priority = items[order[k]].priority;
    std::size_t same = 0;
    double least = 0, most = 0;
    while (k + same < order.size() && items[order[k + same]].priority == priority) {
      least += items[order[k + same]].least;
      most += items[order[k + same]].most;
      ++same;
    }
    const double lower = std::max(0.0, leastBelow - least);
    double offer = std::max(0.0, (left - lower) / static_cast<double>(same));
    // Where there is room for the most of all that are left, none makes do with its share.
    if (most <= left - lower + kLengthRounding) offer = std::max(offer, items[order[k]].most);
    lengths[order[k]] = take(order[k], offer);
    left -= lengths[order[k]];
    leastBelow -= items[order[k]].least;
  }
  return lengths;
}

namespace {

// A stack along one axis; `cross` is the fraction of free room before a child across it.
class StackLayout final : public Layout {
 public:
  StackLayout(Axis axis, double cross, std::optional<double> spacing)
      : axis_(axis), cross_(cross), spacing_(spacing) {}

  Size sizeThatFits(const ProposedSize& proposal, const Subviews& subviews) const override {
    const Result r = compute(proposal, subviews);
    return make(r.length, r.breadth);
  }
  void placeSubviews(const Rect& bounds, const ProposedSize& proposal,
                     const Subviews& subviews) const override;
  bool equals(const Layout& other) const override {
    const auto& o = static_cast<const StackLayout&>(other);
    return axis_ == o.axis_ && cross_ == o.cross_ && spacing_ == o.spacing_;
  }

 private:
  struct Result {
    std::vector<Size> sizes;
    std::vector<ProposedSize> offers;
    double length = 0;
    double breadth = 0;
  };
  Result compute(const ProposedSize& proposal, const Subviews& subviews) const;
  double along(Size s) const { return axis_ == Axis::horizontal ? s.width : s.height; }
  double across(Size s) const { return axis_ == Axis::horizontal ? s.height : s.width; }
  Size make(double length, double breadth) const {
    return axis_ == Axis::horizontal ? Size{length, breadth} : Size{breadth, length};
  }
  ProposedSize offer(std::optional<double> length, std::optional<double> breadth) const {
    return axis_ == Axis::horizontal ? ProposedSize{length, breadth}
                                     : ProposedSize{breadth, length};
  }
  double gap(const Subviews& s, std::size_t i) const {
    if (i == 0) return 0;
    if (spacing_) return *spacing_;
    return s[i - 1].spacing().distance(s[i].spacing(), axis_);
  }

  Axis axis_;
  double cross_;
  std::optional<double> spacing_;
};

StackLayout::Result StackLayout::compute(const ProposedSize& proposal,
                                         const Subviews& subviews) const {
  Result r;
  const std::size_t n = subviews.size();
  r.sizes.resize(n);
  r.offers.resize(n);
  const auto length = axis_ == Axis::horizontal ? proposal.width : proposal.height;
  const auto breadth = axis_ == Axis::horizontal ? proposal.height : proposal.width;
  double gaps = 0;
  for (std::size_t i = 0; i < n; ++i) gaps += gap(subviews, i);
  const auto measure = [&](std::size_t i, std::optional<double> given) {
    r.offers[i] = offer(given, breadth);
    r.sizes[i] = subviews[i].sizeThatFits(r.offers[i]);
    // A spacer takes room along the stack only.
    if (subviews[i].spring(axis_)) r.sizes[i] = make(along(r.sizes[i]), 0);
    return along(r.sizes[i]);
  };
  if (!length) {
    for (std::size_t i = 0; i < n; ++i) measure(i, std::nullopt);
  } else {
    std::vector<StackItem> items(n);
    for (std::size_t i = 0; i < n; ++i) {
      const Subview child = subviews[i];
      items[i].least = along(child.sizeThatFits(offer(0.0, breadth)));
      items[i].most = along(child.sizeThatFits(offer(kInfinity, breadth)));
      items[i].priority = child.priority();
    }
    shareLength(std::max(0.0, *length - gaps), items,
                [&](std::size_t i, double given) { return measure(i, given); });
  }
  r.length = gaps;
  for (const Size& s : r.sizes) {
    r.length += along(s);
    r.breadth = std::max(r.breadth, across(s));
  }
  return r;
}

void StackLayout::placeSubviews(const Rect& bounds, const ProposedSize& proposal,
                                const Subviews& subviews) const {
  const Result r = compute(proposal, subviews);
  double at = axis_ == Axis::horizontal ? bounds.x : bounds.y;
  for (std::size_t i = 0; i < subviews.size(); ++i) {
    at += gap(subviews, i);
    const double free = across(bounds.size()) - across(r.sizes[i]);
    const double beside = (axis_ == Axis::horizontal ? bounds.y : bounds.x) + cross_ * free;
    const Point point = axis_ == Axis::horizontal ? Point{at, beside} : Point{beside, at};
    subviews[i].place(point, UnitPoint::topLeading(), r.offers[i]);
    at += along(r.sizes[i]);
  }
}

class ZStackLayout final : public Layout {
 public:
  explicit ZStackLayout(Alignment alignment) : alignment_(alignment) {}
  Size sizeThatFits(const ProposedSize& proposal, const Subviews& subviews) const override {
    Size all;
    for (std::size_t i = 0; i < subviews.size(); ++i) {
      const Size s = subviews[i].sizeThatFits(proposal);
      all = {std::max(all.width, s.width), std::max(all.height, s.height)};
    }
    return all;
  }
  void placeSubviews(const Rect& b, const ProposedSize& proposal,
                     const Subviews& subviews) const override {
    for (std::size_t i = 0; i < subviews.size(); ++i) {
      const Size s = subviews[i].sizeThatFits(proposal);
      subviews[i].place({b.x + (b.width - s.width) * fraction(alignment_.horizontal),
                         b.y + (b.height - s.height) * fraction(alignment_.vertical)},
                        UnitPoint::topLeading(), proposal);
    }
  }
  bool equals(const Layout& other) const override {
    return alignment_ == static_cast<const ZStackLayout&>(other).alignment_;
  }

 private:
  Alignment alignment_;
};

class SpacerNode final : public Node {
 public:
  using Value = PrimitiveValue<double, SpacerNode>;
  using Node::Node;
  void update(const View& next) override {
    const bool same = minLength() == static_cast<const Value&>(*next.value()).value;
    setView(next);
    if (!same) invalidateMeasure();
  }
  bool spring(Axis) const override { return true; }
  // Below all others, also in a frame or with a padding around it.
  double priority() const override { return -kInfinity; }
  std::string debugName() const override { return "Spacer"; }

 protected:
  Size computeSize(const ProposedSize& proposal) override {
    const Size s = proposal.replacingUnspecified({minLength(), minLength()});
    return {std::max(s.width, minLength()), std::max(s.height, minLength())};
  }

 private:
  double minLength() const { return static_cast<const Value&>(*view().value()).value; }
};

// The lengths of spacing come from callers: one that is not finite counts as not given.
std::optional<double> finiteSpacing(std::optional<double> spacing) {
  return spacing && std::isfinite(*spacing) ? spacing : std::nullopt;
}

}  // namespace

HStack::operator View() const {
  return LayoutView(StackLayout(Axis::horizontal, fraction(parameters_.alignment),
                                finiteSpacing(parameters_.spacing)),
                    children_);
}

VStack::operator View() const {
  return LayoutView(StackLayout(Axis::vertical, fraction(parameters_.alignment),
                                finiteSpacing(parameters_.spacing)),
                    children_);
}

ZStack::operator View() const {
  return LayoutView(ZStackLayout(alignment_), children_);
}

Spacer::operator View() const {
  return View::make<SpacerNode::Value>(minLength_);
}

}  // namespace zq
