// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/toolkit/events.hpp>
#include <zqswiftui/platform/toolkit/tree/node.hpp>

namespace zq {

// The pointer in one tree: what it hovers over, presses, drags and drops on. Hover is derived:
// after each move and each layout, from where the pointer is and what stands there.
class PointerController {
 public:
  explicit PointerController(Tree& tree) : tree_(tree) {}

  bool down(Point position, PointerButton button, int clicks);
  bool move(Point position);
  bool up(Point position, PointerButton button);
  void left();
  // What a press at that point would press; none where nothing would be.
  Node* pressTarget(Point position) const;
  bool wheel(const WheelEvent& event);
  bool dragMoved(const DropInfo& info);
  void dragLeft();
  std::vector<std::string> dropTypes(const DropInfo& info) const;
  bool drop(const DropInfo& info);

  void setWindowActive(bool active);
  void setVisible(bool visible);
  void refresh();         // what stands under the pointer may be another
  void cancelGestures();  // taken away: nothing is pressed, dragged or hovered any more
  void willRemove(const Node& subtree);  // hover and drags in it end, told after the frame
  void forget(const Node& node);

 private:
  HitPath hit(Point position) const;
  // The same, with the small target that is meant by a point beside it.
  HitPath aimed(Point position) const;
  void setHovered(std::vector<Node*> nodes);
  void updateCursorAndHelp(const HitPath& path);
  void setTargeted(Node* node);
  Node* dropNode(const DropInfo& info, Point& local) const;
  bool secondaryTap(Point position);
  DragValue dragValue(Point position) const;
  void endPress(bool fire);
  void cancelDrag();

  Tree& tree_;
  std::optional<Point> position_;
  bool active_ = true;
  bool visible_ = true;
  std::vector<Node*> hovered_;
  std::vector<Node*> grabPath_;  // while a button is down: only these may be hovered
  Node* press_ = nullptr;
  bool pressInside_ = false;
  Node* drag_ = nullptr;
  bool dragging_ = false;
  Point dragStart_;
  Node* targeted_ = nullptr;
  Cursor cursor_ = Cursor::arrow;
  std::string help_;
};

}  // namespace zq
