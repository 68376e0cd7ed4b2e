// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/controls/menu.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// Rows of one height of which one can be selected: by a press, by Up, Down, Home, End and the page
// keys, or by typing how its label begins. It scrolls by itself and takes the room that it is
// offered; only rows near what is seen are made, so there may be thousands. Its name for assistive
// technology is given by accessibilityLabel. Interface thread only.
//   SelectionList({.count = names->size(), .rowHeight = 24,
//                  .key = [names](std::size_t i) { return (*names)[i]; },
//                  .row = [names](std::size_t i) { return Text((*names)[i]); },
//                  .selection = selected.binding()})
class SelectionList : public ViewModifiers<SelectionList> {
 public:
  struct Parameters {
    Required<std::size_t> count;
    // In points, of texts of the usual size: it grows with larger ones. Less than 1 or not
    // finite: 1.
    Required<double> rowHeight;
    // What knows a row again, other for each. All functions are called with an index below count,
    // also when the owner's rows have changed and the next body has not run: let them hold theirs.
    Required<std::function<std::string(std::size_t index)>> key;
    Required<std::function<View(std::size_t index)>> row;  // without a ground of its own
    // The key of the selected row. Where there is no such row, none is selected, and Up and Down go
    // on from where it was.
    Required<Binding<std::optional<std::string>>> selection;
    // A row's name; without, that of the texts in it, and nothing can be found by typing.
    std::function<std::string(std::size_t index)> label = nullptr;
    // A row is dragged, or moved by Alt+Up and Alt+Down, to the index that it then has. None: rows
    // stay where they are.
    std::function<void(std::size_t from, std::size_t to)> onMove = nullptr;
    std::function<void(std::size_t index)> onActivate = nullptr;  // Return, or a double click
    std::function<void(std::size_t index)> onDelete = nullptr;    // Delete or Backspace
    // The menu of a row, by the other button of the mouse or the menu key; its shortcuts are shown,
    // and not bound.
    std::function<std::vector<MenuItem>(std::size_t index)> menu = nullptr;
  };
  explicit SelectionList(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

}  // namespace zq
