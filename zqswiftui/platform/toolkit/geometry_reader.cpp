// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/geometry_reader.hpp>
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>

namespace zq {
namespace {

constexpr double kIdeal = 10;
using Content = std::function<View(Size)>;

class GeometryNode final : public WrapperNode {
 public:
  using Value = PrimitiveValue<Content, GeometryNode>;
  using WrapperNode::WrapperNode;
  void update(const View& next) override {
    setView(next);
    stale_ = true;
    invalidatePlacement();
  }
  bool showsNothing() const override { return false; }
  bool spring(Axis) const override { return false; }
  std::string debugName() const override { return "GeometryReader"; }

 protected:
  Size computeSize(const ProposedSize& proposal) override {
    return proposal.replacingUnspecified({kIdeal, kIdeal});
  }
  void sizeChanged() override { stale_ = true; }
  void layoutChildren() override {
    const Content& content = static_cast<const Value&>(*view().value()).value;
    if (stale_ && content) {
      stale_ = false;
      setChild(content(frame().size()));
    }
    if (!child()) return;
    const ProposedSize all = ProposedSize::exactly(frame().size());
    const Size s = child()->measure(all);
    child()->place({rightToLeft() ? frame().width - s.width : 0, 0, s.width, s.height}, all);
  }

 private:
  bool stale_ = true;
};

}  // namespace

GeometryReader::operator View() const {
  return View::make<GeometryNode::Value>(content_);
}

}  // namespace zq
