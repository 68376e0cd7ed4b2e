// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <array>
#include <cstdint>
#include <zqswiftui/platform/base/time_range.hpp>

namespace zq {

// Where the ticks of a time ruler stand. Times are seconds, lengths points; all functions are
// plain arithmetic and may be called on any thread. A range that is empty, reversed or not
// finite breaks nothing here but what each function says.

// About this far apart lie two major ticks, never nearer.
inline constexpr double kRulerPitch = 84;

// What the distance of two major ticks may stand for.
inline constexpr std::array<double, 19> kRulerSteps{0.05, 0.1,  0.25,  0.5,   1,    2,   5,
                                                    10,   30,   60,    120,   300,  600, 1200,
                                                    3000, 6000, 12000, 30000, 60000};

// The time that one pitch of such a ruler stands for: (end - start) / (width / pitch). Infinite
// where a span has no width.
double secondsPerPitch(const ZQTimeRange& range, double width);

// The shortest step that is at least that long; a length of the table is its own. Above the
// longest one, and for what is no number, the program stops: no ruler can show it.
double rulerStep(double secondsPerPitch);

// The ticks of one kind: whole multiples of a step, numbered from 1 to count. Each is reckoned
// from its number alone and never from its neighbour, so that a tick keeps its value however far
// a ruler is moved.
struct RulerTicks {
  double step = 0;         // seconds from one to the next
  double wholes = 0;       // the base, after which they begin, in steps
  double shift = 0;        // 0 but for times so large that steps are not told apart
  std::int64_t count = 0;  // none where it is not positive, as in a reversed range
  double value(std::int64_t number) const {
    return step * (wholes + static_cast<double>(number)) + shift;
  }
  bool operator==(const RulerTicks&) const = default;
};

// Multiples of the step after a base near the start; the first ones may lie before the start.
//   base = min(step * trunc(start / step - 1), start)
//   count = trunc((end - start) / step + 0.5) + 1
// A number that 64 bits cannot hold, as of a time that is not finite, stops the program.
RulerTicks majorTicks(const ZQTimeRange& range, double step);

// Multiples of half the step; unlike those above they are not rounded to the nearest number.
//   base = half * trunc(start / half), count = trunc((end - start) / half) + 1
RulerTicks minorTicks(const ZQTimeRange& range, double step);

// (value - start) / (end - start) * width, from the leading edge; not finite in an empty range.
double tickPosition(double value, const ZQTimeRange& range, double width);

// The numbers of the ticks that stand from one place to another, both included; found without
// looking at the rest. None where no position is finite.
struct TickNumbers {
  std::int64_t first = 1;
  std::int64_t last = 0;
};
TickNumbers ticksBetween(const RulerTicks& ticks, const ZQTimeRange& range, double width,
                         double from, double to);

}  // namespace zq
