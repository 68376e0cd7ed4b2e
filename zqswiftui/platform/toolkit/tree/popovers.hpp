// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <vector>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/tree/node.hpp>

namespace zq {

// The bubbles above a tree, each beside the view that it belongs to and inside the window.
class PopoverController {
 public:
  explicit PopoverController(Tree& tree) : tree_(tree) {}

  void show(Node& anchor, const View& content, std::function<void()> dismiss,
            HorizontalAlignment alignment);
  void update(Node& anchor, const View& content, std::function<void()> dismiss);
  void hide(const Node& anchor);
  void setEnvironment(const Node& anchor, const EnvironmentPtr& environment);
  bool dismissTop();
  Node* top() const { return bubbles_.empty() ? nullptr : bubbles_.back().content.get(); }
  // A press outside of the top bubble ends it.
  bool dismissedBy(Point position);
  void place();
  void forEachNode(const NodeVisitor& visit);
  void forget(const Node& node);

 private:
  struct Bubble {
    Node* anchor;
    std::unique_ptr<Node> content;
    std::function<void()> dismiss;
    HorizontalAlignment alignment;
    Node* focusBefore;  // gets it back
  };
  Bubble* find(const Node& anchor);
  static HorizontalAlignment placed(const Bubble& bubble);

  Tree& tree_;
  std::vector<Bubble> bubbles_;
};

// Where a bubble of that size stands beside the anchor: below it where there is room, else
// above, pushed inside the window. Leading is left here.
Rect popoverFrame(const Rect& anchor, Size bubble, Size window,
                  HorizontalAlignment alignment = HorizontalAlignment::center);

}  // namespace zq
