// ZQSwiftUI, MIT licence; see LICENSE.
#include <cstddef>
#include <zqswiftui/settings/zquic_record_type.hpp>

namespace zq {

std::string_view rawValue(ZQUICRecordType type) {
  constexpr std::array<std::string_view, allRecordTypes.size()> texts{"int", "double", "string",
                                                                      "bool", "pointSize"};
  return texts[static_cast<std::size_t>(type)];
}

std::optional<ZQUICRecordType> recordTypeOf(std::string_view text) {
  for (const ZQUICRecordType type : allRecordTypes) {
    if (rawValue(type) == text) return type;
  }
  return std::nullopt;
}

std::string systemImage(ZQUICRecordType type, bool selected) {
  return std::string(1, rawValue(type)[0]) + (selected ? ".circle.fill" : ".circle");
}

}  // namespace zq
