// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zq {

using PreferenceValue =
    std::variant<bool, std::int64_t, double, std::string, std::vector<std::string>>;

// What the application remembers between runs, by key. Reads answer from memory and writes
// reach the disk later. Any thread.
class Preferences {
 public:
  virtual ~Preferences() = default;
  // A value comes back in the type in which it was written.
  virtual std::optional<PreferenceValue> value(std::string_view key) const = 0;
  virtual void setValue(std::string_view key, PreferenceValue value) = 0;
  virtual void remove(std::string_view key) = 0;
};

}  // namespace zq
