// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <utility>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/services/clock.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

namespace {

constexpr double shortestInterval = 0.001;
constexpr double timerSlack = 1e-6;

}  // namespace

struct ZQTimer::Run : std::enable_shared_from_this<Run> {
  std::function<void()> action;
  double start = 0;
  double interval = 0;
  double ticks = 1;  // the number of the tick that comes next
  bool repeats = false;
  bool stopped = false;
  DelayedCallId call = 0;

  void schedule() {
    Platform& platform = Platform::current();
    const double delay = start + ticks * interval - platform.clock().now();
    call = platform.mainQueue().postDelayed(delay, [weak = weak_from_this()] {
      if (const auto run = weak.lock()) run->fire();
    });
  }

  void fire() {
    if (stopped) return;
    if (repeats) {
      const double now = Platform::current().clock().now();
      ticks = std::max(ticks + 1, std::floor((now - start + timerSlack) / interval) + 1);
      schedule();
    } else {
      stopped = true;
    }
    action();  // which may stop or destroy the timer; who calls here keeps this run
  }
};

ZQTimer::~ZQTimer() {
  stop();
}

void ZQTimer::loop(const std::string& /*name*/, double interval,
                   std::optional<double> /*tolerance*/, bool triggerImmediately,
                   std::function<void()> tick) {
  const auto first = triggerImmediately ? tick : nullptr;
  begin(interval, true, std::move(tick));
  if (first) first();
}

void ZQTimer::fireOnce(double interval, bool triggerImmediately, std::function<void()> action) {
  stop();
  if (triggerImmediately) return action();
  begin(interval, false, std::move(action));
}

void ZQTimer::begin(double interval, bool repeats, std::function<void()> action) {
  stop();
  if (!std::isfinite(interval)) return;
  run_ = std::make_shared<Run>();
  run_->action = std::move(action);
  run_->start = Platform::current().clock().now();
  run_->interval = std::max(interval, repeats ? shortestInterval : 0.0);
  run_->repeats = repeats;
  run_->schedule();
}

void ZQTimer::stop() {
  const auto run = std::exchange(run_, {});
  if (!run) return;
  run->stopped = true;
  if (Platform::installed()) Platform::current().mainQueue().cancel(run->call);
}

bool ZQTimer::isActive() const {
  return run_ && !run_->stopped;
}

}  // namespace zq
