// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <zqswiftui/platform/base/uri_list.hpp>
#include <zqswiftui/platform/base/url.hpp>

namespace zq {
namespace {

constexpr std::size_t kLongestLine = 65536;

std::string_view trimmed(std::string_view line) {
  constexpr std::string_view blanks(" \t\r\n\0", 5);
  const std::size_t first = line.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(blanks) - first + 1);
}

}  // namespace

std::string_view addressLine(std::string_view line) {
  line = trimmed(line);
  return line.size() <= kLongestLine && hasScheme(line) ? line : std::string_view();
}

// A comment has no scheme.
std::vector<std::string_view> addressLines(std::string_view list) {
  std::vector<std::string_view> lines;
  while (!list.empty() && lines.size() < kMostAddresses) {
    const std::size_t end = std::min(list.find_first_of("\r\n"), list.size());
    if (const auto line = addressLine(list.substr(0, end)); !line.empty()) lines.push_back(line);
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return lines;
}

bool isFileAddress(std::string_view line) {
  constexpr std::string_view scheme = "file:";
  return line.size() > scheme.size() &&
         std::equal(scheme.begin(), scheme.end(), line.begin(),
                    [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b | 0x20 : b); });
}

std::string addressOf(std::string_view line, std::string_view thisHost) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string address;
  if (isFileAddress(line)) {
    std::string_view rest = line.substr(5);
    const bool slashes = rest.starts_with("//");
    if (slashes) rest.remove_prefix(2);
    const std::string_view host = rest.substr(0, rest.find('/'));
    const bool ours = host == "localhost" || (!thisHost.empty() && host == thisHost);
    if (slashes && ours) rest.remove_prefix(host.size());
    address = slashes || rest.starts_with('/') ? "file://" : "file:";
    line = rest;
  }
  for (const char c : line) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 0x20 && byte < 0x7F) {
      address += c;
    } else {
      address += {'%', digits[byte >> 4], digits[byte & 15]};
    }
  }
  return address;
}

}  // namespace zq
