// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <zqswiftui/platform/toolkit/tree/moving.hpp>

namespace zq {
namespace {

// A modifier that is one value F over its child; another value is another layout.
template <class F, class N>
class FieldValue final : public ModifierValue<FieldValue<F, N>, N> {
 public:
  FieldValue(View givenChild, F givenField)
      : ModifierValue<FieldValue<F, N>, N>(std::move(givenChild)), field(givenField) {}
  F field;
};

template <class F, class N>
class FieldNode : public ModifierNode<FieldValue<F, N>> {
 public:
  using ModifierNode<FieldValue<F, N>>::ModifierNode;
  bool hasMemory() const override { return field_.underWay(); }

 protected:
  // As it is shown: on its way where its last change was animated.
  const F& field() const { return field_.shown(this->value().field); }
  virtual void fieldMoved() { this->invalidateMeasure(); }
  Node* soleInk() const override { return this->child(); }
  void changed(const FieldValue<F, N>& was, const FieldValue<F, N>& now) override {
    if (was.field == now.field) return;
    if constexpr (requires { mix(was.field, now.field, 0.5); }) {
      field_.change(*this, was.field, now.field, [this] { fieldMoved(); });
    }
    fieldMoved();
  }
  // Puts the child of that size at the alignment; leading is on the right where texts run so.
  void alignChild(Size size, Alignment alignment, const ProposedSize& offer) {
    if (!this->child()) return;
    const double freeX = this->frame().width - size.width;
    const double f = fraction(alignment.horizontal);
    this->child()->place({freeX * (this->rightToLeft() ? 1 - f : f),
                          (this->frame().height - size.height) * fraction(alignment.vertical),
                          size.width, size.height},
                         offer);
  }

 private:
  Moving<F> field_;
};

std::optional<double> finite(std::optional<double> length) {
  if (length && !std::isfinite(*length)) return std::nullopt;
  return length ? std::optional(sanitized(*length)) : std::nullopt;
}

class FrameNode final : public FieldNode<Frame, FrameNode> {
 public:
  using FieldNode::FieldNode;
  bool sizeIsFixed() const override { return field().width && field().height; }
  bool spring(Axis) const override { return false; }
  bool showsNothing() const override { return false; }
  std::string debugName() const override { return "Frame"; }

 protected:
  ProposedSize offer(const ProposedSize& p) const {
    const ProposedSize own = lengths();
    return {own.width ? own.width : p.width, own.height ? own.height : p.height};
  }
  Size computeSize(const ProposedSize& p) override {
    const ProposedSize own = lengths();
    if (sizeIsFixed()) return {*own.width, *own.height};
    const Size s = WrapperNode::computeSize(offer(p));
    return {own.width.value_or(s.width), own.height.value_or(s.height)};
  }
  void environmentChanged(const Environment& old) override {
    if (field().growsWithText && old.textScale != environment().textScale) invalidateMeasure();
  }
  void layoutChildren() override {
    const ProposedSize inner = offer(proposal());
    alignChild(child() ? child()->measure(inner) : Size{}, field().alignment, inner);
  }

 private:
  ProposedSize lengths() const {
    const double factor = field().growsWithText ? environment().textGrowth() : 1;
    const auto grown = [factor](std::optional<double> length) {
      return length ? std::optional(*length * factor) : std::nullopt;
    };
    return {grown(field().width), grown(field().height)};
  }
};

class FlexFrameNode final : public FieldNode<FlexFrame, FlexFrameNode> {
 public:
  using FieldNode::FieldNode;
  bool spring(Axis) const override { return false; }
  bool showsNothing() const override { return false; }
  std::string debugName() const override { return "FlexFrame"; }

 protected:
  // The offer to the child, kept within the bounds.
  static std::optional<double> bounded(std::optional<double> offer, std::optional<double> least,
                                       std::optional<double> most) {
    if (!offer) return std::nullopt;
    double v = *offer;
    if (most) v = std::min(v, *most);
    if (least) v = std::max(v, *least);
    return v;
  }
  // With a maximum the frame takes what is offered up to it; else it follows the child.
  static double taken(double childs, std::optional<double> offer, std::optional<double> least,
                      std::optional<double> most) {
    double v = childs;
    if (offer && most) v = std::max(v, std::min(*offer, *most));
    if (offer && least && !most) v = std::max(*least, std::min(v, std::max(*offer, childs)));
    if (most) v = std::min(v, *most);
    if (least) v = std::max(v, *least);
    return v;
  }
  ProposedSize offer(const ProposedSize& p) const {
    return {bounded(p.width, field().minWidth, field().maxWidth),
            bounded(p.height, field().minHeight, field().maxHeight)};
  }
  Size computeSize(const ProposedSize& p) override {
    const Size s = WrapperNode::computeSize(offer(p));
    return {taken(s.width, p.width, field().minWidth, field().maxWidth),
            taken(s.height, p.height, field().minHeight, field().maxHeight)};
  }
  void layoutChildren() override {
    // Where nothing is bounded the child hears what its parent said: told the size that it asked
    // for itself, a stack would share it out anew.
    const bool boundsWidth = field().minWidth || field().maxWidth;
    const bool boundsHeight = field().minHeight || field().maxHeight;
    const ProposedSize inner{boundsWidth ? frame().width : proposal().width,
                             boundsHeight ? frame().height : proposal().height};
    alignChild(child() ? child()->measure(inner) : Size{}, field().alignment, inner);
  }
};

class PaddingNode final : public FieldNode<EdgeInsets, PaddingNode> {
 public:
  using FieldNode::FieldNode;
  bool spring(Axis) const override { return false; }
  std::string debugName() const override { return "Padding"; }

 protected:
  double horizontal() const { return field().leading + field().trailing; }
  double vertical() const { return field().top + field().bottom; }
  ProposedSize inner(const ProposedSize& p) const {
    ProposedSize in = p;
    if (in.width) in.width = std::max(0.0, *in.width - horizontal());
    if (in.height) in.height = std::max(0.0, *in.height - vertical());
    return in;
  }
  Size computeSize(const ProposedSize& p) override {
    const Size s = WrapperNode::computeSize(inner(p));
    return {s.width + horizontal(), s.height + vertical()};
  }
  void layoutChildren() override {
    if (!child()) return;
    const double left = rightToLeft() ? field().trailing : field().leading;
    child()->place({left, field().top, std::max(0.0, frame().width - horizontal()),
                    std::max(0.0, frame().height - vertical())},
                   inner(proposal()));
  }
};

struct Ideal {
  bool operator==(const Ideal&) const = default;
};

class FixedSizeNode final : public FieldNode<Ideal, FixedSizeNode> {
 public:
  using FieldNode::FieldNode;
  std::string debugName() const override { return "FixedSize"; }

 protected:
  Size computeSize(const ProposedSize&) override {
    return WrapperNode::computeSize(ProposedSize::unspecified());
  }
  void layoutChildren() override {
    if (child()) child()->place(localBounds(), ProposedSize::unspecified());
  }
};

struct Priority {
  double value = 0;
  bool operator==(const Priority&) const = default;
};

class PriorityNode final : public FieldNode<Priority, PriorityNode> {
 public:
  using FieldNode::FieldNode;
  double priority() const override { return field().value; }
  std::string debugName() const override { return "Priority"; }
};

// Moves and scales what is drawn and hit; layout knows nothing of it.
struct Transform {
  Point offset;
  double scale = 1;
  bool operator==(const Transform&) const = default;
};

Transform mix(const Transform& a, const Transform& b, double t) {
  return {zq::mix(a.offset, b.offset, t), zq::mix(a.scale, b.scale, t)};
}

class TransformNode final : public FieldNode<Transform, TransformNode> {
 public:
  using FieldNode::FieldNode;
  std::string debugName() const override { return "Transform"; }
  Rect mapFromChild(const Node&, const Rect& r) const override {
    const Transform& t = field();
    const double cx = frame().width / 2, cy = frame().height / 2;
    return {cx + (r.x - cx) * t.scale + t.offset.x, cy + (r.y - cy) * t.scale + t.offset.y,
            r.width * t.scale, r.height * t.scale};
  }
  Point mapToChild(const Node&, Point p) const override {
    const Transform& t = field();
    const double cx = frame().width / 2, cy = frame().height / 2;
    const double factor = t.scale > 0 ? 1 / t.scale : 0;
    return {cx + (p.x - t.offset.x - cx) * factor, cy + (p.y - t.offset.y - cy) * factor};
  }
  void paint(PaintPass& pass, Point origin) override;
  void damageAll() override {
    // On its way, it is where the last frame showed it.
    const bool stands = child() && !hasMemory();
    stands ? child()->damageAll() : FieldNode::damageAll();
  }
  bool admits(Point) const override { return field().scale > 0; }

 protected:
  void fieldMoved() override {
    damageAll();  // where it was: its bounds are still those of the last frame
    invalidateBounds();
    tree().damageAfterLayout(*this, true);
    tree().visibilityMayHaveChanged();
    tree().requestFrame();
  }
  bool sizeShapesContent() const override { return field().scale != 1; }
  // All of the view can be hit where it shows, also what it leaves empty.
  Rect ownBounds() const override { return mapFromChild(*this, localBounds()); }
};

void TransformNode::paint(PaintPass& pass, Point origin) {
  const Transform& t = field();
  const Point moved{origin.x + t.offset.x, origin.y + t.offset.y};
  if (t.scale == 1) return paintChildren(pass, moved);
  if (!(t.scale > 0)) return;
  pass.canvas.pushScale(t.scale, t.scale,
                        {moved.x + frame().width / 2, moved.y + frame().height / 2});
  paintChildrenUnculled(pass, moved);
  pass.canvas.pop();
}

}  // namespace

View modify::frame(View view, const Frame& frame) {
  return View::make<FieldValue<Frame, FrameNode>>(
      std::move(view),
      Frame{finite(frame.width), finite(frame.height), frame.alignment, frame.growsWithText});
}

View modify::flexFrame(View view, const FlexFrame& f) {
  const auto bound = [](std::optional<double> v) {
    return v ? std::optional(sanitized(*v)) : std::nullopt;
  };
  return View::make<FieldValue<FlexFrame, FlexFrameNode>>(
      std::move(view), FlexFrame{finite(f.minWidth), bound(f.maxWidth), finite(f.minHeight),
                                 bound(f.maxHeight), f.alignment});
}

View modify::padding(View view, EdgeInsets insets) {
  const auto length = [](double v) { return std::isfinite(v) ? sanitized(v) : 0.0; };
  return View::make<FieldValue<EdgeInsets, PaddingNode>>(
      std::move(view), EdgeInsets{length(insets.top), length(insets.leading), length(insets.bottom),
                                  length(insets.trailing)});
}

View modify::fixedSize(View view) {
  return View::make<FieldValue<Ideal, FixedSizeNode>>(std::move(view), Ideal{});
}

View modify::layoutPriority(View view, double priority) {
  return View::make<FieldValue<Priority, PriorityNode>>(
      std::move(view), Priority{std::isfinite(priority) ? priority : 0.0});
}

View modify::offset(View view, double x, double y) {
  const Transform t{{std::isfinite(x) ? x : 0, std::isfinite(y) ? y : 0}, 1};
  return View::make<FieldValue<Transform, TransformNode>>(std::move(view), t);
}

View modify::scale(View view, double factor) {
  const Transform t{{}, std::isfinite(factor) ? sanitized(factor) : 1};
  return View::make<FieldValue<Transform, TransformNode>>(std::move(view), t);
}

}  // namespace zq
