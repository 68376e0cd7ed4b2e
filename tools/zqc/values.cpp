// ZQSwiftUI, MIT licence; see LICENSE.
#include <tools/zqc/values.hpp>
#include <zqswiftui/platform/base/number_text.hpp>

namespace zq::zqc {

namespace {

template <typename T>
bool assign(T& slot, const std::optional<T>& value) {
  if (value) slot = *value;
  return value.has_value();
}

std::string_view described(ZQUICRecordType type) {
  switch (type) {
    case ZQUICRecordType::int_:
      return "a whole number of 64 bits";
    case ZQUICRecordType::double_:
      return "a number";
    case ZQUICRecordType::string:
      return "a text";
    case ZQUICRecordType::bool_:
      return "true or false";
    case ZQUICRecordType::pointSize:
      return "a point such as 1.5,2";
  }
  return "";
}

}  // namespace

std::string shownPoint(ZQUICPointSize point) {
  return standardText(point.x) + "," + standardText(point.y);
}

std::optional<bool> flag(std::string_view text) {
  if (text == "true") return true;
  if (text == "false") return false;
  return std::nullopt;
}

std::optional<ZQUICPointSize> point(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  const auto x = finiteNumber(text.substr(0, comma));
  const auto y = finiteNumber(text.substr(comma + 1));
  return x && y ? std::optional(ZQUICPointSize{*x, *y}) : std::nullopt;
}

std::string shownValue(const ZQUICItem& item) {
  switch (item.type) {
    case ZQUICRecordType::int_:
      return std::to_string(item.intValue);
    case ZQUICRecordType::double_:
      return standardText(item.doubleValue);
    case ZQUICRecordType::string:
      return item.stringValue;
    case ZQUICRecordType::bool_:
      return item.boolValue ? "true" : "false";
    case ZQUICRecordType::pointSize:
      return shownPoint(item.pointValue);
  }
  return "";
}

bool setValue(ZQUICItem& item, const std::string& text) {
  switch (item.type) {
    case ZQUICRecordType::int_:
      return assign(item.intValue, wholeNumber(text));
    case ZQUICRecordType::double_:
      return assign(item.doubleValue, finiteNumber(text));
    case ZQUICRecordType::string:
      return assign(item.stringValue, std::optional(text));
    case ZQUICRecordType::bool_:
      return assign(item.boolValue, flag(text));
    case ZQUICRecordType::pointSize:
      return assign(item.pointValue, point(text));
  }
  return false;
}

Outcome<ZQUICRecordType> typeOption(const Session& session, const Arguments& arguments) {
  const std::string name = arguments.valueOr("--type", "");
  if (const auto type = recordTypeOf(name)) return *type;
  return session.fail(exitUsage, "there is no type \"" + name +
                                     "\"; the types are int, double, string, bool and pointSize");
}

int failValue(const Session& session, const std::string& text, ZQUICRecordType type) {
  return session.fail(exitUsage, "\"" + text + "\" is not " + std::string(described(type)));
}

}  // namespace zq::zqc
