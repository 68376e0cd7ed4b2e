// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>

namespace zq {

// A value that is made when it is first asked for, and asked for often: then it costs one load.
// Any thread.
//   const Index& index = index_.get([&] { return std::make_unique<Index>(groups); });
template <typename T>
class MadeOnce {
 public:
  template <typename Make>
  const T& get(const Make& make) const {
    if (const T* const made = made_.load(std::memory_order_acquire)) return *made;
    const std::lock_guard lock(mutex_);
    if (!owned_) {
      owned_ = make();
      made_.store(owned_.get(), std::memory_order_release);
    }
    return *owned_;
  }

 private:
  mutable std::atomic<const T*> made_{nullptr};
  mutable std::mutex mutex_;
  mutable std::unique_ptr<const T> owned_;
};

}  // namespace zq
