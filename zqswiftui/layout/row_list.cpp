// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>
#include <zqswiftui/layout/row_list.hpp>
#include <zqswiftui/platform/toolkit/for_each.hpp>
#include <zqswiftui/platform/toolkit/geometry_reader.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

View rowsOf(const RowList::Parameters& list, const Rect& part) {
  const double height = list.rowHeight;
  const RowRange range = rowsBetween(part.y, part.maxY(), height, list.count);
  std::vector<std::size_t> indices;
  for (std::size_t i = range.first; i < range.end; ++i) indices.push_back(i);
  const auto row = [&list, height](std::size_t i) {
    return (*list.row)(i).flexFrame({.maxWidth = kInfinity}).frame({.height = height});
  };
  return VStack({.spacing = 0}, {ForEach(std::move(indices), *list.key, row)})
      .padding({.top = static_cast<double>(range.first) * height});
}

}  // namespace

RowRange rowsBetween(double from, double to, double rowHeight, std::size_t count) {
  if (!(to > from)) return {};
  const double most = static_cast<double>(count);
  const double first = std::clamp(std::floor(from / rowHeight), 0.0, most);
  const double end = std::clamp(std::ceil(to / rowHeight), first, most);
  return {static_cast<std::size_t>(first), static_cast<std::size_t>(end)};
}

RowList::RowList(Parameters parameters) : parameters_(std::move(parameters)) {
  const double height = parameters_.rowHeight;
  parameters_.rowHeight = std::isfinite(height) && height >= 1 ? height : 1;
}

View RowList::body(Context& /*context*/) const {
  return GeometryReader(
             [list = parameters_](Size /*size*/, const Rect& part) { return rowsOf(list, part); })
      .frame({.height = static_cast<double>(*parameters_.count) * parameters_.rowHeight});
}

}  // namespace zq
