// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/tree/moving.hpp>

namespace zq {
namespace {

class OpacityNode;

class OpacityValue final : public ModifierValue<OpacityValue, OpacityNode> {
 public:
  OpacityValue(View givenChild, double givenOpacity)
      : ModifierValue(std::move(givenChild)), opacity(givenOpacity) {}
  double opacity;
};

class OpacityNode final : public ModifierNode<OpacityValue> {
 public:
  using ModifierNode::ModifierNode;
  bool hasMemory() const override { return opacity_.underWay(); }
  bool isGroup() const override { return false; }
  std::string debugName() const override { return "Opacity"; }
  void paint(PaintPass& pass, Point origin) override;

 protected:
  void changed(const OpacityValue& was, const OpacityValue& now) override;

 private:
  bool drawsOnce();
  Moving<double> opacity_;
};

void OpacityNode::changed(const OpacityValue& was, const OpacityValue& now) {
  if (was.opacity == now.opacity) return;
  opacity_.change(*this, was.opacity, now.opacity, [this] { damageAll(); });
  damageAll();
}

// Whether at most one leaf draws in here: then its opacity can be that of its colours, and no
// picture of the group is needed.
bool OpacityNode::drawsOnce() {
  int leaves = 0;
  const std::function<void(Node&)> count = [&](Node& node) {
    bool any = false;
    node.forEachChild([&](Node& c) {
      any = true;
      count(c);
    });
    if (!any) ++leaves;
  };
  count(*this);
  return leaves <= 1;
}

void OpacityNode::paint(PaintPass& pass, Point origin) {
  const double opacity = opacity_.shown(value().opacity);
  if (opacity <= 0) return;
  if (opacity >= 1 || drawsOnce()) {
    PaintPass inner{pass.canvas, pass.region, pass.opacity * std::min(opacity, 1.0)};
    return paintChildren(inner, origin);
  }
  pass.canvas.pushOpacity(opacity, bounds().offsetBy(origin));
  paintChildren(pass, origin);
  pass.canvas.pop();
}

// Another view behind or in front, in the size of the first.
class LayerNode;

class LayerValue final : public ModifierValue<LayerValue, LayerNode> {
 public:
  LayerValue(View givenChild, View givenLayer, Alignment givenAlignment, bool givenInFront)
      : ModifierValue(std::move(givenChild)),
        layer(std::move(givenLayer)),
        alignment(givenAlignment),
        inFront(givenInFront) {}
  View layer;
  Alignment alignment;
  bool inFront;
};

class LayerNode final : public ModifierNode<LayerValue> {
 public:
  using ModifierNode::ModifierNode;
  void mount() override {
    ModifierNode::mount();
    reconcile(layer_, value().layer);
  }
  void update(const View& next) override {
    const LayerValue& now = valueOf(next);
    if (!(value().alignment == now.alignment)) invalidatePlacement();
    if (value().inFront != now.inFront) damageAll();
    setChild(now.child);
    reconcile(layer_, now.layer);
  }
  void forEachChild(const NodeVisitor& visit) override {
    if (layer_ && !value().inFront) visit(*layer_);
    ModifierNode::forEachChild(visit);
    if (layer_ && value().inFront) visit(*layer_);
  }
  bool spring(Axis) const override { return false; }
  std::string debugName() const override { return value().inFront ? "Overlay" : "Background"; }

 protected:
  void layoutChildren() override {
    WrapperNode::layoutChildren();
    if (!layer_) return;
    const ProposedSize all = ProposedSize::exactly(frame().size());
    const Size s = layer_->measure(all);
    const double f = fraction(value().alignment.horizontal);
    layer_->place(
        {(frame().width - s.width) * (rightToLeft() ? 1 - f : f),
         (frame().height - s.height) * fraction(value().alignment.vertical), s.width, s.height},
        all);
  }

 private:
  std::unique_ptr<Node> layer_;
};

class ClipNode;

class ClipValue final : public ModifierValue<ClipValue, ClipNode> {
 public:
  ClipValue(View givenChild, std::optional<ShapeView> givenShape)
      : ModifierValue(std::move(givenChild)), shape(std::move(givenShape)) {}
  std::optional<ShapeView> shape;  // none: the rectangle
};

class ClipNode final : public ModifierNode<ClipValue> {
 public:
  using ModifierNode::ModifierNode;
  std::string debugName() const override { return "Clip"; }
  bool clipsChildren() const override { return true; }
  void paint(PaintPass& pass, Point origin) override {
    const Rect all = localBounds().offsetBy(origin);
    if (value().shape) {
      pass.canvas.pushClip(value().shape->outline(localBounds()), origin);
    } else {
      pass.canvas.pushClip(all);
    }
    paintChildren(pass, origin);
    pass.canvas.pop();
  }

 protected:
  void changed(const ClipValue& was, const ClipValue& now) override {
    if (!(was.shape == now.shape)) damageAll();
  }
  bool sizeShapesContent() const override { return true; }
};

}  // namespace

View modify::opacity(View view, double opacity) {
  return View::make<OpacityValue>(std::move(view), std::min(sanitized(opacity), 1.0));
}

View modify::background(View view, View behind, Alignment alignment) {
  return View::make<LayerValue>(std::move(view), std::move(behind), alignment, false);
}

View modify::overlay(View view, View front, Alignment alignment) {
  return View::make<LayerValue>(std::move(view), std::move(front), alignment, true);
}

View modify::clipShape(View view, const ShapeView& shape) {
  return View::make<ClipValue>(std::move(view), shape);
}

View modify::clipped(View view) {
  return View::make<ClipValue>(std::move(view), std::nullopt);
}

}  // namespace zq
