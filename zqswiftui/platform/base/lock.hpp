// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

namespace zq {

// A mutual exclusion for fields of public headers, four bytes large: <mutex> and <atomic> are a
// tenth of what the whole library costs who includes it. Not recursive. Any thread.
//   const LockGuard guard(lock_);
class Lock {
 public:
  Lock() = default;
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  friend class LockGuard;
  void lock();
  void unlock();
  unsigned state_ = 0;
};

class [[nodiscard]] LockGuard {
 public:
  explicit LockGuard(Lock& lock) : lock_(lock) { lock_.lock(); }
  ~LockGuard() { lock_.unlock(); }
  LockGuard(const LockGuard&) = delete;
  LockGuard& operator=(const LockGuard&) = delete;

 private:
  Lock& lock_;
};

}  // namespace zq
