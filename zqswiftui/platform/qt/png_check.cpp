// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <string_view>
#include <zqswiftui/platform/qt/png_check.hpp>

namespace zq::qt {
namespace {

using File = std::span<const std::uint8_t>;

std::uint32_t numberAt(File file, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < 4; ++i) number = number << 8 | file[at + i];
  return number;
}

// The sum of the PNG and gzip formats (ISO 3309), eight bytes at a time.
constexpr std::size_t kStep = 8;
using Table = std::array<std::uint32_t, 256>;

constexpr std::array<Table, kStep> tables() {
  std::array<Table, kStep> all{};
  for (std::uint32_t i = 0; i < 256; ++i) {
    std::uint32_t sum = i;
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ (0xedb88320U & (0U - (sum & 1U)));
    all[0][i] = sum;
  }
  for (std::size_t k = 1; k < kStep; ++k) {
    for (std::size_t i = 0; i < 256; ++i) {
      all[k][i] = (all[k - 1][i] >> 8) ^ all[0][all[k - 1][i] & 0xff];
    }
  }
  return all;
}

std::uint32_t checksum(File bytes) {
  static constexpr std::array<Table, kStep> table = tables();
  std::uint32_t sum = 0xffffffffU;
  std::size_t i = 0;
  for (; i + kStep <= bytes.size(); i += kStep) {
    const std::uint8_t* b = bytes.data() + i;
    sum = table[7][b[0] ^ (sum & 0xff)] ^ table[6][b[1] ^ (sum >> 8 & 0xff)] ^
          table[5][b[2] ^ (sum >> 16 & 0xff)] ^ table[4][b[3] ^ (sum >> 24)] ^ table[3][b[4]] ^
          table[2][b[5]] ^ table[1][b[6]] ^ table[0][b[7]];
  }
  for (; i < bytes.size(); ++i) sum = (sum >> 8) ^ table[0][(sum ^ bytes[i]) & 0xff];
  return ~sum;
}

bool isPossibleHeader(File content) {
  if (content.size() != 13) return false;
  const auto isSide = [](std::uint32_t side) { return side > 0 && side <= 0x7fffffffU; };
  const std::uint8_t depth = content[8], kind = content[9];
  std::string_view depths;
  if (kind == 0) depths = "\1\2\4\10\20";
  if (kind == 3) depths = "\1\2\4\10";
  if (kind == 2 || kind == 4 || kind == 6) depths = "\10\20";
  return isSide(numberAt(content, 0)) && isSide(numberAt(content, 4)) &&
         depths.find(static_cast<char>(depth)) != std::string_view::npos && content[10] == 0 &&
         content[11] == 0 && content[12] <= 1;
}

}  // namespace

bool isDamagedPng(File file) {
  constexpr std::array<std::uint8_t, 8> mark{0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
  if (file.size() < mark.size() || !std::equal(mark.begin(), mark.end(), file.begin())) {
    return false;
  }
  for (std::size_t at = mark.size(); at + 12 <= file.size();) {
    // Its length, its name, its content, and the sum of the latter two.
    const std::size_t length = numberAt(file, at);
    if (length > file.size() - at - 12) return true;
    const File chunk = file.subspan(at + 4, length + 4);
    const std::string_view name(reinterpret_cast<const char*>(chunk.data()), 4);
    if ((at == mark.size()) != (name == "IHDR")) return true;
    if (name == "IHDR" && !isPossibleHeader(chunk.subspan(4))) return true;
    // Those that begin with a small letter are left out where they are damaged.
    const bool needed = (chunk[0] & 0x20) == 0;
    if (needed && checksum(chunk) != numberAt(file, at + 8 + length)) return true;
    if (name == "IEND") return false;
    at += 12 + length;
  }
  return true;
}

}  // namespace zq::qt
