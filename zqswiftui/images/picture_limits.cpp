// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <atomic>
#include <cmath>
#include <zqswiftui/images/picture_limits.hpp>

namespace zq {
namespace {

constexpr double kLongestSide = 16384;
std::atomic<std::int64_t> pixelLimit{std::int64_t{1} << 27};

}  // namespace

void setPicturePixelLimit(std::int64_t pixels) {
  pixelLimit = std::max<std::int64_t>(pixels, 1);
}

std::int64_t picturePixelLimit() {
  return pixelLimit;
}

int DecodeSize::pixels() const {
  if (!(points > 0) || !(scale > 0) || !std::isfinite(points) || !std::isfinite(scale)) return 0;
  return static_cast<int>(std::min(std::ceil(points * scale), kLongestSide));
}

}  // namespace zq
