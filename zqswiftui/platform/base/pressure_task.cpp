// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cmath>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>
#include <zqswiftui/platform/base/pressure_task.hpp>
#include <zqswiftui/platform/services/clock.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

namespace {

// A wake-up this early counts as due: clocks round, and a wait of nothing would spin.
constexpr double clockSlack = 1e-6;

}  // namespace

// A request only stores its deadline, and one delayed call wakes for it: requests come at the
// rate of events, and a timer restarted for each costs several times as much.
struct ZQPressureTask::State : std::enable_shared_from_this<State> {
  std::mutex mutex;
  std::function<void()> action;
  double deadline = 0;
  double wakeAt = 0;
  DelayedCallId wakeUp = 0;

  void request(double delay, std::function<void()> newAction) {
    Platform& platform = Platform::current();
    const double now = platform.clock().now();
    const std::lock_guard lock(mutex);
    std::swap(action, newAction);
    deadline = now + delay;
    if (wakeUp == 0 || wakeAt > deadline) wake(platform, delay);
  }

  void wake(Platform& platform, double delay) {
    if (wakeUp != 0) platform.mainQueue().cancel(wakeUp);
    wakeAt = deadline;
    wakeUp = platform.mainQueue().postDelayed(delay, [weak = weak_from_this()] {
      if (const auto state = weak.lock()) state->awaken();
    });
  }

  void awaken() {
    std::function<void()> due;
    {
      Platform& platform = Platform::current();
      const std::lock_guard lock(mutex);
      wakeUp = 0;
      if (!action) return;
      const double remaining = deadline - platform.clock().now();
      if (remaining > clockSlack) return wake(platform, remaining);
      due = std::exchange(action, nullptr);
    }
    due();
  }

  std::function<void()> take() {
    const std::lock_guard lock(mutex);
    return std::exchange(action, nullptr);
  }

  void cancelWakeUp() {
    const std::lock_guard lock(mutex);
    const DelayedCallId id = std::exchange(wakeUp, 0);
    if (id != 0 && Platform::installed()) Platform::current().mainQueue().cancel(id);
  }

  struct Registry {
    std::mutex mutex;
    std::unordered_map<const State*, std::weak_ptr<State>> states;
  };

  // Never destroyed: tasks of static objects end after everything else.
  static Registry& registry() {
    static auto* const tasks = new Registry;
    return *tasks;
  }

  static std::vector<std::shared_ptr<State>> all() {
    std::vector<std::shared_ptr<State>> states;
    const std::lock_guard lock(registry().mutex);
    for (const auto& [key, weak] : registry().states) {
      if (auto state = weak.lock()) states.push_back(std::move(state));
    }
    return states;
  }
};

ZQPressureTask::ZQPressureTask() : state_(std::make_shared<State>()) {
  const std::lock_guard lock(State::registry().mutex);
  State::registry().states.emplace(state_.get(), state_.pointer());
}

std::shared_ptr<ZQPressureTask> ZQPressureTask::make() {
  return std::make_shared<ZQPressureTask>();
}

ZQPressureTask::~ZQPressureTask() {
  {
    const std::lock_guard lock(State::registry().mutex);
    State::registry().states.erase(state_.get());
  }
  const auto dropped = state_->take();
  state_->cancelWakeUp();
}

void ZQPressureTask::perform(double afterSeconds, std::function<void()> action) {
  const double delay = std::isfinite(afterSeconds) ? std::max(afterSeconds, 0.0) : 0.0;
  state_->request(delay, std::move(action));
}

void ZQPressureTask::flush() {
  if (const auto action = state_->take()) action();
}

void ZQPressureTask::drop() {
  const auto dropped = state_->take();
}

bool ZQPressureTask::isPending() const {
  const std::lock_guard lock(state_->mutex);
  return static_cast<bool>(state_->action);
}

void ZQPressureTask::flushAll() {
  // An action may ask for another one; a pair that keeps asking must not keep a program alive.
  for (int round = 0; round < 8; ++round) {
    bool ran = false;
    for (const auto& state : State::all()) {
      const auto action = state->take();
      if (action) action();
      ran = ran || action;
    }
    if (!ran) return;
  }
}

void ZQPressureTask::dropAll() {
  for (const auto& state : State::all()) {
    const auto dropped = state->take();
    state->cancelWakeUp();
  }
}

}  // namespace zq
