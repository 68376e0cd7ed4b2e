// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <zqswiftui/platform/base/pressure_task.hpp>
#include <zqswiftui/platform/toolkit/binding.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>

namespace zq {

namespace detail {

// Whether a write that is under way keeps its binding alive until it has happened.
enum class DeferredHold : unsigned char { weak, strong };

// What all deferred bindings share. The control's copy is published, so that a view which
// observes the binding is drawn again with each keystroke, long before the owner hears of it.
template <std::equality_comparable T>
class DeferredValue : public ObservableObject,
                      public std::enable_shared_from_this<DeferredValue<T>> {
 public:
  // For the control. It holds this object.
  Binding<T> value() {
    return Binding<T>([self = this->shared_from_this()] { return self->internal(); },
                      [self = this->shared_from_this()](const T& v) { self->write(v); });
  }
  const std::shared_ptr<ZQPressureTask>& queue() const { return queue_; }

 protected:
  DeferredValue(Binding<T> owner, std::shared_ptr<ZQPressureTask> queue, double delay,
                DeferredHold hold)
      : owner_(std::move(owner)),
        internal_(this, owner_.get()),
        queue_(queue ? std::move(queue) : ZQPressureTask::make()),
        delay_(delay),
        hold_(hold) {}

  const Binding<T>& owner() const { return owner_; }
  void setOwner(Binding<T> owner) { owner_ = std::move(owner); }
  T internal() const { return internal_.get(); }

  // Whether the value was another one, and is held now.
  bool take(const T& value) {
    if (*internal_.snapshot() == value) return false;
    internal_.set(value);
    return true;
  }
  void write(const T& value) {
    if (!take(value)) return;
    const auto self = this->shared_from_this();
    if (hold_ == DeferredHold::strong) {
      queue_->perform(delay_, [self, value] { self->tellOwner(value); });
    } else {
      queue_->perform(delay_, [weak = std::weak_ptr(self), value] {
        if (const auto alive = weak.lock()) alive->tellOwner(value);
      });
    }
  }
  void tellOwner(const T& value) {
    const Binding<T> owner = owner_;  // the owner's answer may be to replace it
    owner.set(value);
  }

 private:
  Binding<T> owner_;
  Published<T> internal_;
  std::shared_ptr<ZQPressureTask> queue_;
  double delay_;
  DeferredHold hold_;
};

}  // namespace detail

// Two-way references with a rest in between: a control reads and writes `value()`, which
// changes at once, and the owner hears only the value at which the user came to rest, after a
// quiet period in seconds. The copy is taken from the owner when the object is made and never
// again: a control that must follow the owner makes a new one. Interface thread only. An owner
// binding that is empty reads T{} and hears nothing; a queue that is null is a new one.
//   auto zoom = context.stateOf([&] { return ZQDeferredDoubleBinding::create(owner); });
//   context.observe(*zoom);  ...  Slider((*zoom)->value())

// Of any value that can be compared, 0.5 s. One that is released before its delay ends does
// not write.
template <std::equality_comparable T>
class ZQDeferredBinding final : public detail::DeferredValue<T> {
  using Base = detail::DeferredValue<T>;

 public:
  static std::shared_ptr<ZQDeferredBinding> create(Binding<T> value,
                                                   std::shared_ptr<ZQPressureTask> queue = {}) {
    return std::shared_ptr<ZQDeferredBinding>(
        new ZQDeferredBinding(std::move(value), std::move(queue)));
  }

  Binding<T> bindedValue() const { return this->owner(); }
  T internalValue() const { return this->internal(); }

  // With immediately, the owner hears of it now; a write that is already pending still comes
  // later, with its older value.
  void setValue(const T& value, bool immediately) {
    if (!immediately) return this->write(value);
    if (this->take(value)) this->tellOwner(value);
  }

  // Cuts the owner off: from here on writes land in internalValue alone.
  void commit() {
    const std::weak_ptr<Base> weak = this->weak_from_this();
    // Holding itself it would never go.
    this->setOwner(Binding<T>(
        [weak] {
          const auto self = std::static_pointer_cast<ZQDeferredBinding>(weak.lock());
          return self ? self->internal() : T{};
        },
        [weak](const T& v) {
          const auto self = std::static_pointer_cast<ZQDeferredBinding>(weak.lock());
          if (self) self->write(v);
        }));
  }

 private:
  ZQDeferredBinding(Binding<T> value, std::shared_ptr<ZQPressureTask> queue)
      : Base(std::move(value), std::move(queue), 0.5, detail::DeferredHold::weak) {}
};

// Of a number, 0.1 s: fast enough for a picture to follow a slider. A pending write happens
// also when the binding has been released. NaN differs from itself, so it is always written.
class ZQDeferredDoubleBinding final : public detail::DeferredValue<double> {
 public:
  static std::shared_ptr<ZQDeferredDoubleBinding> create(
      Binding<double> value, std::shared_ptr<ZQPressureTask> queue = {});
  Binding<double> bindedDouble() const;
  double internalDouble() const;

 private:
  ZQDeferredDoubleBinding(Binding<double> value, std::shared_ptr<ZQPressureTask> queue);
};

// Of a text, 0.5 s. A pending write happens also when the binding has been released.
class ZQDeferredTextBinding final : public detail::DeferredValue<std::string> {
 public:
  static std::shared_ptr<ZQDeferredTextBinding> create(Binding<std::string> value,
                                                       std::shared_ptr<ZQPressureTask> queue = {});
  Binding<std::string> bindedText() const;
  std::string internalText() const;

 private:
  ZQDeferredTextBinding(Binding<std::string> value, std::shared_ptr<ZQPressureTask> queue);
};

// Of an integer, 1 s. A pending write happens also when the binding has been released.
class ZQDeferredIntBinding final : public detail::DeferredValue<std::int64_t> {
 public:
  static std::shared_ptr<ZQDeferredIntBinding> create(Binding<std::int64_t> value,
                                                      std::shared_ptr<ZQPressureTask> queue = {});
  Binding<std::int64_t> bInt() const;
  std::int64_t internalValue() const;

 private:
  ZQDeferredIntBinding(Binding<std::int64_t> value, std::shared_ptr<ZQPressureTask> queue);
};

}  // namespace zq
