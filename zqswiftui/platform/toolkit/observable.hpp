// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <type_traits>
#include <utility>
#include <zqswiftui/platform/base/lock.hpp>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/signal.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/platform/toolkit/binding.hpp>

namespace zq {

// An object that views observe: they are drawn again after a change. Any thread.
//   struct Model : ObservableObject { Published<std::string> name{this, "none"}; };
class ObservableObject {
 public:
  ObservableObject() = default;
  ObservableObject(const ObservableObject&) = delete;
  ObservableObject& operator=(const ObservableObject&) = delete;
  virtual ~ObservableObject() = default;

  // Called on the interface thread when a view begins to observe the object: what it works on
  // for somebody who looks may go first.
  virtual void wasObserved() {}

  // Sent before each change, on the thread that makes it.
  Signal<> willChange;

  // Sent after a Published field has its new value. A view listens to both: a frame may run
  // between the two when another thread makes the change.
  Signal<> didChange;
};

// A field whose every assignment, also of an equal value, tells the owner's observers. Values
// are copied under a lock: any thread may read and write.
template <class T>
class Published {
 public:
  explicit Published(ObservableObject* owner, T initial = T{})
      : owner_(owner), value_(kept(std::move(initial))) {}
  Published(const Published&) = delete;
  Published& operator=(const Published&) = delete;

  T get() const {
    if constexpr (kPlain) {
      return value();
    } else {
      return *value();
    }
  }
  operator T() const { return get(); }

  // The value as it is now, without copying it.
  std::shared_ptr<const T> snapshot() const {
    if constexpr (kPlain) {
      return std::make_shared<const T>(value());
    } else {
      return value().pointer();
    }
  }

  void set(T value) {
    owner_->willChange.send();
    Value next = kept(std::move(value));
    {
      const LockGuard guard(lock_);
      std::swap(value_, next);
    }
    owner_->didChange.send();
  }
  Published& operator=(T value) {
    set(std::move(value));
    return *this;
  }

  // Changes the value as one step, seen by no reader half done.
  void edit(const std::function<void(T&)>& change) {
    owner_->willChange.send();
    {
      const LockGuard guard(lock_);
      if constexpr (kPlain) {
        change(value_);
      } else {
        T copy = *value_;
        change(copy);
        value_ = kept(std::move(copy));
      }
    }
    owner_->didChange.send();
  }

  // A binding that holds the owner, so it cannot dangle.
  template <class Owner>
  static Binding<T> binding(std::shared_ptr<Owner> owner, Published Owner::*field) {
    return Binding<T>([owner, field] { return ((*owner).*field).get(); },
                      [owner, field](const T& v) { ((*owner).*field).set(v); });
  }

 private:
  // What is smaller than a pointer to it is kept as it is.
  static constexpr bool kPlain = std::is_trivially_copyable_v<T> && sizeof(T) <= sizeof(void*);
  using Value = std::conditional_t<kPlain, T, Shared<const T>>;

  static Value kept(T value) {
    if constexpr (kPlain) {
      return value;
    } else {
      return std::make_shared<const T>(std::move(value));
    }
  }
  Value value() const {
    const LockGuard guard(lock_);
    return value_;
  }

  ObservableObject* owner_;
  mutable Lock lock_;
  Value value_;
};

}  // namespace zq
