// ZQSwiftUI, MIT licence; see LICENSE.
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>
#include <zqswiftui/platform/base/prefs.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

namespace {

template <typename T>
std::optional<T> parsed(const std::string& text) {
  T value{};
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, value);
  if (result.ec != std::errc{} || result.ptr != end) return std::nullopt;
  return value;
}

std::optional<std::int64_t> integerOf(const PreferenceValue& value) {
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? 1 : 0;
  if (const auto* integer = std::get_if<std::int64_t>(&value)) return *integer;
  if (const auto* number = std::get_if<double>(&value)) {
    if (std::abs(*number) < 9e18) return static_cast<std::int64_t>(*number);
  }
  if (const auto* text = std::get_if<std::string>(&value)) return parsed<std::int64_t>(*text);
  return std::nullopt;
}

std::optional<double> numberOf(const PreferenceValue& value) {
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* text = std::get_if<std::string>(&value)) return parsed<double>(*text);
  if (const auto integer = integerOf(value)) return static_cast<double>(*integer);
  return std::nullopt;
}

std::optional<bool> flagOf(const PreferenceValue& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    if (*text == "true") return true;
    if (*text == "false") return false;
  }
  if (const auto number = numberOf(value)) return *number != 0;
  return std::nullopt;
}

std::optional<PreferenceValue> stored(std::string_view key) {
  return Platform::current().preferences().value(key);
}

void store(std::string_view key, PreferenceValue value) {
  Platform::current().preferences().setValue(key, std::move(value));
}

}  // namespace

std::int64_t prefs_getValueInt(std::string_view key, std::int64_t defaultValue) {
  const auto value = stored(key);
  return value ? integerOf(*value).value_or(defaultValue) : defaultValue;
}

bool prefs_getValueBool(std::string_view key, bool defaultValue) {
  const auto value = stored(key);
  return value ? flagOf(*value).value_or(defaultValue) : defaultValue;
}

double prefs_getValueDouble(std::string_view key, double defaultValue) {
  const auto value = stored(key);
  return value ? numberOf(*value).value_or(defaultValue) : defaultValue;
}

std::string prefs_getValueString(std::string_view key, std::string defaultValue) {
  auto value = stored(key);
  if (!value) return defaultValue;
  if (auto* text = std::get_if<std::string>(&*value)) return std::move(*text);
  if (const auto* flag = std::get_if<bool>(&*value)) return *flag ? "true" : "false";
  if (const auto* integer = std::get_if<std::int64_t>(&*value)) return std::to_string(*integer);
  return defaultValue;
}

std::vector<std::string> prefs_getValueStringList(std::string_view key,
                                                  std::vector<std::string> defaultValue) {
  auto value = stored(key);
  auto* list = value ? std::get_if<std::vector<std::string>>(&*value) : nullptr;
  return list != nullptr ? std::move(*list) : std::move(defaultValue);
}

void prefs_setValueInt(std::string_view key, std::int64_t value) {
  store(key, value);
}
void prefs_setValueBool(std::string_view key, bool value) {
  store(key, value);
}
void prefs_setValueDouble(std::string_view key, double value) {
  store(key, value);
}
void prefs_setValueString(std::string_view key, std::string value) {
  store(key, std::move(value));
}
void prefs_setValueStringList(std::string_view key, std::vector<std::string> value) {
  store(key, std::move(value));
}

}  // namespace zq
