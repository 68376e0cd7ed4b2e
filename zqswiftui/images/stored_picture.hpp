// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <zqswiftui/platform/toolkit/image.hpp>

// Inside of images/ only.
namespace zq::detail {

// What the views of pictures with an id draw: the picture, stretched to the room where no mode is
// given, and nothing as long as there is none.
inline View storedPicture(const std::optional<ZQImage>& picture, std::optional<ContentMode> mode) {
  if (!picture) return {};
  const Image image(*picture);
  return mode ? image.resizable(*mode) : image.resizable(false);
}

}  // namespace zq::detail
