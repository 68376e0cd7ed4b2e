// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <vector>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/tree/focus.hpp>
#include <zqswiftui/platform/toolkit/tree/marks.hpp>
#include <zqswiftui/platform/toolkit/tree/node.hpp>
#include <zqswiftui/platform/toolkit/tree/pointer.hpp>
#include <zqswiftui/platform/toolkit/tree/popovers.hpp>
#include <zqswiftui/platform/toolkit/tree/text_cache.hpp>
#include <zqswiftui/platform/toolkit/view_host.hpp>

namespace zq {

class RootNode;

// The nodes of one hosted view and the frame that brings them up to date. Interface thread.
class Tree {
 public:
  Tree(View root, HostDelegate& delegate);
  ~Tree();

  // From the next frame on: a callback of the views that stand now may ask for it.
  void setRoot(const View& view);
  void setSize(Size size);
  void setAppearance(const AppearanceValues& values);
  void fontsChanged();
  void setVisible(bool visible);
  bool visible() const { return visible_; }
  RootNode& root() const { return *root_; }
  HostDelegate& delegate() const { return delegate_; }
  const EnvironmentPtr& environment() const { return environment_; }
  std::uint64_t newNodeId() { return ++lastNodeId_; }
  double now() const { return now_; }

  // --- The frame ---
  void frame();
  bool needsFrame() const;
  bool animating() const { return visible_ && !animated_.empty(); }
  // What is asked for within a frame is done by it.
  void requestFrame() {
    if (!inFrame_) inbox_->wake();
  }
  const std::shared_ptr<MarkInbox>& inbox() const { return inbox_; }
  // The animation of the change that is being applied; none with reduced motion.
  const std::optional<Animation>& animation() const { return animation_; }
  // Whether this layout follows values that are on their way, and no change.
  bool stepping() const { return stepping_; }
  void animate(Node& node);                      // its way to another place
  using Tick = std::function<bool(double now)>;  // at each frame, until it answers false
  void animate(Node& node, Tick tick);
  // After this frame's layout, when nothing is being evaluated: callbacks to the host's code.
  void later(std::function<void()> work) { later_.push_back({nullptr, std::move(work)}); }
  // The same, unless the node goes before.
  void later(Node& node, std::function<void()> work) {
    node.listed_ = true;
    later_.push_back({&node, std::move(work)});
  }
  void addLayoutRoot(Node& node);
  // Nodes that must know what of them can be seen, after each layout and scroll.
  void addVisibilityListener(Node& node, std::function<void(const Rect&)> listener);
  void visibilityMayHaveChanged() { visibilityDirty_ = true; }
  void contentChanged() { ++accessibilityVersion_; }

  // --- Damage ---
  void damage(const Node& node, const Rect& localRect);
  void damageAfterLayout(Node& node, bool whole);
  // Many neighbours may move one after the other: what is around them is looked at once, until it
  // may move itself.
  void placingChildrenOf(const Node* parent) {
    if (layingOut_ && ground_.parent != parent) ground_ = Ground{parent};
  }
  Region& damageRegion() { return damage_; }

  // --- Removal ---
  void willRemove(Node& node);  // input and focus leave it; callbacks of its end are queued
  void forget(const Node& node);

  // --- Inspection ---
  // Nodes whose body ran since the last call, those that still stand; none before the first call
  // and after stopNoting(), and nothing is kept then.
  std::vector<Node*> takeEvaluated();
  void stopNoting() { evaluated_.reset(); }
  void noteEvaluated(Node& node) {
    if (!evaluated_) return;
    node.listed_ = true;
    evaluated_->push_back(&node);
  }

  TextCache& texts() { return texts_; }
  PointerController& pointer() { return pointer_; }
  FocusController& focus() { return focus_; }
  PopoverController& popovers() { return popovers_; }
  WorkCounts& counts() { return counts_; }
  std::uint64_t accessibilityVersion() const { return accessibilityVersion_; }
  void paint(Canvas& canvas, const Region& region);
  Size sizeThatFits(const ProposedSize& proposal);

 private:
  struct Animated {
    Node* node;
    Tick tick;
  };
  struct Later {
    Node* node;  // may be none
    std::function<void()> work;
  };
  struct Placed {
    Node* node;
    bool whole;
  };
  // Where the children of a node lie in the window.
  struct Ground {
    const Node* parent = nullptr;
    bool known = false;
    bool moved = false;  // and neither scaled nor turned: by the offset alone
    Point offset{};
    Rect clip{};  // of the window
  };
  struct VisibilityListener {
    Node* node;
    std::function<void(const Rect&)> listener;
  };
  void measureAgain(Node& node);
  void tickAnimations();
  void applyRoot();
  bool applyMarks();
  void evaluate(std::vector<std::shared_ptr<detail::ViewMark>>& marks);
  void layout();
  void damagePlaced();
  Rect inWindow(const Node& node, const Rect& localRect);
  bool findGround();
  void runLater();
  void tellVisibility();

  HostDelegate& delegate_;
  std::shared_ptr<MarkInbox> inbox_;
  EnvironmentPtr environment_;
  std::uint64_t lastNodeId_ = 0;
  double now_ = 0;
  bool visible_ = true;
  bool inFrame_ = false;
  bool stepping_ = false;
  bool layingOut_ = false;
  bool visibilityDirty_ = true;
  std::optional<View> nextRoot_;
  std::optional<Animation> animation_;
  std::vector<Animated> animated_;
  std::vector<Animated> ticking_;  // what this frame's ticks run through
  std::vector<Node*> layoutRoots_;
  std::vector<Placed> placed_;
  std::deque<Later> later_;
  std::vector<VisibilityListener> visibility_;
  std::unique_ptr<std::vector<Node*>> evaluated_;  // while someone asks for them
  Region damage_;
  Ground ground_;
  WorkCounts counts_;
  std::uint64_t accessibilityVersion_ = 1;
  TextCache texts_;
  PointerController pointer_;
  FocusController focus_;
  PopoverController popovers_;
  std::unique_ptr<RootNode> root_;  // last: it goes first, while the rest still stands
};

}  // namespace zq
