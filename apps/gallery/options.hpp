// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <apps/gallery/words.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <zqswiftui/platform/base/result.hpp>

namespace zq::gallery {

struct Options {
  bool help = false;
  bool list = false;
  std::optional<std::string> page;
  std::optional<std::string> words;
  std::size_t mostWords = kMostWords;
  std::optional<std::string> pictures;
  std::optional<std::string> snapshot;
  double textScale = 1;  // of the pictures
  bool rightToLeft = false;
};

// What stands on the command line, without the program's name. "--page NAME" and "--page=NAME"
// are the same.
Result<Options> readOptions(std::span<const std::string_view> arguments);

std::string helpText(bool coloured);

}  // namespace zq::gallery
