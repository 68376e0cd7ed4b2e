// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/localized_texts.hpp>

namespace zq {

LocalizedTextsKey::Value LocalizedTextsKey::defaultValue() {
  return {};
}

std::string localized(Context& context, const std::string& text) {
  const auto texts = context.environment<LocalizedTextsKey>();
  if (!texts) return text;
  for (const LocalizedText& known : *texts) {
    if (known.text == text) return known.own;
  }
  return text;
}

}  // namespace zq
