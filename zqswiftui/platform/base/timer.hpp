// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// A timer on the interface thread; starting it again replaces what it did, and destroying it
// stops it. Ticks come as exactly as the platform can, which every tolerance allows; names
// only tell a reader what a timer is for. Interface thread only.
//   timer.loop("frames", 1.0 / 30, std::nullopt, false, [] { ... });
class ZQTimer {
 public:
  explicit ZQTimer(std::optional<double> tolerance = std::nullopt) { static_cast<void>(tolerance); }
  ~ZQTimer();
  ZQTimer(const ZQTimer&) = delete;
  ZQTimer& operator=(const ZQTimer&) = delete;

  // Calls tick every interval seconds, counted from now: a tick that comes late does not move
  // the next ones, and ticks that were missed are dropped. Intervals below a millisecond are
  // taken as one; a non-finite one starts nothing. Immediately means once more, now.
  void loop(const std::string& name, double interval, std::optional<double> tolerance,
            bool triggerImmediately, std::function<void()> tick);
  // Calls action once, after interval seconds, or now and not again.
  void fireOnce(double interval, bool triggerImmediately, std::function<void()> action);
  void stop();
  bool isActive() const;

 private:
  struct Run;
  void begin(double interval, bool repeats, std::function<void()> action);
  Shared<Run> run_;
};

}  // namespace zq
