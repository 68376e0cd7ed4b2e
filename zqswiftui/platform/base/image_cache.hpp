// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <zqswiftui/platform/base/zq_image.hpp>
#include <zqswiftui/platform/services/bundle.hpp>

namespace zq {

struct ImageCache {
  // The picture resource of that name, with or without its extension, of the bundle or else
  // of the application; absent where there is none. As long as somebody shows a picture it is
  // not decoded again, nor twice at the same time. Any thread; waits for the file.
  static std::optional<ZQImage> getImage(const std::string& name, const Bundle* bundle = nullptr);
};

}  // namespace zq
