// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <zqswiftui/settings/zquic_point_size.hpp>
#include <zqswiftui/settings/zquic_record_type.hpp>

namespace zq {

// A text that tells a project, a group or an item from all others.
std::string newSettingsId();

struct ZQUICGroup;

// One configurable value. It has a slot for each kind; type says which one is meant, and the
// others keep what they held, so that a change of type loses nothing.
//   ZQUICItem zoom{.key = "Max zoom", .doubleValue = 4};
struct ZQUICItem {
  std::string id = newSettingsId();
  std::string key{};
  ZQUICRecordType type = ZQUICRecordType::double_;
  std::int64_t intValue = 0;
  double doubleValue = 0;
  std::string stringValue{};
  bool boolValue = true;
  ZQUICPointSize pointValue{};
  bool shouldBeDeleted = false;

  // Whether the key and the values of all slots, taken as one text, contain the query.
  bool zqSearch(std::string_view query) const;

  // The property of the generated Swift source; the variable's name does not matter to it.
  std::string zqcValueDeclaration(std::string_view zqcVariableName, const ZQUICGroup& group) const;
  // The expression that reads the item through a store held under that name.
  std::string zqcValue(std::string_view zqcVariableName, const ZQUICGroup& group) const;
  // Put texts on the pasteboard, on the interface thread: that expression, and a call of the
  // store's accessor with the key as it stands.
  void copyZQCValue(std::string_view zqcVariableName, const ZQUICGroup& group) const;
  void copyValue(std::string_view zqcVariableName) const;

  bool operator==(const ZQUICItem&) const = default;
};

}  // namespace zq

template <>
struct std::hash<zq::ZQUICPointSize> {
  std::size_t operator()(const zq::ZQUICPointSize& point) const noexcept;
};

template <>
struct std::hash<zq::ZQUICItem> {
  std::size_t operator()(const zq::ZQUICItem& item) const noexcept;
};
