// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <zqswiftui/platform/toolkit/observable.hpp>

namespace zq {

namespace detail {
class PictureOrder;
struct PicturePlace;
}  // namespace detail

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

// What the view models of pictures share. As long as a view observes one, its work goes before
// that of those which nobody shows.
class PictureModel : public ObservableObject {
 public:
  PictureModel();
  ~PictureModel() override;

  // Why the picture failed: a sentence for who looks for the fault, set before the status. Empty
  // where it did not fail, and always in release builds. Any thread.
  std::string failureReason() const;

 protected:
  void noteFailure(std::string sentence);

 private:
  friend class detail::PictureOrder;
  void wasObserved() final;

  const std::shared_ptr<detail::PicturePlace> place_;
  mutable std::mutex mutex_;
  std::string failure_;
};

}  // namespace zq
