// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <utility>
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
  Result(T value) : value_(std::move(value)) {}
  Result(Error error) : error_(std::move(error)) {}

  bool ok() const { return value_.has_value(); }
  const T& value() const& {
    ZQ_REQUIRE(ok(), "Result: it holds an error, not a value");
    return *value_;
  }
  T&& value() && {
    ZQ_REQUIRE(ok(), "Result: it holds an error, not a value");
    return *std::move(value_);
  }
  const Error& error() const {
    ZQ_REQUIRE(!ok(), "Result: it holds a value, not an error");
    return error_;
  }

 private:
  std::optional<T> value_;
  Error error_;
};

// Done, or why not.
template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Error error) : failed_(true), error_(std::move(error)) {}

  bool ok() const { return !failed_; }
  const Error& error() const {
    ZQ_REQUIRE(!ok(), "Result: it holds no error");
    return error_;
  }

 private:
  bool failed_ = false;
  Error error_;
};

}  // namespace zq
