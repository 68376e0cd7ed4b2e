// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <string>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/required.hpp>
#include <zqswiftui/platform/toolkit/view.hpp>

namespace zq {

// Rows of one height, one below the other, as wide as is offered, for lists of thousands inside of
// a ScrollView: those that can be seen and a few around them are made, the others cost nothing. A
// row keeps its state as long as it is near what is seen. Interface thread only.
//   ScrollView(RowList({.count = names->size(), .rowHeight = 24,
//                       .key = [names](std::size_t i) { return (*names)[i]; },
//                       .row = [names](std::size_t i) { return Text((*names)[i]); }}))
class RowList : public ViewModifiers<RowList> {
 public:
  struct Parameters {
    Required<std::size_t> count;
    Required<double> rowHeight;  // in points; less than 1 or not finite: 1
    // What knows a row again when others come before it. Both are called with an index below count.
    Required<std::function<std::string(std::size_t index)>> key;
    Required<std::function<View(std::size_t index)>> row;
  };
  explicit RowList(Parameters parameters);

  View body(Context& context) const;

 private:
  Parameters parameters_;
};

// Which rows meet a stretch of the list, first and one behind the last; lengths in points.
struct RowRange {
  std::size_t first = 0;
  std::size_t end = 0;
  bool operator==(const RowRange&) const = default;
};
RowRange rowsBetween(double from, double to, double rowHeight, std::size_t count);

}  // namespace zq
