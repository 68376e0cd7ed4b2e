// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <string>

namespace zq {

// A span of time in seconds; its own identity in lists.
struct ZQTimeRange {
  double start = 0;
  double end = 0;
  bool operator==(const ZQTimeRange&) const = default;
};

}  // namespace zq

template <>
struct std::hash<zq::ZQTimeRange> {
  std::size_t operator()(const zq::ZQTimeRange& range) const noexcept {
    const std::hash<double> ofNumber;
    return ofNumber(range.start) * 31 + ofNumber(range.end);
  }
};
