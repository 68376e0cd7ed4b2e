// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <zqswiftui/images/picture_limits.hpp>

namespace zq {
namespace {

constexpr double kLongestSide = 16384;

}  // namespace

int DecodeSize::pixels() const {
  if (!(points > 0) || !(scale > 0) || !std::isfinite(points) || !std::isfinite(scale)) return 0;
  return static_cast<int>(std::min(std::ceil(points * scale), kLongestSide));
}

}  // namespace zq
