// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <zqswiftui/platform/services/require.hpp>

namespace zq {

// A sentence that a person can act on.
struct Error {
  std::string sentence;
  bool operator==(const Error&) const = default;
};

// A value, or why there is none. Asking for the one that is not there stops the program.
//   Result<std::string> text = readTextFile(path, limit);
//   if (!text.ok()) return text.error();
template <typename T>
class [[nodiscard]] Result {
 public:
  Result(T value) : content_(std::in_place_index<0>, std::move(value)) {}
  Result(Error error) : content_(std::in_place_index<1>, std::move(error)) {}

  bool ok() const { return content_.index() == 0; }
  const T& value() const& {
    ZQ_REQUIRE(ok(), "Result: it holds an error, not a value");
    return *std::get_if<0>(&content_);
  }
  T&& value() && {
    ZQ_REQUIRE(ok(), "Result: it holds an error, not a value");
    return std::move(*std::get_if<0>(&content_));
  }
  const Error& error() const {
    ZQ_REQUIRE(!ok(), "Result: it holds a value, not an error");
    return *std::get_if<1>(&content_);
  }

 private:
  std::variant<T, Error> content_;
};

// Done, or why not.
template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Error error) : error_(std::move(error)) {}

  bool ok() const { return !error_; }
  const Error& error() const {
    ZQ_REQUIRE(!ok(), "Result: it holds no error");
    return *error_;
  }

 private:
  std::optional<Error> error_;
};

}  // namespace zq
