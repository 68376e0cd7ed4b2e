// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <zqswiftui/platform/base/pressure_task.hpp>
#include <zqswiftui/platform/toolkit/observable.hpp>

namespace zq {

// A value that a control changes at once, and whose owner hears only the value at which the
// user came to rest. Made once by the control and kept for its lifetime: context.stateOf(
// [&] { return ZQDeferredTextBinding::create(owner); }). Changes of the owner's value made
// elsewhere are not picked up. Observe it to draw the control again with each new value.
// Interface thread only.

// Writes back half a second after the last change; one that is released before does not write.
template <std::equality_comparable T>
class ZQDeferredBinding : public ObservableObject,
                          public std::enable_shared_from_this<ZQDeferredBinding<T>> {
 public:
  static constexpr double kDelay = 0.5;  // seconds

  static std::shared_ptr<ZQDeferredBinding> create(
      Binding<T> owner,
      std::shared_ptr<ZQPressureTask> queue = std::make_shared<ZQPressureTask>()) {
    return std::shared_ptr<ZQDeferredBinding>(
        new ZQDeferredBinding(std::move(owner), std::move(queue)));
  }

  // For the control. It holds this object.
  Binding<T> value() {
    return Binding<T>([self = this->shared_from_this()] { return self->internalValue_.get(); },
                      [self = this->shared_from_this()](const T& v) { self->setValue(v, false); });
  }

  // Immediately: the owner is told now; a write that is already pending still follows.
  void setValue(T value, bool immediately) {
    if (value == *internalValue_.snapshot()) return;
    internalValue_.set(value);
    if (immediately) return bindedValue_.set(value);
    queue_->perform(kDelay, [weak = this->weak_from_this(), value = std::move(value)] {
      if (const auto self = weak.lock()) self->writeBack(value);
    });
  }

  // Cuts the owner off: from now on writes reach this object alone.
  void commit() {
    bindedValue_ = Binding<T>(
        [weak = this->weak_from_this()] {
          const auto self = weak.lock();
          return self ? self->internalValue_.get() : T{};
        },
        [weak = this->weak_from_this()](const T& v) {
          if (const auto self = weak.lock()) self->setValue(v, false);
        });
  }

  T internalValue() const { return internalValue_.get(); }

 private:
  ZQDeferredBinding(Binding<T> owner, std::shared_ptr<ZQPressureTask> queue)
      : bindedValue_(std::move(owner)),
        internalValue_(this, bindedValue_.get()),
        queue_(std::move(queue)) {}
  void writeBack(const T& value) {
    const Binding<T> owner = bindedValue_;  // its setter may commit
    owner.set(value);
  }

  Binding<T> bindedValue_;
  Published<T> internalValue_;
  std::shared_ptr<ZQPressureTask> queue_;
};

namespace detail {

// What the bindings of a fixed type share: they write back even when their control has gone.
template <std::equality_comparable T>
class HeldDeferredBinding : public ObservableObject {
 public:
  T internalValue() const { return internalValue_.get(); }

 protected:
  HeldDeferredBinding(Binding<T> owner, std::shared_ptr<ZQPressureTask> queue)
      : owner_(std::move(owner)), internalValue_(this, owner_.get()), queue_(std::move(queue)) {}

  template <class Self>
  static Binding<T> bindingOf(std::shared_ptr<Self> self, double delay) {
    return Binding<T>([self] { return self->internalValue(); },
                      [self, delay](const T& v) { write(self, v, delay); });
  }

 private:
  template <class Self>
  static void write(const std::shared_ptr<Self>& self, const T& value, double delay) {
    HeldDeferredBinding& held = *self;
    if (value == *held.internalValue_.snapshot()) return;
    held.internalValue_.set(value);
    // The task is held as well: were it to end with this object, the write would be dropped.
    held.queue_->perform(delay, [self, queue = held.queue_, value] {
      static_cast<HeldDeferredBinding&>(*self).owner_.set(value);
    });
  }

  Binding<T> owner_;
  Published<T> internalValue_;
  std::shared_ptr<ZQPressureTask> queue_;
};

}  // namespace detail

// The three below differ in their type and their delay.
template <std::equality_comparable T, int Milliseconds>
class ZQHeldDeferredBinding final
    : public detail::HeldDeferredBinding<T>,
      public std::enable_shared_from_this<ZQHeldDeferredBinding<T, Milliseconds>> {
 public:
  static constexpr double kDelay = Milliseconds / 1000.0;  // seconds

  static std::shared_ptr<ZQHeldDeferredBinding> create(
      Binding<T> owner,
      std::shared_ptr<ZQPressureTask> queue = std::make_shared<ZQPressureTask>()) {
    return std::shared_ptr<ZQHeldDeferredBinding>(
        new ZQHeldDeferredBinding(std::move(owner), std::move(queue)));
  }
  // For the control. It holds this object.
  Binding<T> value() { return this->bindingOf(this->shared_from_this(), kDelay); }

 private:
  using detail::HeldDeferredBinding<T>::HeldDeferredBinding;
};

using ZQDeferredDoubleBinding = ZQHeldDeferredBinding<double, 100>;
using ZQDeferredTextBinding = ZQHeldDeferredBinding<std::string, 500>;
using ZQDeferredIntBinding = ZQHeldDeferredBinding<std::int64_t, 1000>;

}  // namespace zq
