// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <limits>

namespace zq {

inline constexpr double kInf = std::numeric_limits<double>::infinity();
inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

}  // namespace zq
