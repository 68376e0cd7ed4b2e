// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/gallery/words.hpp>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <zqswiftui/platform/base/text.hpp>

namespace zq::gallery {
namespace {

constexpr std::int64_t kLongestWord = 100;
constexpr std::string_view kBlanks{" \t\r\n\v\f\0", 7};
constexpr std::string_view kPunctuation = ".,;:!?\"'`()[]{}<>*_#|/\\=+~^-";

std::string_view trimmed(std::string_view word) {
  const std::size_t first = word.find_first_not_of(kPunctuation);
  if (first == std::string_view::npos) return {};
  return word.substr(first, word.find_last_not_of(kPunctuation) - first + 1);
}

std::string shown(std::string_view word) {
  // A character has at most four bytes: nothing beyond them needs to be looked at.
  const bool huge = word.size() > static_cast<std::size_t>(kLongestWord) * 4;
  std::string text = validUtf8(huge ? word.substr(0, kLongestWord * 4) : word);
  if (!huge && text.size() <= static_cast<std::size_t>(kLongestWord)) return text;
  if (!huge && scalarCount(text) <= static_cast<std::size_t>(kLongestWord)) return text;
  return strUt_getSubString(text, 0, kLongestWord) + "…";
}

}  // namespace

Words wordsOf(std::string_view text, std::size_t most) {
  Words words;
  while (true) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    if (text.empty()) return words;
    const std::size_t end = std::min(text.find_first_of(kBlanks), text.size());
    const std::string_view word = trimmed(text.substr(0, end));
    text.remove_prefix(end);
    if (word.empty()) continue;
    if (words.list.size() >= most) {
      words.cut = true;
      return words;
    }
    words.list.push_back(shown(word));
  }
}

Result<Words> readWords(const std::string& path, std::size_t most) {
  std::error_code status;
  if (std::filesystem::is_directory(path, status)) {
    return Error{"Cannot read words from " + path + ": it is a folder."};
  }
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    const char* why = errno != 0 ? std::strerror(errno) : "it cannot be opened";
    return Error{"Cannot read words from " + path + ": " + why + "."};
  }
  std::string text(kMostWordBytes, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  if (file.bad()) return Error{"Cannot read words from " + path + ": reading failed."};
  const bool more =
      text.size() == kMostWordBytes && file.peek() != std::ifstream::traits_type::eof();
  // The last word may go on behind the cut; it is left out rather than shown in half.
  if (more) {
    const std::size_t last = text.find_last_of(kBlanks);
    if (last != std::string::npos) text.resize(last);
  }
  Words words = wordsOf(text, most);
  words.cut = words.cut || more;
  return words;
}

}  // namespace zq::gallery
