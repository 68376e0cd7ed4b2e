// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/base/result.hpp>

namespace zq::gallery {

inline constexpr std::size_t kMostWordBytes = 16u << 20;
inline constexpr std::size_t kMostWords = 10'000;

// Words of a file that somebody gave, so everything about them is bounded.
struct Words {
  std::vector<std::string> list;
  bool cut = false;  // there were more
};

// Split at blanks, freed of punctuation at both ends; what is not UTF-8 is replaced, and a
// word of more than a hundred characters is shortened.
Words wordsOf(std::string_view text, std::size_t most = kMostWords);

// From the first 16 MB of the file.
Result<Words> readWords(const std::string& path, std::size_t most = kMostWords);

// The words that the tags page shows; null: its own.
struct WordsKey {
  using Value = std::shared_ptr<const Words>;
  static Value defaultValue() { return nullptr; }
};

}  // namespace zq::gallery
