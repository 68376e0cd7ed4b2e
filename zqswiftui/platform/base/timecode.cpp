// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/timecode.hpp>

namespace zq {

std::string TC::getFloatTimecode(double seconds, bool withComma) {
  constexpr std::int64_t perSecond = 100;
  constexpr double most = 1e12;
  const double finite = std::isfinite(seconds) ? std::clamp(seconds, -most, most) : 0;
  // Rounded as a whole, so that 0.999 becomes a second and never 100 hundredths.
  const std::int64_t signedTotal = std::llround(finite * static_cast<double>(perSecond));
  const std::int64_t total = std::abs(signedTotal);
  const std::int64_t wholeSeconds = total / perSecond;
  std::string text = signedTotal < 0 ? "-" : "";
  text += strUt_padN(wholeSeconds / 3600, 2);
  text += ':';
  text += strUt_padN(wholeSeconds / 60 % 60, 2);
  text += ':';
  text += strUt_padN(wholeSeconds % 60, 2);
  text += withComma ? ',' : '.';
  text += strUt_padN(total % perSecond, 2);
  return text;
}

}  // namespace zq
