// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <string>
#include <vector>
#include <zqswiftui/platform/toolkit/context.hpp>

namespace zq {

// The host's own texts for those that a component brings, such as the separators of a timecode, by
// the text that they replace. What is not in it stays as it is; of two for one text the first
// counts.
//   view.environment<LocalizedTextsKey>(
//       std::make_shared<const LocalizedTexts>(LocalizedTexts{{".", ","}}))
struct LocalizedText {
  std::string text;
  std::string own;
  bool operator==(const LocalizedText&) const = default;
};
using LocalizedTexts = std::vector<LocalizedText>;

struct LocalizedTextsKey {
  using Value = std::shared_ptr<const LocalizedTexts>;  // may be null
  static Value defaultValue();
};

// While a body runs, which is run again when the host gives others.
std::string localized(Context& context, const std::string& text);

}  // namespace zq
