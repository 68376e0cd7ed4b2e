// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <vector>
#include <zqswiftui/platform/toolkit/display_list.hpp>
#include <zqswiftui/platform/toolkit/tree/node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {

// A node that draws: keeps its piece of the display list and records it anew only when what it
// draws has changed and is to be seen.
class LeafNode : public Node {
 public:
  using Node::Node;
  void paint(PaintPass& pass, Point origin) override;
  void invalidatePicture() override {
    recorded_ = false;
    damageAll();
  }
  bool hitTest(Point point, HitPath& path) override {
    if (!localBounds().contains(point)) return false;
    path.push_back({this, point});
    return true;
  }

 protected:
  using Piece = std::vector<DrawCommand>;
  virtual void record(Piece& piece) = 0;
  void sizeChanged() override { recorded_ = false; }
  Rect ownBounds() const override { return localBounds(); }
  void environmentChanged(const Environment&) override { invalidatePicture(); }

 private:
  Piece piece_;
  bool recorded_ = false;
};

// The value of a primitive that is a plain value P itself, with node N.
template <class P, class N>
class PrimitiveValue final : public ViewValue {
 public:
  explicit PrimitiveValue(P givenPrimitive) : value(std::move(givenPrimitive)) {}
  const void* typeId() const override { return &detail::viewTypeId<PrimitiveValue>; }
  bool equals(const ViewValue& other) const override {
    if constexpr (std::equality_comparable<P>) {
      return value == static_cast<const PrimitiveValue&>(other).value;
    } else {
      return false;
    }
  }
  std::unique_ptr<Node> makeNode(const NodePlace& place) const override {
    return std::make_unique<N>(place);
  }
  const P value;
};

}  // namespace zq
