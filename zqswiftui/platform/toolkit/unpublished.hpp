// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <mutex>
#include <utility>

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
    const std::lock_guard lock(mutex_);
    return value_;
  }
  operator T() const { return get(); }  // NOLINT(google-explicit-constructor): like Published

  void set(T value) {
    const std::lock_guard lock(mutex_);
    std::swap(value_, value);
  }
  Unpublished& operator=(T value) {
    set(std::move(value));
    return *this;
  }

 private:
  mutable std::mutex mutex_;
  T value_;
};

}  // namespace zq
