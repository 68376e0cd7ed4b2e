// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <utility>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// A two-way reference: a getter and a setter of a value owned elsewhere. What the two
// functions capture must keep that value alive. An empty one reads T{} and ignores writes.
//   Binding<bool> on = state.binding();   on.set(!on.get());
template <class T>
class Binding {
 public:
  Binding() = default;
  Binding(std::function<T()> get, std::function<void(const T&)> set)
      : get_(std::move(get)), set_(std::move(set)) {}

  static Binding constant(T value) {
    return Binding([value = std::move(value)] { return value; }, nullptr);
  }

  T get() const { return get_ ? get_() : T{}; }
  void set(const T& value) const {
    if (set_) set_(value);
  }

  // The same place seen as another type.
  template <class U>
  Binding<U> map(std::function<U(const T&)> to, std::function<T(const U&)> from) const {
    return Binding<U>([self = *this, to = std::move(to)] { return to(self.get()); },
                      [self = *this, from = std::move(from)](const U& v) { self.set(from(v)); });
  }

 private:
  std::function<T()> get_;
  std::function<void(const T&)> set_;
};

}  // namespace zq
