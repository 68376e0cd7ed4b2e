// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <utility>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/settings/cpp_literal.hpp>

namespace zq {

namespace {

constexpr std::size_t widestLiteral = 98;
constexpr std::size_t narrowestPiece = 40;
constexpr std::size_t longestKeptWord = 12;
// A literal's own size is counted one by one where it is asked for at compile time.
constexpr std::size_t longestCounted = 4000;
constexpr std::size_t longestComment = 60;

// Beyond ASCII what is not seen, what turns the direction of a line, and what may stand for
// bytes that are no character.
constexpr std::array hidden{
    std::pair{0x7F, 0xA0},     std::pair{0xAD, 0xAD},     std::pair{0x61C, 0x61C},
    std::pair{0x180E, 0x180E}, std::pair{0x2000, 0x200F}, std::pair{0x2028, 0x202F},
    std::pair{0x205F, 0x206F}, std::pair{0x3000, 0x3000}, std::pair{0xE000, 0xF8FF},
    std::pair{0xFEFF, 0xFEFF}, std::pair{0xFFF0, 0xFFFF}, std::pair{0xE0000, 0x10FFFF}};

bool isPrintable(char32_t c) {
  if (c < 0x7F) return c >= 0x20;
  const auto code = static_cast<int>(c);
  return std::ranges::none_of(
      hidden, [code](const auto& range) { return code >= range.first && code <= range.second; });
}

// Three digits, so that a digit that follows is not taken for a fourth.
void appendOctal(std::string& code, std::string_view bytes) {
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    code += '\\';
    for (const unsigned shift : {6u, 3u, 0u})
      code += static_cast<char>('0' + ((byte >> shift) & 7u));
  }
}

// `afterQuestion`: two question marks in a row may begin another character.
void appendCharacter(std::string& code, char32_t c, std::string_view bytes, bool afterQuestion) {
  if (c == U'\n') {
    code += "\\n";
  } else if (c == U'\t') {
    code += "\\t";
  } else if (!isPrintable(c)) {
    appendOctal(code, bytes);
  } else {
    if (c == U'"' || c == U'\\' || (c == U'?' && afterQuestion)) code += '\\';
    code += bytes;
  }
}

std::string literal(std::string_view text, std::size_t column) {
  const std::size_t room =
      column + narrowestPiece < widestLiteral ? widestLiteral - column : narrowestPiece;
  std::string code = "\"";
  std::size_t begin = 0;  // of the line's piece
  char32_t last = 0;
  for (std::size_t position = 0; position < text.size();) {
    const std::size_t size = code.size() - begin;
    // Rather between words than within one.
    const bool full = size > room || (last == U' ' && size + longestKeptWord > room);
    if (last == U'\n' || full) {
      code.append("\"\n").append(column, ' ').append("\"");
      begin = code.size() - 1;
    }
    const std::size_t before = position;
    const char32_t c = nextScalar(text, position);
    appendCharacter(code, c, text.substr(before, position - before), last == U'?');
    last = c;
  }
  return code + "\"";
}

}  // namespace

std::string cppText(std::string_view text, std::size_t column) {
  const bool ownSize = text.size() > longestCounted || text.find('\0') != std::string_view::npos;
  if (!ownSize) return literal(text, column);
  return "{" + literal(text, column + 1) + ", " + std::to_string(text.size()) + "}";
}

std::string cppComment(std::string_view text) {
  std::string comment = "\"";
  for (std::size_t position = 0; position < text.size();) {
    if (comment.size() > longestComment) {
      comment += " ...";
      break;
    }
    const std::size_t before = position;
    const char32_t c = nextScalar(text, position);
    const bool plain = isPrintable(c) && c != U'\\';
    comment += plain ? text.substr(before, position - before) : std::string_view(" ");
  }
  return comment + "\"";
}

}  // namespace zq
