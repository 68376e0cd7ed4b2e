// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/result.hpp>
#include <zqswiftui/platform/base/url.hpp>

namespace zq::gallery {

inline constexpr std::size_t kMostPictures = 500;

// The pictures of a folder that somebody gave.
struct Pictures {
  std::vector<Url> files;
  bool cut = false;  // there were more
};

// By their names, in the order of these; folders inside are left alone.
Result<Pictures> readPictures(const std::string& folder, std::size_t most = kMostPictures);

// What the wall shows; null: pictures of its own.
struct PicturesKey {
  using Value = std::shared_ptr<const Pictures>;
  static Value defaultValue() { return nullptr; }
};

}  // namespace zq::gallery
