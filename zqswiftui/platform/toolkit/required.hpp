// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <concepts>
#include <type_traits>
#include <utility>

namespace zq {

// A field of a Parameters struct that must be given: it has no default, so leaving it out does
// not compile. Made from whatever makes a T, and read as one.
//   struct Parameters { Required<std::string> title; double width = 0; };
template <class T>
class Required {
 public:
  Required() = delete;
  Required(T value) : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  template <class U>
    requires(!std::same_as<std::remove_cvref_t<U>, Required> &&
             !std::same_as<std::remove_cvref_t<U>, T> && std::convertible_to<U &&, T>)
  Required(U&& value)  // NOLINT: must take a literal where the field is a text
      : value_(std::forward<U>(value)) {}

  const T& get() const { return value_; }
  const T& operator*() const { return value_; }
  const T* operator->() const { return &value_; }
  operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor)
  bool operator==(const Required&) const = default;

 private:
  T value_;
};

}  // namespace zq
