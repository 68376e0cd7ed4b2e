// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

namespace zq::qt {

// The same bytes in each process that asks, of all values, NUL among them.
inline std::string payloadOf(std::size_t size, unsigned seed) {
  std::mt19937_64 random(seed);
  std::string bytes(size, '\0');
  for (std::size_t done = 0; done < size; done += sizeof(std::uint64_t)) {
    const std::uint64_t eight = random();
    std::memcpy(bytes.data() + done, &eight, std::min(size - done, sizeof(eight)));
  }
  return bytes;
}

}  // namespace zq::qt
