// ZQSwiftUI, MIT licence; see LICENSE.
// Any bytes through what takes texts from outside: none may crash, and what comes out is valid.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <zqswiftui/layout/zq_tokens_view.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/url.hpp>

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const std::string valid = zq::validUtf8(text);
  require(zq::validUtf8(valid) == valid);
  const std::string token = zq::swiftTokenize(text);
  require(zq::swiftTokenize(token) == token);
  require(zq::zqSearchContains(text, ""));
  const std::size_t half = size / 2;
  const auto tokens = zq::tokensOf(text.substr(half), text.substr(0, half > 3 ? 3 : half));
  require(!tokens.empty());
  if (const auto url = zq::Url::parse(valid)) require(zq::Url::parse(url->text()).has_value());
  return 0;
}
