// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// The general pasteboard. Interface thread only.
struct ZQPasteboard {
  // Replaces the whole content.
  static void setString(std::string text);
  // Answers later on the interface thread, absent where the pasteboard holds no image; the
  // bytes are decoded in the background.
  static void getImage(std::function<void(std::optional<ZQImage>)> answer);
  static void getString(std::function<void(std::optional<std::string>)> answer);
};

}  // namespace zq
