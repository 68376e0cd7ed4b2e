// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <utility>
#include <zqswiftui/platform/base/lock.hpp>

// Inside of bindings/ only.
namespace zq::detail {

// The value that was posted last. Threads that post at once bring their values in any order; each
// comes with the order of its post, and one that comes late changes nothing. Any thread.
template <class T>
class Latest {
 public:
  explicit Latest(T initial = T{}) : value_(std::move(initial)) {}
  Latest(const Latest&) = delete;
  Latest& operator=(const Latest&) = delete;

  T get() const {
    const LockGuard guard(lock_);
    return value_;
  }

  // Whether it is another value now.
  bool take(T value, std::uint64_t order) {
    const LockGuard guard(lock_);
    if (order < order_) return false;
    order_ = order;
    if (value_ == value) return false;
    std::swap(value_, value);  // what it was goes after the lock
    return true;
  }

 private:
  mutable Lock lock_;
  std::uint64_t order_ = 0;
  T value_;
};

}  // namespace zq::detail
