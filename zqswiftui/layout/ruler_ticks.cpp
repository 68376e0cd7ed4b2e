// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <zqswiftui/layout/ruler_ticks.hpp>
#include <zqswiftui/platform/services/require.hpp>

namespace zq {
namespace {

// Without its fraction, as a whole number of 64 bits.
std::int64_t whole(double value) {
  constexpr double limit = 0x1p63;
  ZQ_REQUIRE(value >= -limit && value < limit,
             "ZQRulerView: the ticks of the range cannot be counted; a time is not finite, or so "
             "large that a tick's number does not fit 64 bits");
  return static_cast<std::int64_t>(value);
}

// The first number for which `reached`, which goes from false to true; past the last if none.
template <class Reached>
std::int64_t firstWhere(std::int64_t count, const Reached& reached) {
  std::int64_t low = 1, high = std::max<std::int64_t>(count, 0) + 1;
  while (low < high) {
    const std::int64_t middle = low + (high - low) / 2;
    if (reached(middle)) {
      high = middle;
    } else {
      low = middle + 1;
    }
  }
  return low;
}

}  // namespace

double secondsPerPitch(const ZQTimeRange& range, double width) {
  return (range.end - range.start) / (width / kRulerPitch);
}

double rulerStep(double secondsPerPitch) {
  const auto* const step =
      std::find_if(kRulerSteps.begin(), kRulerSteps.end(),
                   [&](double candidate) { return candidate >= secondsPerPitch; });
  ZQ_REQUIRE(step != kRulerSteps.end(),
             "ZQRulerView: 84 points would stand for more than 60000 seconds, or for no number; "
             "show a shorter range or give the ruler more width");
  return *step;
}

RulerTicks majorTicks(const ZQTimeRange& range, double step) {
  const std::int64_t count = whole((range.end - range.start) / step + 0.5) + 1;
  const double wholes = static_cast<double>(whole(range.start / step - 1));
  return {.step = step,
          .wholes = wholes,
          .shift = std::min(0.0, range.start - step * wholes),
          .count = count};
}

RulerTicks minorTicks(const ZQTimeRange& range, double step) {
  const double half = step * 0.5;
  const std::int64_t count = whole((range.end - range.start) / half) + 1;
  return {.step = half,
          .wholes = static_cast<double>(whole(range.start / half)),
          .shift = 0,
          .count = count};
}

double tickPosition(double value, const ZQTimeRange& range, double width) {
  return (value - range.start) / (range.end - range.start) * width;
}

TickNumbers ticksBetween(const RulerTicks& ticks, const ZQTimeRange& range, double width,
                         double from, double to) {
  const auto position = [&](std::int64_t n) { return tickPosition(ticks.value(n), range, width); };
  // A comparison with NaN is false, so that an empty range has no tick anywhere.
  const std::int64_t first =
      firstWhere(ticks.count, [&](std::int64_t n) { return position(n) >= from; });
  const std::int64_t beyond =
      firstWhere(ticks.count, [&](std::int64_t n) { return !(position(n) <= to); });
  return {.first = first, .last = beyond - 1};
}

}  // namespace zq
