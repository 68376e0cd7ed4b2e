// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <zqswiftui/platform/base/number_text.hpp>

namespace zq {

namespace {

constexpr double lastExactWhole = 9007199254740992.0;  // 2^53
constexpr double firstFixed = 0.0001;

template <typename Number>
std::optional<Number> whole(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || rest != end) return std::nullopt;
  return number;
}

struct Decimal {
  std::string digits;      // without zeros before them
  std::int64_t scale = 0;  // the number is digits times ten to the scale
};

// A fraction and an exponent taken apart; absent where the text is no such number.
std::optional<Decimal> decimal(std::string_view text) {
  if (text.empty() || text[0] < '0' || text[0] > '9') return std::nullopt;
  Decimal parts;
  const std::size_t exponentAt = std::min(text.find_first_of("eE"), text.size());
  if (exponentAt < text.size()) {
    std::string_view exponent = text.substr(exponentAt + 1);
    if (exponent.starts_with('+')) exponent.remove_prefix(1);
    const auto scale = whole<std::int32_t>(exponent);
    if (!scale) return std::nullopt;
    parts.scale = *scale;
  }
  bool fraction = false;
  for (const char c : text.substr(0, exponentAt)) {
    if (c == '.') {
      if (fraction) return std::nullopt;
      fraction = true;
      continue;
    }
    if (c < '0' || c > '9') return std::nullopt;
    if (c != '0' || !parts.digits.empty()) parts.digits += c;
    parts.scale -= fraction ? 1 : 0;
  }
  return parts;
}

// Most numbers that people write have a few decimals, and those are found by counting.
// Absent where the value is no such number.
std::optional<std::int64_t> tenThousandths(double value) {
  constexpr double most = 1e10;
  if (!(std::abs(value) < most) || (value == 0 && std::signbit(value))) return std::nullopt;
  const auto count = static_cast<std::int64_t>(std::llround(value * 10000));
  // Of at most 15 digits no two decimals read as the same number, so this one is the shortest.
  if (static_cast<double>(count) / 10000 != value) return std::nullopt;
  return count;
}

void appendTenThousandths(std::string& text, std::int64_t count) {
  const auto size = static_cast<std::uint64_t>(count < 0 ? -count : count);
  std::array<char, 24> digits{};
  char* end = std::to_chars(digits.data(), digits.data() + digits.size(), size / 10000).ptr;
  *end++ = '.';
  for (std::uint64_t rest = size % 10000, unit = 1000; unit > 0; rest %= unit, unit /= 10) {
    *end++ = static_cast<char>('0' + rest / unit);
    if (rest % unit == 0) break;
  }
  if (count < 0) text += '-';
  text.append(digits.data(), end);
}

}  // namespace

void appendStandardText(std::string& text, double value) {
  if (const auto count = tenThousandths(value)) return appendTenThousandths(text, *count);
  if (std::isnan(value)) {
    text += "nan";
    return;
  }
  if (std::isinf(value)) {
    text += value < 0 ? "-inf" : "inf";
    return;
  }
  const double size = std::abs(value);
  const bool scientific = size > lastExactWhole || (size != 0 && size < firstFixed);
  std::array<char, 40> digits{};
  const auto written =
      std::to_chars(digits.data(), digits.data() + digits.size(), value,
                    scientific ? std::chars_format::scientific : std::chars_format::fixed);
  text.append(digits.data(), written.ptr);
  if (!scientific && std::find(digits.data(), written.ptr, '.') == written.ptr) text += ".0";
}

std::string standardText(double value) {
  std::string text;
  appendStandardText(text, value);
  return text;
}

void appendNumber(std::string& text, std::int64_t value) {
  std::array<char, 24> digits{};
  text.append(digits.data(),
              std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr);
}

std::string spokenNumber(double value, int decimals) {
  constexpr double kLarge = 1e15;
  if (!(std::abs(value) < kLarge)) return standardText(value);
  const double scale = std::pow(10.0, decimals);
  const double shown = std::round(value * scale) / scale + 0.0;  // no zero with a sign
  std::array<char, 64> digits{};
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), shown,
                                     std::chars_format::fixed, decimals);
  std::string text(digits.data(), written.ptr);
  if (text.find('.') == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  constexpr std::size_t mostDigits = std::numeric_limits<std::uint64_t>::digits10;
  if (const auto plain = whole<std::int64_t>(text)) return plain;
  const bool negative = text.starts_with('-');
  auto parts = decimal(text.substr(negative ? 1 : 0));
  if (!parts) return std::nullopt;
  while (parts->scale < 0 && parts->digits.ends_with('0')) {
    parts->digits.pop_back();
    ++parts->scale;
  }
  if (parts->digits.empty()) return 0;
  if (parts->scale < 0 || parts->scale > static_cast<std::int64_t>(mostDigits)) return std::nullopt;
  parts->digits.append(static_cast<std::size_t>(parts->scale), '0');
  return whole<std::int64_t>((negative ? "-" : "") + parts->digits);
}

std::optional<double> finiteNumber(std::string_view text) {
  const auto number = whole<double>(text);
  if (number) return std::isfinite(*number) ? number : std::nullopt;
  // Too near zero to be told from it is no fault, unlike too far from it.
  const bool negative = text.starts_with('-');
  const auto parts = decimal(text.substr(negative ? 1 : 0));
  if (!parts || std::ssize(parts->digits) + parts->scale > 0) return std::nullopt;
  return negative ? -0.0 : 0.0;
}

}  // namespace zq
