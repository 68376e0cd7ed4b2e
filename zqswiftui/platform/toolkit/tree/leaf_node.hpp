// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <vector>
#include <zqswiftui/platform/toolkit/display_list.hpp>
#include <zqswiftui/platform/toolkit/tree/node.hpp>
#include <zqswiftui/platform/toolkit/tree/tree.hpp>

namespace zq {

// A node that draws: keeps its piece of the display list and records it anew only when what it
// draws has changed and is to be seen. Where that is other colours, and the change is animated,
// they go over into each other.
class LeafNode : public Node {
 public:
  using Node::Node;
  void paint(PaintPass& pass, Point origin) override;
  void invalidatePicture() override;
  void damageAll() final { damageOwn(); }
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
  // The colours of the piece on their way to others.
  struct Fade {
    struct Request {
      double start;
      Animation animation;
      bool over(double now) const { return now - start >= animation.duration(); }
    };
    // An animated change that the next recording shows; whether it is one of colours shows then.
    std::optional<Request> asked;
    std::optional<Request> way;
    std::vector<Paint> from;
    std::vector<Paint> to;
  };
  void askForFade();
  void fade(const Piece& before);

  Piece piece_;
  std::unique_ptr<Fade> fade_;
  bool recorded_ = false;
};

// The same value with one field changed.
template <class P, class Field, class To>
P with(P primitive, Field P::*field, To to) {
  primitive.*field = std::move(to);
  return primitive;
}

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
