// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/geometry_reader.hpp>
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>

namespace zq {
namespace {

constexpr double kIdeal = 10;
using Content = std::function<View(Size)>;

bool covers(const Rect& outer, const Rect& inner) {
  return outer.x <= inner.x && outer.y <= inner.y && inner.maxX() <= outer.maxX() &&
         inner.maxY() <= outer.maxY();
}

class GeometryNode : public WrapperNode {
 public:
  using Value = PrimitiveValue<Content, GeometryNode>;
  using WrapperNode::WrapperNode;
  void update(const View& next) override {
    setView(next);
    makeAgain();
  }
  bool showsNothing() const override { return false; }
  bool spring(Axis) const override { return false; }
  // It follows what is offered, whatever is inside.
  bool sizeIsFixed() const override { return true; }
  std::string debugName() const override { return "GeometryReader"; }

 protected:
  Size computeSize(const ProposedSize& proposal) override {
    return proposal.replacingUnspecified({kIdeal, kIdeal});
  }
  void sizeChanged() override { stale_ = true; }
  virtual View content() {
    const Content& content = static_cast<const Value&>(*view().value()).value;
    return content ? content(frame().size()) : View();
  }
  void makeAgain() {
    stale_ = true;
    invalidatePlacement();
  }
  void layoutChildren() override {
    if (std::exchange(stale_, false)) setChild(content());
    if (!child()) return;
    const ProposedSize all = ProposedSize::exactly(frame().size());
    const Size s = child()->measure(all);
    child()->place({rightToLeft() ? frame().width - s.width : 0, 0, s.width, s.height}, all);
  }

 private:
  bool stale_ = true;
};

class PartNode final : public GeometryNode {
 public:
  using Value = PrimitiveValue<GeometryReader::ContentOfPart, PartNode>;
  using GeometryNode::GeometryNode;
  void mount() override {
    tree().addVisibilityListener(*this, [this](const Rect& visible) {
      if (!visible.empty() && !covers(part_, visible)) makeAgain();
    });
  }

 protected:
  View content() override {
    const Rect seen = visibleRect();
    part_ = {};
    if (!seen.empty()) {
      part_ = {seen.x - seen.width / 2, seen.y - seen.height / 2, 2 * seen.width, 2 * seen.height};
    }
    Rect given = part_;
    if (rightToLeft() && !seen.empty()) given.x = frame().width - part_.maxX();
    return static_cast<const Value&>(*view().value()).value(frame().size(), given);
  }

 private:
  Rect part_;
};

}  // namespace

GeometryReader::operator View() const {
  if (contentOfPart_) return View::make<PartNode::Value>(contentOfPart_);
  return View::make<GeometryNode::Value>(content_);
}

}  // namespace zq
