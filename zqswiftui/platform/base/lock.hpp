// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <atomic>

namespace zq {

// A mutual exclusion for fields of public headers, four bytes large: <mutex> is a sixteenth of
// what the whole library costs who includes it. Not recursive. Any thread.
//   const LockGuard guard(lock_);
class Lock {
 public:
  Lock() = default;
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  friend class LockGuard;
  enum : unsigned { isFree, held, waitedFor };
  void wait();
  std::atomic<unsigned> state_{isFree};
};

class [[nodiscard]] LockGuard {
 public:
  explicit LockGuard(Lock& lock) : lock_(lock) {
    unsigned expected = Lock::isFree;
    if (!lock.state_.compare_exchange_strong(expected, Lock::held, std::memory_order_acquire,
                                             std::memory_order_relaxed)) {
      lock.wait();
    }
  }
  ~LockGuard() {
    if (lock_.state_.exchange(Lock::isFree, std::memory_order_release) == Lock::waitedFor) {
      lock_.state_.notify_one();
    }
  }
  LockGuard(const LockGuard&) = delete;
  LockGuard& operator=(const LockGuard&) = delete;

 private:
  Lock& lock_;
};

}  // namespace zq
