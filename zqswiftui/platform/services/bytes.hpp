// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <vector>

namespace zq {

using Bytes = std::vector<std::uint8_t>;

}  // namespace zq
