// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <zqswiftui/controls/opened_menu.hpp>
#include <zqswiftui/layout/selection_list.hpp>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>

namespace zq {

// What a SelectionList does with keys and the pointer. It outlives the bodies, which hand it their
// parameters; what is drawn of it is a field that only the marks observe, so that no row is made
// anew while the pointer moves. Interface thread only.
class SelectionListModel : public ObservableObject {
 public:
  // Row indices, and a rectangle of all the rows together.
  struct Marks {
    bool focused = false;
    std::optional<std::size_t> hovered = std::nullopt;
    std::optional<std::size_t> gap = std::nullopt;  // what is moved would go before that row
    std::optional<Rect> reveal = std::nullopt;
    unsigned turn = 0;  // of the revealing
    bool operator==(const Marks&) const = default;
  };
  using OpenedState = State<std::optional<detail::OpenedMenu>>;

  SelectionListModel(const SelectionList::Parameters& list, double rowHeight)
      : list_(list), rowHeight_(rowHeight) {}
  void follow(const SelectionList::Parameters& list, double rowHeight);

  Marks marks() const { return marks_.get(); }
  std::optional<std::size_t> selected();
  void select(std::size_t row);
  void pressed(std::size_t row, int clicks);
  void hovered(std::size_t row, bool inside);
  void focused(bool focused);
  void openMenu(std::size_t row, Point inRow, const OpenedState& opened);
  bool key(const KeyEvent& event, const OpenedState& opened);
  void partSeen(const Rect& part);
  void dragged(const DragValue& drag);
  void dropped();
  void cancelDrag();

 private:
  struct Moving {
    std::string key;
    double fromTop = 0;  // of the pointer, from the top of what is seen
  };
  std::size_t count() const { return list_.count; }
  double top(std::size_t row) const { return static_cast<double>(row) * rowHeight_; }
  std::optional<std::size_t> indexOf(const std::string& key);
  template <class Change>
  void mark(const Change& change);
  void reveal(const Rect& part);
  void go(std::size_t row);
  void moveRow(std::size_t from, std::size_t to);
  std::optional<std::size_t> target(Key key);
  bool act(const KeyEvent& event, const OpenedState& opened);
  bool typeAhead(const KeyEvent& event);
  void showGap();
  void scrollAtEnds();
  bool scrollStep();
  void endMoving();

  SelectionList::Parameters list_;
  double rowHeight_;
  Published<Marks> marks_{this};
  Rect seen_;             // of all the rows together
  std::size_t last_ = 0;  // where the selected row was found last
  std::string typed_;
  double typedAt_ = 0;
  std::optional<Moving> moving_;
  bool refused_ = false;  // this drag moves nothing any more
  ZQTimer scrolling_;
};

}  // namespace zq
