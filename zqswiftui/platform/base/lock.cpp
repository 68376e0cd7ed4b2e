// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/base/lock.hpp>

namespace zq {

// The mutex of three states in Ulrich Drepper's "Futexes Are Tricky" (2011): who has waited
// takes the lock as one that is waited for, so that the next in line is woken too.
void Lock::wait() {
  while (state_.exchange(waitedFor, std::memory_order_acquire) != isFree) {
    state_.wait(waitedFor, std::memory_order_relaxed);
  }
}

}  // namespace zq
