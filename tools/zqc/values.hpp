// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <tools/zqc/command.hpp>
#include <zqswiftui/settings/zquic_item.hpp>

namespace zq::zqc {

// Values as texts: numbers in the form of generated source, flags as true and false, points as
// x,y. What is read is taken strictly: there is no number in "12 px".

std::string shownPoint(ZQUICPointSize point);
std::optional<bool> flag(std::string_view text);
std::optional<ZQUICPointSize> point(std::string_view text);

// Of the slot that the item's type means.
std::string shownValue(const ZQUICItem& item);
// Into that slot; false where the text is no such value.
bool setValue(ZQUICItem& item, const std::string& text);

// The type of --type; a failure has been told.
Outcome<ZQUICRecordType> typeOption(const Session& session, const Arguments& arguments);
int failValue(const Session& session, const std::string& text, ZQUICRecordType type);

}  // namespace zq::zqc
