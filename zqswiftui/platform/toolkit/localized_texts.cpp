// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/platform/toolkit/localized_texts.hpp>

namespace zq {

std::string localized(Context& context, const std::string& text) {
  const auto texts = context.environment<LocalizedTextsKey>();
  if (!texts) return text;
  const auto found = texts->find(text);
  return found == texts->end() ? text : found->second;
}

}  // namespace zq
