// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <string>
#include <utility>
#include <zqswiftui/platform/base/file_order.hpp>

namespace zq {
namespace {

using Places = std::vector<std::size_t>::iterator;

void sortByPath(Places begin, Places end, const std::vector<DatedFile>& files) {
  if (end - begin < 2) return;
  std::vector<std::pair<std::string, std::size_t>> paths;
  for (auto place = begin; place != end; ++place) {
    paths.emplace_back(files[*place].url->path(), *place);
  }
  std::stable_sort(paths.begin(), paths.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::transform(paths.begin(), paths.end(), begin, [](const auto& path) { return path.second; });
}

}  // namespace

std::vector<std::size_t> dateOrder(const std::vector<DatedFile>& files, bool newestFirst) {
  // By the dates alone at first: few are the same, and a path is made only for those.
  std::vector<std::pair<std::chrono::system_clock::time_point, std::size_t>> dates;
  dates.reserve(files.size());
  for (const DatedFile& file : files) {
    dates.emplace_back(file.date.value_or(std::chrono::system_clock::time_point::min()),
                       dates.size());
  }
  std::stable_sort(dates.begin(), dates.end(), [newestFirst](const auto& a, const auto& b) {
    return newestFirst ? b.first < a.first : a.first < b.first;
  });
  std::vector<std::size_t> order;
  order.reserve(dates.size());
  for (const auto& [date, place] : dates) order.push_back(place);
  for (std::size_t begin = 0, end = 0; begin < dates.size(); begin = end) {
    while (end < dates.size() && dates[end].first == dates[begin].first) ++end;
    sortByPath(order.begin() + static_cast<std::ptrdiff_t>(begin),
               order.begin() + static_cast<std::ptrdiff_t>(end), files);
  }
  return order;
}

}  // namespace zq
