// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/toolkit/animation.hpp>
#include <zqswiftui/platform/toolkit/canvas.hpp>
#include <zqswiftui/platform/toolkit/environment.hpp>
#include <zqswiftui/platform/toolkit/layout.hpp>
#include <zqswiftui/platform/toolkit/region.hpp>
#include <zqswiftui/platform/toolkit/tree/motion.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

class ItemSink;
class Node;
class Responder;
class Tree;
struct AccessibilityNode;
struct DropInfo;

// Where a node is made: in which tree, under which parent (none: the root), for which value.
struct NodePlace {
  Tree& tree;
  Node* parent;
  const View& view;
};

// A function for each node of a walk: lent for the call, nothing is copied or allocated.
class NodeVisitor {
 public:
  template <class F>
  NodeVisitor(const F& visit)  // NOLINT(google-explicit-constructor): a lambda is a visitor
      : object_(std::addressof(visit)),
        call_([](const void* object, Node& node) { (*static_cast<const F*>(object))(node); }) {}
  void operator()(Node& node) const { call_(object_, node); }

 private:
  const void* object_;
  void (*call_)(const void*, Node&);
};

// One playing of display lists: the canvas, what of the window needs painting, and what the
// nodes above have set.
struct PaintPass {
  Canvas& canvas;
  const Region& region;
  double opacity = 1;

  bool meets(const Rect& rect) const { return region.intersects(rect); }
};

// The nodes under a point, from the front-most inwards to the root, each with the point in
// its own coordinates.
struct Hit {
  Node* node = nullptr;
  Point point;
};
using HitPath = std::vector<Hit>;

// A view's place in the tree: what lives longer than the value that describes it. One kind of
// node for each kind of value, hidden in the source of that value. Coordinates are points of
// the parent for frame(), of the node itself for everything else.
class Node {
 public:
  explicit Node(const NodePlace& place);
  virtual ~Node();
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  // A node for the view with its children, or none for an empty view.
  static std::unique_ptr<Node> create(const View& view, Tree& tree, Node* parent);
  // Brings a child's node in step with its next view: updates, replaces or removes it.
  void reconcile(std::unique_ptr<Node>& child, const View& next);

  Tree& tree() const { return tree_; }
  Node* parent() const { return parent_; }
  const View& view() const { return view_; }
  void setView(const View& view) { view_ = view; }
  std::uint64_t id() const { return id_; }
  int depth() const { return depth_; }
  bool isIn(const Node& subtree) const;
  const Rect& frame() const { return frame_; }
  Rect localBounds() const { return {0, 0, frame_.width, frame_.height}; }
  const Environment& environment() const { return *environment_; }
  bool rightToLeft() const { return environment_->layoutDirection == LayoutDirection::rightToLeft; }

  // --- Evaluate ---
  virtual void mount() {}
  // Called with a value of the same type; view() is still the old one.
  virtual void update(const View& next) = 0;
  virtual bool accepts(const View&) const { return true; }
  void setEnvironment(const EnvironmentPtr& environment);
  virtual EnvironmentPtr childEnvironment() const { return environment_; }
  virtual void forEachChild(const NodeVisitor&) {}  // in painting order, those that exist
  virtual bool hasMemory() const { return false; }  // state that its value cannot bring back

  // --- Measure and place ---
  Size measure(const ProposedSize& proposal);
  void place(const Rect& frame, const ProposedSize& proposal);
  void place(const Rect& frame) { place(frame, ProposedSize::exactly(frame.size())); }
  // Something in here takes another size now: this node and those above measure again.
  void invalidateMeasure();
  // The same size, but another inside.
  void invalidatePlacement();
  void relayout();  // by the tree, on a node whose own size does not depend on its inside
  bool needsLayout() const { return layoutDirty_; }
  virtual bool sizeIsFixed() const { return false; }
  virtual bool spring(Axis) const { return false; }  // a spacer along that axis
  virtual double priority() const { return 0; }
  // A group has no place of its own: its children are laid out by the container around it.
  virtual bool isGroup() const { return false; }
  virtual void collectItems(ItemSink& sink);
  virtual bool showsNothing() const { return false; }  // takes no room and no spacing

  // --- Record and play ---
  virtual void paint(PaintPass& pass, Point origin) { paintChildren(pass, origin); }
  void paintChildren(PaintPass& pass, Point origin);
  // Under a transform the region says nothing about a child's own coordinates.
  void paintChildrenUnculled(PaintPass& pass, Point origin);
  static void paintChild(Node& child, PaintPass& pass, Point origin);
  PlayState playState(const PaintPass& pass, Point origin) const;
  const Rect& bounds();  // all that is painted in here
  void invalidateBounds();
  virtual void damageAll();  // all that is painted in here is to be painted again
  virtual void damageOwn();  // what this node paints itself
  void endMotion() { motion_.reset(); }
  // This node draws something else from now on.
  virtual void invalidatePicture() { damageAll(); }
  Rect toWindow(const Rect& rect) const;
  Point toWindow(Point point) const { return toWindow(Rect{point.x, point.y, 0, 0}).origin(); }
  Point fromWindow(Point point) const;
  Rect visibleRect() const;  // what of this node can be seen, in its own coordinates
  // Whether some of it can be seen, or of what is around it where it has no size; not in a hidden
  // window.
  bool canBeSeen() const;
  // How a child's coordinates map to this node's.
  virtual Rect mapFromChild(const Node& child, const Rect& rect) const;
  virtual Point mapToChild(const Node& child, Point point) const;
  // Whether children show inside of the frame alone.
  virtual bool clipsChildren() const { return false; }
  Rect clipOfChildren(const Rect& visible) const {
    return clipsChildren() ? intersection(visible, localBounds()) : visible;
  }

  // --- Input ---
  // Whether the pointer finds anything of this node and its children at that point.
  virtual bool admits(Point point) const {
    return !clipsChildren() || localBounds().contains(point);
  }
  // Whether anything in here, itself included, wants presses: what looks for that may pass it by.
  bool holdsPresses() const { return pressCount_ > 0; }
  // Adds the nodes at the point, the front-most first, to the path; whether there was one.
  virtual bool hitTest(Point point, HitPath& path);
  bool hitChildren(Point point, HitPath& path);
  static bool hitChild(Node& child, Point pointInParent, HitPath& path);
  virtual bool takesPointer() const { return false; }  // the whole frame, not only what is drawn
  virtual Responder* responder() { return nullptr; }
  // Scrolls, or whatever else brings the rectangle into view.
  virtual void reveal(const Rect& /*rect*/) {}
  // Has everything around this node reveal that rectangle of it.
  void bringInSight(Rect rect);

  virtual std::string debugName() const = 0;
  virtual const std::string* identifier() const { return nullptr; }  // the id it was given
  // What this subtree tells a screen reader, added to the list.
  virtual void describe(std::vector<AccessibilityNode>& out);
  // Sets the number of that element where it is this node that tells it; whether it is.
  virtual bool setNumber(std::uint64_t /*element*/, double /*number*/) { return false; }
  virtual std::string accessibleText();  // of all texts inside, joined by blanks
  virtual std::string symbolText();      // a name made from the first symbol inside

  // That of the change that is being applied, unless motion is reduced here.
  const std::optional<Animation>& animation() const;
  Motion<Point>* motion() const { return motion_.get(); }
  Point motionOffset() const;

 protected:
  // By a node that wants presses: one when it is made, less one when it goes.
  void countPress(int change);
  virtual Size computeSize(const ProposedSize& proposal) = 0;
  virtual void layoutChildren() {}
  virtual void sizeChanged() {}
  virtual void environmentChanged(const Environment& /*old*/) {}
  virtual void childInvalidated(Node& /*child*/) {}
  virtual Rect computeBounds();
  virtual Rect ownBounds() const { return {}; }
  // A child that paints all that is painted in here, and may know of a part where it paints
  // nothing.
  virtual Node* soleInk() const { return nullptr; }
  // In another size all inside of it looks otherwise: it is cut off, or scaled about the middle.
  virtual bool sizeShapesContent() const { return false; }
  const ProposedSize& proposal() const { return proposal_; }

 private:
  friend class ItemArray;
  friend class Tree;
  struct Measured {
    double width = 0, height = 0;  // proposed; NaN where not given
    Size size;
  };
  const Size* knownSize(double width, double height) const;
  void remember(const Measured& measured);
  void clearMeasured() {
    measuredCount_ = 0;
    if (moreMeasured_) moreMeasured_->clear();
  }
  void noteMove(const Rect& next, bool resized);
  void turnTo(Point goal);

  Tree& tree_;
  Node* parent_;
  View view_;
  EnvironmentPtr environment_;
  std::uint64_t id_;
  int depth_;
  int slot_ = -1;      // index in an array of items
  int placedAt_ = -1;  // index in the tree's list of nodes placed in this frame
  int pressCount_ = 0;
  unsigned char measuredCount_ = 0;
  bool placed_ = false;
  bool layoutDirty_ = true;
  bool boundsDirty_ = true;
  bool listed_ = false;  // the tree's other lists may name it
  Rect frame_;
  Rect bounds_;
  ProposedSize proposal_;
  std::array<Measured, 2> measured_;
  std::unique_ptr<std::vector<Measured>> moreMeasured_;  // few nodes are offered more than two
  std::unique_ptr<Motion<Point>> motion_;  // from where it was shown to where it is placed
};

// A node around one child, passing everything through: a modifier overrides what it changes.
class WrapperNode : public Node {
 public:
  using Node::Node;
  void forEachChild(const NodeVisitor& visit) override {
    if (child_) visit(*child_);
  }
  bool spring(Axis axis) const override { return child_ && child_->spring(axis); }
  double priority() const override { return child_ ? child_->priority() : 0; }
  Node* child() const { return child_.get(); }
  bool showsNothing() const override { return !child_ || child_->showsNothing(); }

 protected:
  Size computeSize(const ProposedSize& proposal) override {
    return child_ ? child_->measure(proposal) : Size{};
  }
  void layoutChildren() override {
    if (child_) child_->place(localBounds(), proposal());
  }
  void setChild(const View& view) { reconcile(child_, view); }

 private:
  std::unique_ptr<Node> child_;
};

// The value of a modifier: a child and the type's own fields. V is the concrete value.
template <class V, class N>
class ModifierValue : public ViewValue {
 public:
  explicit ModifierValue(View givenChild) : child(std::move(givenChild)) {}
  const void* typeId() const final { return &detail::viewTypeId<V>; }
  std::unique_ptr<Node> makeNode(const NodePlace& place) const final {
    return std::make_unique<N>(place);
  }
  View child;
};

// A wrapper whose node is described by V: gives it its value, and mounts and updates the child.
template <class V>
class ModifierNode : public WrapperNode {
 public:
  using WrapperNode::WrapperNode;
  void mount() override { setChild(value().child); }
  void update(const View& next) override {
    const V& now = valueOf(next);
    changed(value(), now);
    setChild(now.child);
  }

 protected:
  static const V& valueOf(const View& view) { return static_cast<const V&>(*view.value()); }
  const V& value() const { return valueOf(view()); }
  // Called before the child is updated.
  virtual void changed(const V& /*was*/, const V& /*now*/) {}
};

}  // namespace zq
