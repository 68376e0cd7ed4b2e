// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/tree/leaf_node.hpp>

namespace zq {
namespace {

constexpr double kShapeSide = 10;  // the side of a shape that is offered nothing

// Whether the rectangle is all that one needs to know: nothing is left out in its midst.
bool isSmall(const Rect& hole) {
  return hole.width < 16 || hole.height < 16;
}

// What of the rectangle lies around the hole, above and below of it and at its sides.
std::array<Rect, 4> around(const Rect& hole, const Rect& all) {
  return {Rect{all.x, all.y, all.width, hole.y - all.y},
          Rect{all.x, hole.maxY(), all.width, all.maxY() - hole.maxY()},
          Rect{all.x, hole.y, hole.x - all.x, hole.height},
          Rect{hole.maxX(), hole.y, all.maxX() - hole.maxX(), hole.height}};
}

}  // namespace

class ShapeNode final : public LeafNode {
 public:
  using Value = PrimitiveValue<ShapeView, ShapeNode>;
  using LeafNode::LeafNode;

  void update(const View& next) override {
    const bool same = shape() == static_cast<const Value&>(*next.value()).value;
    if (same) return setView(next);
    damageAll();
    const Rect before = ownBounds();
    setView(next);
    // Another colour leaves the bounds of all those around as they are.
    if (ownBounds() != before) invalidateBounds();
    invalidatePicture();
  }
  std::string debugName() const override { return "Shape"; }
  // A large outline is mostly a hole, through which others are painted again and again.
  void damageOwn() override {
    const Rect inside = hole();
    if (isSmall(inside)) return LeafNode::damageOwn();
    // Under a scaling, edges are soft, and not the same where they are painted in parts.
    if (toWindow(Rect{0, 0, 1, 1}).width != 1) return LeafNode::damageOwn();
    for (const Rect& edge : around(inside, inked())) tree().damage(*this, edge);
  }
  void paint(PaintPass& pass, Point origin) override {
    const Rect inside = hole();
    if (!isSmall(inside)) {
      const auto edges = around(inside, inked());
      const auto met = [&](const Rect& edge) { return pass.meets(edge.offsetBy(origin)); };
      if (std::none_of(edges.begin(), edges.end(), met)) return;
    }
    LeafNode::paint(pass, origin);
  }
  // An outline alone is an ornament: what lies inside of it is pressed through it.
  bool hitTest(Point point, HitPath& path) override {
    return (shape().filled_ || !shape().stroked_) && LeafNode::hitTest(point, path);
  }

 protected:
  Size computeSize(const ProposedSize& proposal) override {
    return proposal.replacingUnspecified({kShapeSide, kShapeSide});
  }
  void record(Piece& piece) override;
  // An outline of points may lead out of the frame.
  Rect ownBounds() const override {
    return isFree() ? unite(localBounds(), inked()) : localBounds();
  }

 private:
  const ShapeView& shape() const { return static_cast<const Value&>(*view().value()).value; }
  bool isFree() const { return shape().kind_ == ShapeView::Kind::path; }
  // All that is drawn.
  Rect inked() const {
    if (!isFree()) return localBounds();
    const double line = shape().stroked_ ? shape().style_.lineWidth : 0;
    return shape().path_->bounds().insetBy(-sanitized(line) / 2);
  }
  Rect hole() const;
  void recordFill(Piece& piece, const Paint& paint) const;
};

// Where an outline draws nothing, as far as that is a rectangle.
Rect ShapeNode::hole() const {
  const ShapeView& s = shape();
  if (s.filled_ || !s.stroked_ || (isFree() && !s.path_->isRect())) return {};
  // A canvas may move a line to the next pixel.
  const Rect all = inked().insetBy(sanitized(s.style_.lineWidth) + 1);
  const double half = std::min(all.width, all.height) / 2;
  switch (s.kind_) {
    case ShapeView::Kind::rectangle:
    case ShapeView::Kind::path:
      return all;
    case ShapeView::Kind::roundedRectangle:
      // As far as a corner's bend reaches along the sides.
      return all.insetBy(std::min(2 * s.radius_, half));
    case ShapeView::Kind::capsule:
    case ShapeView::Kind::circle:
      return {};
  }
  return {};
}

void ShapeNode::recordFill(Piece& piece, const Paint& paint) const {
  const ShapeView& s = shape();
  const Rect all = localBounds();
  const double half = std::min(all.width, all.height) / 2;
  switch (s.kind_) {
    case ShapeView::Kind::rectangle:
      piece.emplace_back(FillRect{all, paint});
      return;
    case ShapeView::Kind::roundedRectangle:
      piece.emplace_back(FillRoundedRect{all, std::min(s.radius_, half), s.continuous_, paint});
      return;
    case ShapeView::Kind::capsule:
      piece.emplace_back(FillRoundedRect{all, half, false, paint});  // its ends are half circles
      return;
    case ShapeView::Kind::circle:
      piece.emplace_back(FillRoundedRect{
          {all.midX() - half, all.midY() - half, 2 * half, 2 * half}, half, false, paint});
      return;
    case ShapeView::Kind::path:
      piece.emplace_back(FillPath{s.path_.pointer(), s.path_->bounds(), paint});
      return;
  }
}

void ShapeNode::record(Piece& piece) {
  const ShapeView& s = shape();
  const Rect all = localBounds();
  // An outline of points has its own place, also in a frame that is flat.
  if (all.empty() && s.kind_ != ShapeView::Kind::path) return;
  if (s.filled_) recordFill(piece, s.fill_);
  if (s.stroked_ && s.style_.lineWidth > 0) {
    const bool free = s.kind_ == ShapeView::Kind::path;
    StrokeStyle style = s.style_;
    // A line that is wider than the shape would come out on the other side.
    if (!free) style.lineWidth = std::min(style.lineWidth, std::min(all.width, all.height));
    const auto path =
        std::make_shared<const Path>(free ? *s.path_ : s.outline(all.insetBy(style.lineWidth / 2)));
    const double radius = s.kind_ == ShapeView::Kind::roundedRectangle ? s.radius_ : 0;
    piece.emplace_back(StrokePath{path, path->bounds().insetBy(-style.lineWidth / 2), style,
                                  s.stroke_, radius, s.continuous_});
  }
  if (!s.filled_ && !s.stroked_) {
    recordFill(piece, environment().foreground.value_or(Color::primary()));
  }
}

PathShape::PathShape(Path path) : ShapeView(Kind::path) {
  path_ = std::make_shared<const Path>(std::move(path));
}

ShapeView::operator View() const {
  return View::make<ShapeNode::Value>(*this);
}

bool ShapeView::operator==(const ShapeView& o) const {
  const bool samePath = path_ == o.path_ || (path_ && o.path_ && *path_ == *o.path_);
  return samePath && kind_ == o.kind_ && continuous_ == o.continuous_ && radius_ == o.radius_ &&
         filled_ == o.filled_ && stroked_ == o.stroked_ && fill_ == o.fill_ &&
         stroke_ == o.stroke_ && style_ == o.style_;
}

ShapeView ShapeView::fill(Color color) const {
  return with(with(*this, &ShapeView::filled_, true), &ShapeView::fill_, color);
}

ShapeView ShapeView::fill(LinearGradient gradient) const {
  return with(with(*this, &ShapeView::filled_, true), &ShapeView::fill_, std::move(gradient));
}

ShapeView ShapeView::stroke(Color color, StrokeStyle style) const {
  ShapeView drawn = with(with(*this, &ShapeView::stroke_, color), &ShapeView::stroked_, true);
  return with(std::move(drawn), &ShapeView::style_, std::move(style));
}

Path ShapeView::outline(const Rect& rect) const {
  const double half = std::min(rect.width, rect.height) / 2;
  Path path;
  switch (kind_) {
    case Kind::rectangle:
      return path.addRect(rect);
    case Kind::roundedRectangle:
      return path.addRoundedRect(rect, radius_, continuous_);
    case Kind::capsule:
      return path.addRoundedRect(rect, half, continuous_);
    case Kind::circle:
      return path.addEllipse({rect.midX() - half, rect.midY() - half, 2 * half, 2 * half});
    case Kind::path:
      break;
  }
  return path_->transformed(1, 1, rect.origin());
}

Color::operator View() const {
  return Rectangle().fill(*this);
}

}  // namespace zq
