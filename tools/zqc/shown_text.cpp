// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <cstdio>
#include <tools/zqc/shown_text.hpp>
#include <zqswiftui/platform/base/text.hpp>

namespace zq::zqc {

namespace {

struct Range {
  char32_t first;
  char32_t last;
};

// Controls, and marks that turn the direction of what follows.
constexpr std::array obeyed{Range{0, 0x1F},        Range{0x7F, 0x9F},     Range{0x61C, 0x61C},
                            Range{0x200E, 0x200F}, Range{0x2028, 0x202E}, Range{0x2066, 0x2069}};
constexpr std::array accents{Range{0x300, 0x36F}, Range{0x200B, 0x200D}, Range{0x20D0, 0x20FF},
                             Range{0xFE00, 0xFE0F}};
constexpr std::array wide{Range{0x1100, 0x115F},  Range{0x2E80, 0xA4CF},   Range{0xAC00, 0xD7A3},
                          Range{0xF900, 0xFAFF},  Range{0xFE30, 0xFE6F},   Range{0xFF00, 0xFF60},
                          Range{0xFFE0, 0xFFE6},  Range{0x1F300, 0x1F64F}, Range{0x1F900, 0x1F9FF},
                          Range{0x20000, 0x3FFFD}};

template <std::size_t count>
bool isIn(const std::array<Range, count>& ranges, char32_t c) {
  return std::ranges::any_of(
      ranges, [c](const Range& range) { return c >= range.first && c <= range.last; });
}

std::size_t columnsOf(char32_t c) {
  if (c < 0x300) return 1;
  if (isIn(accents, c)) return 0;
  return isIn(wide, c) ? 2 : 1;
}

}  // namespace

std::string shownText(std::string_view text) {
  std::string shown;
  for (std::size_t position = 0; position < text.size();) {
    const char32_t c = nextScalar(text, position);
    if (c == U'\n') {
      shown += "\\n";
    } else if (c == U'\t') {
      shown += "\\t";
    } else if (isIn(obeyed, c)) {
      std::array<char, 16> number{};
      std::snprintf(number.data(), number.size(), "\\u{%x}", static_cast<unsigned>(c));
      shown += number.data();
    } else {
      appendScalar(shown, c);
    }
  }
  return shown;
}

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  for (std::size_t position = 0; position < text.size();) {
    width += columnsOf(nextScalar(text, position));
  }
  return width;
}

std::string shortened(std::string_view text, std::size_t columns) {
  if (displayWidth(text) <= columns) return std::string(text);
  std::size_t width = 1;  // of the ellipsis
  std::size_t end = 0;
  for (std::size_t position = 0; position < text.size(); end = position) {
    width += columnsOf(nextScalar(text, position));
    if (width > columns) break;
  }
  return std::string(text.substr(0, end)) + "\u2026";
}

}  // namespace zq::zqc
