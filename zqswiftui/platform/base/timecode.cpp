// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/timecode.hpp>

namespace zq {

std::string TC::getFloatTimecode(double seconds, bool withComma) {
  constexpr std::int64_t perSecond = 100;
  constexpr std::int64_t largest = std::int64_t{100} * 3600 * perSecond - 1;
  const double finite = std::isfinite(seconds) ? std::clamp(seconds, -360000.0, 360000.0) : 0;
  // Rounded as a whole, so that 0.999 becomes a second and never 100 hundredths.
  const std::int64_t signedTotal = std::llround(finite * static_cast<double>(perSecond));
  const std::int64_t total = std::min(std::abs(signedTotal), largest);
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
