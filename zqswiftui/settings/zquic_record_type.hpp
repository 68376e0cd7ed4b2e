// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace zq {

// The kinds of settings values.
enum class ZQUICRecordType : unsigned char { int_, double_, string, bool_, pointSize };

inline constexpr std::array allRecordTypes{ZQUICRecordType::int_, ZQUICRecordType::double_,
                                           ZQUICRecordType::string, ZQUICRecordType::bool_,
                                           ZQUICRecordType::pointSize};

// "int", "double", "string", "bool" or "pointSize": in files and generated source.
std::string_view rawValue(ZQUICRecordType type);
// Absent where the text is none of them.
std::optional<ZQUICRecordType> recordTypeOf(std::string_view rawValue);
// The symbol that shows the type in an editor: "d.circle", and "d.circle.fill" when selected.
std::string systemImage(ZQUICRecordType type, bool selected);

}  // namespace zq
