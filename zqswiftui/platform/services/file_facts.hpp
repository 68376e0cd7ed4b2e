// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace zq {

// What the disk says of a file.
struct FileFacts {
  std::int64_t size = 0;  // in bytes
  std::optional<std::chrono::system_clock::time_point> modified = std::nullopt;
  bool operator==(const FileFacts&) const = default;
};

}  // namespace zq
