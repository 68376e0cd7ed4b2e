// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <algorithm>

#include "bench.hpp"

// Rulers and timelines of media, as each program shows them, and what it tells of them. A further
// job is a function in a file of its own, a row in the table of its program and one in
// bench/compare.py.
namespace bench {

// Answers whether the mode is that of a job about media.
bool media(const Arguments& arguments);

struct MediaJob {
  const char* mode;  // of the command line
  void (*run)(const Arguments&);
};
template <std::size_t N>
bool runMedia(const Arguments& arguments, const MediaJob (&jobs)[N]) {
  const auto* found = std::find_if(
      jobs, jobs + N, [&](const MediaJob& job) { return arguments.mode() == job.mode; });
  if (found == jobs + N) return false;
  found->run(arguments);
  return true;
}

// The ruler at full zoom: a long tick each 0.05 s, 84 points apart.
constexpr double kTickSeconds = 0.05, kTickPoints = 84;
constexpr int kRulerHeight = 40;
constexpr int kPanFrames = 150;
constexpr double kPanPoints = 37;  // a frame, so that ticks come and go
inline double rulerWidth(int seconds) {
  return seconds * (kTickPoints / kTickSeconds);
}
// The part of the time that fills the viewport.
constexpr double kSeenSeconds = kViewW * (kTickSeconds / kTickPoints);

// A bar of segments, half covered.
constexpr int kTimelineHeight = 16, kTimelineRadius = 2;

// Pans there and back, and tells the time of a frame and the longest of them; `pan(points)` moves
// to there and runs a frame.
template <class Pan>
void reportPan(const char* item, int n, const Pan& pan) {
  Series longest;
  const Series frames = repeated([&](int r) {
    double most = 0;
    const Timer all;
    for (int i = 0; i < kPanFrames; ++i) {
      const Timer one;
      pan(kPanPoints * (r % 2 ? kPanFrames - 1 - i : i + 1));
      most = std::max(most, one.ms());
    }
    const double ms = all.ms() / kPanFrames;
    if (r >= 0) longest.add(most);
    return ms;
  });
  report(item, n, frames, "a frame");
  report((std::string(item) + "-longest").c_str(), n, longest, "the longest of 150");
}

}  // namespace bench
