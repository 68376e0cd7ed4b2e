// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <utility>
#include <zqswiftui/platform/base/lock.hpp>

namespace zq {

// A field like a Published one that tells nobody of its changes; its owner does, where it wants
// to. Any thread.
template <class T>
class Unpublished {
 public:
  explicit Unpublished(T initial = T{}) : value_(std::move(initial)) {}
  Unpublished(const Unpublished&) = delete;
  Unpublished& operator=(const Unpublished&) = delete;

  T get() const {
    const LockGuard guard(lock_);
    return value_;
  }
  operator T() const { return get(); }  // NOLINT(google-explicit-constructor): like Published

  void set(T value) {
    const LockGuard guard(lock_);
    std::swap(value_, value);
  }
  Unpublished& operator=(T value) {
    set(std::move(value));
    return *this;
  }

 private:
  mutable Lock lock_;
  T value_;
};

}  // namespace zq
