// ZQSwiftUI, MIT licence; see LICENSE.
#include <atomic>
#include <zqswiftui/platform/base/lock.hpp>

namespace zq {

namespace {

enum LockState : unsigned { isFree, held, waitedFor };

}  // namespace

// The mutex of three states in Ulrich Drepper's "Futexes Are Tricky" (2011): who has waited
// takes the lock as one that is waited for, so that the next in line is woken too.
void Lock::lock() {
  const std::atomic_ref state(state_);
  unsigned expected = isFree;
  if (state.compare_exchange_strong(expected, held, std::memory_order_acquire,
                                    std::memory_order_relaxed)) {
    return;
  }
  while (state.exchange(waitedFor, std::memory_order_acquire) != isFree) {
    state.wait(waitedFor, std::memory_order_relaxed);
  }
}

void Lock::unlock() {
  const std::atomic_ref state(state_);
  if (state.exchange(isFree, std::memory_order_release) == waitedFor) state.notify_one();
}

}  // namespace zq
