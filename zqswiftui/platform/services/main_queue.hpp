// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// Names one delayed call; 0 names none, and none is used twice within a process.
using DelayedCallId = std::uint64_t;

// The queue of the interface thread. Every function may be called from any thread.
//   queue.post([] { ... });
class MainQueue {
 public:
  virtual ~MainQueue() = default;

  // Runs work later on the interface thread, never inside this call; in posting order.
  virtual void post(std::function<void()> work) = 0;

  // Runs work on the interface thread once that many seconds have passed, in the order of
  // the deadlines. Never early; a negative or non-finite delay is none.
  virtual DelayedCallId postDelayed(double seconds, std::function<void()> work) = 0;

  // Called on the interface thread, the work does not run any more. An unknown or used id
  // is ignored.
  virtual void cancel(DelayedCallId id) = 0;

  virtual bool isMainThread() const = 0;
};

}  // namespace zq
