// ZQSwiftUI, MIT licence; see LICENSE.
#include <array>
#include <atomic>
#include <bit>
#include <cmath>
#include <cstdint>
#include <mutex>
#include <random>
#include <zqswiftui/platform/base/zq_id.hpp>

namespace zq {

namespace {

std::string hexadecimal(std::uint64_t value, int digits) {
  std::string text(static_cast<std::size_t>(digits), '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, value >>= 4) {
    *digit = "0123456789abcdef"[value & 15];
  }
  return text;
}

std::uint64_t randomNumber() {
  static std::mutex mutex;
  static std::random_device device;
  const std::lock_guard lock(mutex);
  return (std::uint64_t{device()} << 32) | device();
}

using Digest = std::array<std::uint32_t, 4>;

std::array<std::uint32_t, 64> makeSineTable() {
  std::array<std::uint32_t, 64> table{};
  for (std::size_t i = 0; i < table.size(); ++i) {
    table[i] =
        static_cast<std::uint32_t>(std::abs(std::sin(static_cast<double>(i + 1))) * 4294967296.0);
  }
  return table;
}

std::uint32_t littleEndianWord(const char* bytes) {
  std::uint32_t word = 0;
  for (int i = 3; i >= 0; --i) word = (word << 8) | static_cast<std::uint8_t>(bytes[i]);
  return word;
}

void addBlock(Digest& digest, const char* block) {
  static const auto sines = makeSineTable();
  constexpr std::array<std::array<int, 4>, 4> shifts{
      {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}}};
  auto [a, b, c, d] = digest;
  for (std::uint32_t i = 0; i < 64; ++i) {
    std::uint32_t mixed = 0;
    std::uint32_t word = 0;
    switch (i / 16) {
      case 0:
        mixed = (b & c) | (~b & d);
        word = i;
        break;
      case 1:
        mixed = (d & b) | (~d & c);
        word = (5 * i + 1) % 16;
        break;
      case 2:
        mixed = b ^ c ^ d;
        word = (3 * i + 5) % 16;
        break;
      default:
        mixed = c ^ (b | ~d);
        word = (7 * i) % 16;
        break;
    }
    const std::uint32_t sum =
        a + mixed + sines[i] + littleEndianWord(block + std::size_t{4} * word);
    a = d;
    d = c;
    c = b;
    b += std::rotl(sum, shifts[i / 16][i % 4]);
  }
  digest = {digest[0] + a, digest[1] + b, digest[2] + c, digest[3] + d};
}

}  // namespace

std::string ZQId::newId(std::string_view prefix, std::string_view text, bool useCounter) {
  static std::atomic<std::uint64_t> counter{0};
  std::string id(prefix);
  id += text;
  // Ids are kept in files, so a counter alone would come again in the next run.
  id += hexadecimal(randomNumber(), 16);
  if (useCounter) return id + hexadecimal(++counter, 8);
  return id + hexadecimal(randomNumber(), 16);
}

std::string ZQId::md5(std::string_view text) {
  Digest digest{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476};
  std::size_t position = 0;
  for (; position + 64 <= text.size(); position += 64) addBlock(digest, text.data() + position);
  std::string tail(text.substr(position));
  tail += '\x80';
  while (tail.size() % 64 != 56) tail += '\0';
  const std::uint64_t bits = std::uint64_t{text.size()} * 8;
  for (int i = 0; i < 8; ++i) tail += static_cast<char>(bits >> (8 * i));
  for (std::size_t i = 0; i < tail.size(); i += 64) addBlock(digest, tail.data() + i);
  std::string hex;
  for (const std::uint32_t word : digest) {
    for (int i = 0; i < 4; ++i) hex += hexadecimal((word >> (8 * i)) & 0xFF, 2);
  }
  return hex;
}

}  // namespace zq
