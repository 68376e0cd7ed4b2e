// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <zqswiftui/platform/base/identifier_letters.hpp>
#include <zqswiftui/platform/base/text.hpp>

namespace zq {

namespace {

constexpr std::uint8_t byteAt(std::string_view text, std::size_t position) {
  return static_cast<std::uint8_t>(text[position]);
}

char32_t lowerScalar(char32_t c) {
  if (c >= U'A' && c <= U'Z') return c + 32;
  if (c < 0xC0) return c;
  if (c <= 0xDE) return c == 0xD7 ? c : c + 32;
  const bool evenIsUpper = (c >= 0x100 && c <= 0x137 && c != 0x130) || (c >= 0x14A && c <= 0x177) ||
                           (c >= 0x460 && c <= 0x481) || (c >= 0x48A && c <= 0x4BF) ||
                           (c >= 0x4D0 && c <= 0x52F) || (c >= 0x1E00 && c <= 0x1E95);
  if (evenIsUpper) return c | 1;
  const bool oddIsUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
  if (oddIsUpper) return c % 2 == 1 ? c + 1 : c;
  if (c >= 0x391 && c <= 0x3AB) return c == 0x3A2 ? c : c + 32;
  if (c >= 0x410 && c <= 0x42F) return c + 32;
  if (c >= 0x400 && c <= 0x40F) return c + 80;
  return c;
}

bool isDigit(char32_t c) {
  return c >= U'0' && c <= U'9';
}

char32_t upperScalar(char32_t c) {
  for (const char32_t distance : {char32_t{32}, char32_t{1}, char32_t{80}}) {
    if (c > distance && lowerScalar(c - distance) == c) return c - distance;
  }
  return c;
}

bool standsInIdentifier(char32_t c) {
  if (c >= 0x80) return isIdentifierLetter(c);
  return (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z') || isDigit(c) || c == U'_';
}

// Moves position past the next word and answers where it began; both lie at the end where
// there is none.
std::size_t nextWord(std::string_view text, std::size_t& position) {
  std::size_t begin = text.size();
  while (position < text.size()) {
    const std::size_t before = position;
    if (standsInIdentifier(nextScalar(text, position))) {
      begin = std::min(begin, before);
    } else if (begin < text.size()) {
      position = before;
      break;
    }
  }
  return begin;
}

bool isAllCapitals(std::string_view word) {
  bool capital = false;
  for (std::size_t position = 0; position < word.size();) {
    const char32_t c = nextScalar(word, position);
    if (upperScalar(c) != c) return false;
    capital = capital || lowerScalar(c) != c;
  }
  return capital;
}

void appendWord(std::string& identifier, std::string_view word, char32_t (*firstLetter)(char32_t)) {
  std::size_t position = 0;
  appendScalar(identifier, firstLetter(nextScalar(word, position)));
  identifier += word.substr(position);
}

}  // namespace

char32_t nextScalar(std::string_view text, std::size_t& position) {
  const std::uint8_t first = byteAt(text, position++);
  if (first < 0x80) return first;
  const int following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  if (first < 0xC2 || first > 0xF4) return replacementCharacter;
  // The second byte's bounds keep out long forms, surrogates and what lies beyond Unicode.
  std::uint8_t low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
  std::uint8_t high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
  char32_t scalar = first & (0x3Fu >> following);
  for (int i = 0; i < following; ++i) {
    if (position >= text.size()) return replacementCharacter;
    const std::uint8_t next = byteAt(text, position);
    if (next < low || next > high) return replacementCharacter;
    scalar = (scalar << 6) | (next & 0x3Fu);
    low = 0x80;
    high = 0xBF;
    ++position;
  }
  return scalar;
}

void appendScalar(std::string& text, char32_t scalar) {
  const auto append = [&](char32_t byte) { text += static_cast<char>(byte); };
  if (scalar > 0x10FFFF || (scalar >= 0xD800 && scalar <= 0xDFFF)) scalar = replacementCharacter;
  if (scalar < 0x80) return append(scalar);
  if (scalar < 0x800) {
    append(0xC0 | (scalar >> 6));
  } else {
    if (scalar < 0x10000) {
      append(0xE0 | (scalar >> 12));
    } else {
      append(0xF0 | (scalar >> 18));
      append(0x80 | ((scalar >> 12) & 0x3F));
    }
    append(0x80 | ((scalar >> 6) & 0x3F));
  }
  append(0x80 | (scalar & 0x3F));
}

std::size_t scalarCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t position = 0; position < text.size(); ++count) nextScalar(text, position);
  return count;
}

std::string validUtf8(std::string_view text) {
  std::string valid;
  valid.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    appendScalar(valid, nextScalar(text, position));
  }
  return valid;
}

std::string lowercased(std::string_view text) {
  std::string lower;
  lower.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    const std::uint8_t next = byteAt(text, position);
    if (next >= 0x80) {
      appendScalar(lower, lowerScalar(nextScalar(text, position)));
      continue;
    }
    lower += static_cast<char>(next >= 'A' && next <= 'Z' ? next + 32 : next);
    ++position;
  }
  return lower;
}

std::string swiftTokenize(std::string_view text) {
  std::size_t position = 0;
  const std::size_t begin = nextWord(text, position);
  const std::string_view first = text.substr(begin, position - begin);
  if (first.empty()) return "_";
  std::string identifier(isDigit(byteAt(first, 0)) ? "_" : "");
  std::size_t next = nextWord(text, position);
  if (next == text.size()) return identifier.append(first);
  if (isAllCapitals(first)) {
    identifier += lowercased(first);
  } else {
    appendWord(identifier, first, lowerScalar);
  }
  for (; next < text.size(); next = nextWord(text, position)) {
    appendWord(identifier, text.substr(next, position - next), upperScalar);
  }
  return identifier;
}

bool zqSearchContains(std::string_view text, std::string_view query) {
  return query.empty() || lowercased(text).find(lowercased(query)) != std::string::npos;
}

std::string searchAndReplace(std::string_view text, std::string_view search,
                             std::string_view replaceWith, bool ignoreCase) {
  if (search.empty()) return std::string(text);
  // Only ASCII is folded here: other letters may change their length, and with it every
  // position.
  const auto equal = [ignoreCase](char a, char b) {
    const auto fold = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    return ignoreCase ? fold(a) == fold(b) : a == b;
  };
  std::string replaced;
  auto from = text.begin();
  while (true) {
    const auto found = std::search(from, text.end(), search.begin(), search.end(), equal);
    replaced.append(from, found);
    if (found == text.end()) return replaced;
    replaced.append(replaceWith);
    from = found + static_cast<std::ptrdiff_t>(search.size());
  }
}

std::string strUt_padN(std::int64_t n, int digits) {
  std::string text = std::to_string(n);
  const std::size_t width = static_cast<std::size_t>(std::clamp(digits, 0, 1000));
  const std::size_t sign = n < 0 ? 1 : 0;
  if (text.size() < width) text.insert(sign, width - text.size(), '0');
  return text;
}

std::string strUt_getSubString(std::string_view text, std::int64_t startAt, std::int64_t endAt) {
  std::string part;
  std::int64_t index = 0;
  for (std::size_t position = 0; position < text.size() && index < endAt; ++index) {
    const char32_t c = nextScalar(text, position);
    if (index >= startAt) appendScalar(part, c);
  }
  return part;
}

}  // namespace zq
