// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

// As much of the real header as generated settings use, so that many compile in a short time.

#include <cstdint>
#include <string_view>

namespace zq {

struct ZQUICPointSize {
  double x = 0;
  double y = 0;
};

template <typename T>
struct SettingSlot {
  T value{};
};

struct ZQConfig {
  template <typename T>
  T value(SettingSlot<T>& slot, std::string_view, std::string_view) const {
    return slot.value;
  }
};

}  // namespace zq
