// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zq {

// The application's preferences by key. A value of another kind is turned into the one asked
// for where it has a sense (true is 1, "12" is 12), and else the default answers. Any thread.
std::int64_t prefs_getValueInt(std::string_view key, std::int64_t defaultValue);
bool prefs_getValueBool(std::string_view key, bool defaultValue);
double prefs_getValueDouble(std::string_view key, double defaultValue);
std::string prefs_getValueString(std::string_view key, std::string defaultValue);
std::vector<std::string> prefs_getValueStringList(std::string_view key,
                                                  std::vector<std::string> defaultValue);

void prefs_setValueInt(std::string_view key, std::int64_t value);
void prefs_setValueBool(std::string_view key, bool value);
void prefs_setValueDouble(std::string_view key, double value);
void prefs_setValueString(std::string_view key, std::string value);
void prefs_setValueStringList(std::string_view key, std::vector<std::string> value);

}  // namespace zq
