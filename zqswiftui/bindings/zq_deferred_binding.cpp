// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/bindings/zq_deferred_binding.hpp>

namespace zq {

ZQDeferredDoubleBinding::ZQDeferredDoubleBinding(Binding<double> value,
                                                 std::shared_ptr<ZQPressureTask> queue)
    : DeferredValue(std::move(value), std::move(queue), 0.1, detail::DeferredHold::strong) {}

std::shared_ptr<ZQDeferredDoubleBinding> ZQDeferredDoubleBinding::create(
    Binding<double> value, std::shared_ptr<ZQPressureTask> queue) {
  return std::shared_ptr<ZQDeferredDoubleBinding>(
      new ZQDeferredDoubleBinding(std::move(value), std::move(queue)));
}

ZQDeferredTextBinding::ZQDeferredTextBinding(Binding<std::string> value,
                                             std::shared_ptr<ZQPressureTask> queue)
    : DeferredValue(std::move(value), std::move(queue), 0.5, detail::DeferredHold::strong) {}

std::shared_ptr<ZQDeferredTextBinding> ZQDeferredTextBinding::create(
    Binding<std::string> value, std::shared_ptr<ZQPressureTask> queue) {
  return std::shared_ptr<ZQDeferredTextBinding>(
      new ZQDeferredTextBinding(std::move(value), std::move(queue)));
}

ZQDeferredIntBinding::ZQDeferredIntBinding(Binding<std::int64_t> value,
                                           std::shared_ptr<ZQPressureTask> queue)
    : DeferredValue(std::move(value), std::move(queue), 1.0, detail::DeferredHold::strong) {}

std::shared_ptr<ZQDeferredIntBinding> ZQDeferredIntBinding::create(
    Binding<std::int64_t> value, std::shared_ptr<ZQPressureTask> queue) {
  return std::shared_ptr<ZQDeferredIntBinding>(
      new ZQDeferredIntBinding(std::move(value), std::move(queue)));
}

Binding<double> ZQDeferredDoubleBinding::bindedDouble() const {
  return owner();
}

double ZQDeferredDoubleBinding::internalDouble() const {
  return internal();
}

Binding<std::string> ZQDeferredTextBinding::bindedText() const {
  return owner();
}

std::string ZQDeferredTextBinding::internalText() const {
  return internal();
}

Binding<std::int64_t> ZQDeferredIntBinding::bInt() const {
  return owner();
}

std::int64_t ZQDeferredIntBinding::internalValue() const {
  return internal();
}

}  // namespace zq
