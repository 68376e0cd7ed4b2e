// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <chrono>

namespace zq {

// The time of everything that waits or shows a time. Any thread.
class Clock {
 public:
  virtual ~Clock() = default;
  // Seconds since an arbitrary start; never runs backwards.
  virtual double now() const = 0;
  // The date and time of day, which a user may set.
  virtual std::chrono::system_clock::time_point wallTime() const = 0;
};

}  // namespace zq
