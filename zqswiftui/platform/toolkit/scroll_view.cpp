// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <utility>
#include <zqswiftui/platform/toolkit/scroll_view.hpp>
#include <zqswiftui/platform/toolkit/tree/responder.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {
namespace {

constexpr double kScrollBarWidth = 6;
constexpr double kBarInset = 2;
constexpr double kShortestBar = 24;
constexpr double kLine = 40;  // an arrow key
constexpr double kFarAway = 1e9;

class ScrollNode;

class ScrollValue final : public ModifierValue<ScrollValue, ScrollNode> {
 public:
  ScrollValue(View givenContent, ScrollAxes givenAxes)
      : ModifierValue(std::move(givenContent)), axes(givenAxes) {}
  ScrollAxes axes;
};

class ScrollNode final : public ModifierNode<ScrollValue>, public Responder {
 public:
  using ModifierNode::ModifierNode;
  Responder* responder() override { return this; }
  bool takesPointer() const override { return true; }
  bool hasMemory() const override { return true; }
  bool sizeIsFixed() const override { return proposal().width && proposal().height; }
  bool spring(Axis) const override { return false; }
  std::string debugName() const override { return "Scroll"; }

  Rect mapFromChild(const Node& child, const Rect& r) const override {
    return WrapperNode::mapFromChild(child, r).offsetBy({-offset_.x, -offset_.y});
  }
  Point mapToChild(const Node& child, Point p) const override {
    return WrapperNode::mapToChild(child, {p.x + offset_.x, p.y + offset_.y});
  }
  bool clipsChildren() const override { return true; }
  bool wheel(const WheelEvent& event) override {
    double x = std::isnan(event.deltaX) ? 0 : event.deltaX;
    double y = std::isnan(event.deltaY) ? 0 : event.deltaY;
    if (value().axes == ScrollAxes::horizontal && x == 0) std::swap(x, y);
    return scrollTo({offset_.x + x, offset_.y + y});
  }
  bool key(const KeyEvent& event) override;
  void reveal(const Rect& rect) override;
  void paint(PaintPass& pass, Point origin) override;
  void describe(std::vector<AccessibilityNode>& out) override;

 protected:
  Size computeSize(const ProposedSize& p) override {
    if (p.width && p.height) return p.replacingUnspecified({});
    return p.replacingUnspecified(WrapperNode::computeSize(inner(p)));
  }
  void layoutChildren() override;
  Rect ownBounds() const override { return localBounds(); }
  void changed(const ScrollValue& was, const ScrollValue& now) override {
    if (was.axes != now.axes) invalidateMeasure();
  }

 private:
  bool along(Axis axis) const {
    return value().axes == ScrollAxes::both ||
           (axis == Axis::horizontal) == (value().axes == ScrollAxes::horizontal);
  }
  ProposedSize inner(const ProposedSize& p) const {
    return {along(Axis::horizontal) ? std::nullopt : p.width,
            along(Axis::vertical) ? std::nullopt : p.height};
  }
  Point clamped(Point p) const {
    return {std::clamp(p.x, 0.0, std::max(0.0, content_.width - frame().width)),
            std::clamp(p.y, 0.0, std::max(0.0, content_.height - frame().height))};
  }
  bool scrollTo(Point to);
  Rect bar(Axis axis) const;  // empty where all of the content shows

  Point offset_;
  bool moved_ = false;  // by the user, from where the content begins
  Size content_;
};

void ScrollNode::layoutChildren() {
  if (!child()) {
    content_ = {};
    offset_ = {};
    return damageAll();
  }
  const ProposedSize offer = inner(ProposedSize::exactly(frame().size()));
  const Rect bars[] = {bar(Axis::vertical), bar(Axis::horizontal)};
  content_ = child()->measure(offer);
  content_ = {std::min(content_.width, kFarAway), std::min(content_.height, kFarAway)};
  child()->place(
      Rect::of({}, {std::max(content_.width, along(Axis::horizontal) ? 0.0 : frame().width),
                    content_.height}),
      offer);
  // Right to left, a content that is wider begins at its right end.
  const bool fromRight = !moved_ && rightToLeft() && along(Axis::horizontal);
  const Point kept = clamped({fromRight ? kFarAway : moved_ ? offset_.x : 0, offset_.y});
  if (!(kept == offset_)) {
    offset_ = kept;
    damageAll();
  }
  for (const Axis axis : {Axis::vertical, Axis::horizontal}) {
    const Rect before = bars[axis == Axis::vertical ? 0 : 1], now = bar(axis);
    if (!(before == now)) tree().damage(*this, unite(before, now));
  }
}

bool ScrollNode::scrollTo(Point to) {
  if (!along(Axis::horizontal)) to.x = offset_.x;
  if (!along(Axis::vertical)) to.y = offset_.y;
  to = clamped(to);
  if (to == offset_) return false;
  offset_ = to;
  moved_ = true;
  invalidateBounds();
  damageAll();
  tree().visibilityMayHaveChanged();
  tree().contentChanged();
  tree().requestFrame();
  return true;
}

bool ScrollNode::key(const KeyEvent& event) {
  const double page = std::max(kLine, frame().height - kLine);
  switch (event.key) {
    case Key::up:
      return scrollTo({offset_.x, offset_.y - kLine});
    case Key::down:
      return scrollTo({offset_.x, offset_.y + kLine});
    case Key::left:
      return scrollTo({offset_.x - kLine, offset_.y});
    case Key::right:
      return scrollTo({offset_.x + kLine, offset_.y});
    case Key::pageUp:
      return scrollTo({offset_.x, offset_.y - page});
    case Key::pageDown:
      return scrollTo({offset_.x, offset_.y + page});
    case Key::home:
      return scrollTo({0, 0});
    case Key::end:
      return scrollTo({content_.width, content_.height});
    default:
      return false;
  }
}

void ScrollNode::reveal(const Rect& rect) {
  Point to = offset_;
  if (rect.maxX() > frame().width) to.x += rect.maxX() - frame().width;
  if (rect.maxY() > frame().height) to.y += rect.maxY() - frame().height;
  if (rect.x < 0) to.x = offset_.x + rect.x;
  if (rect.y < 0) to.y = offset_.y + rect.y;
  scrollTo(to);
}

void ScrollNode::paint(PaintPass& pass, Point origin) {
  pass.canvas.pushClip(localBounds().offsetBy(origin));
  paintChildren(pass, {origin.x - offset_.x, origin.y - offset_.y});
  pass.canvas.pop();
  for (const Axis axis : {Axis::vertical, Axis::horizontal}) {
    const Rect all = bar(axis);
    if (all.empty()) continue;
    pass.canvas.draw(
        FillRoundedRect{all, kScrollBarWidth / 2, false, Color::primary().opacity(0.35)},
        playState(pass, origin));
  }
}

Rect ScrollNode::bar(Axis axis) const {
  const bool down = axis == Axis::vertical;
  const double window = down ? frame().height : frame().width;
  const double whole = down ? content_.height : content_.width;
  if (!along(axis) || whole <= window + 0.5) return {};
  const double track = window - 2 * kBarInset;
  const double length = std::min(track, std::max(kShortestBar, track * window / whole));
  const double at =
      kBarInset + (track - length) * ((down ? offset_.y : offset_.x) / (whole - window));
  const double edge = (down ? frame().width : frame().height) - kScrollBarWidth - kBarInset;
  const double side = down && rightToLeft() ? kBarInset : edge;
  return down ? Rect{side, at, kScrollBarWidth, length} : Rect{at, edge, length, kScrollBarWidth};
}

void ScrollNode::describe(std::vector<AccessibilityNode>& out) {
  AccessibilityNode node;
  node.id = id();
  node.role = Role::scrollArea;
  node.bounds = toWindow(localBounds());
  node.enabled = environment().enabled;
  WrapperNode::describe(node.children);
  out.push_back(std::move(node));
}

}  // namespace

ScrollView::ScrollView(View content, ScrollAxes axes) : content_(std::move(content)), axes_(axes) {}

ScrollView::operator View() const {
  return View::make<ScrollValue>(content_, axes_);
}

}  // namespace zq
