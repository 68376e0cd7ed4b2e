// ZQSwiftUI, MIT licence; see LICENSE.
// Any bytes as a list of addresses that another program drops: what is taken is printable ASCII,
// and an address that is given on means the same again.
#include <cstdint>
#include <cstdlib>
#include <zqswiftui/platform/base/uri_list.hpp>
#include <zqswiftui/platform/base/url.hpp>

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view list(reinterpret_cast<const char*>(data), size);
  for (const std::string_view line : zq::addressLines(list)) {
    require(zq::addressLine(line) == line);
    const std::string address = zq::addressOf(line, "host");
    for (const char c : address) require(c > 0x20 && c < 0x7F);
    require(zq::isFileAddress(line) == zq::isFileAddress(address));
    require(line.size() > 10'000 || zq::addressLine(address) == address);
    if (const auto url = zq::Url::parse(address)) require(zq::Url::parse(url->text()) == url);
  }
  return 0;
}
