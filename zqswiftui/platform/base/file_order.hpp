// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <vector>
#include <zqswiftui/platform/base/url.hpp>

namespace zq {

struct DatedFile {
  const Url* url;                                             // never null
  std::optional<std::chrono::system_clock::time_point> date;  // absent: the oldest
};

// The places of the files in order of their dates, ties by path. Any thread; no disk is asked.
std::vector<std::size_t> dateOrder(const std::vector<DatedFile>& files, bool newestFirst);

}  // namespace zq
