// ZQSwiftUI, MIT licence; see LICENSE.
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <utility>
#include <zqswiftui/settings/own_form_reader.hpp>

namespace zq {

namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// Each function takes what it is named after, or answers false.
class OwnForm {
 public:
  explicit OwnForm(std::string_view json) : at_(json.data()), end_(at_ + json.size()) {}

  bool sign(char c) {
    skipBlanks();
    if (at_ == end_ || *at_ != c) return false;
    ++at_;
    return true;
  }
  bool atEnd() {
    skipBlanks();
    return at_ == end_;
  }

  // The key with its quotes and colon, and a comma before it where it is not the first.
  template <std::size_t size>
  bool key(const char (&quoted)[size]) {
    skipBlanks();
    if (static_cast<std::size_t>(end_ - at_) < size - 1) return false;
    if (std::memcmp(at_, quoted, size - 1) != 0) return false;
    at_ += size - 1;
    return true;
  }
  template <std::size_t size, typename T>
  bool first(const char (&quoted)[size], T& value) {
    return key(quoted) && take(value);
  }
  template <std::size_t size, typename T>
  bool next(const char (&quoted)[size], T& value) {
    return sign(',') && key(quoted) && take(value);
  }

  bool take(std::string& value) {
    std::string_view text;
    if (!takeText(text)) return false;
    value.assign(text);
    return true;
  }
  bool take(ZQUICRecordType& value) {
    std::string_view text;
    if (!takeText(text)) return false;
    const auto type = recordTypeOf(text);
    value = type.value_or(value);
    return type.has_value();
  }
  bool take(std::optional<Url>& value) {
    std::string_view text;
    if (!takeText(text)) return false;
    value = Url::parse(text);
    return value.has_value();
  }
  bool take(bool& value) {
    skipBlanks();
    value = key("true");
    return value || key("false");
  }
  bool take(std::int64_t& value) {
    Number number;
    if (!scan(number) || number.end != number.wholeEnd) return false;
    const auto [rest, error] = std::from_chars(number.begin, number.end, value);
    return error == std::errc() && rest == number.end;
  }
  bool take(double& value);
  bool take(ZQUICPointSize& value) {
    return sign('{') && first("\"x\":", value.x) && next("\"y\":", value.y) && sign('}');
  }

 private:
  struct Number {
    const char* begin = nullptr;
    const char* wholeEnd = nullptr;     // of the digits before a point
    const char* fractionEnd = nullptr;  // of those after it
    const char* end = nullptr;
  };

  void skipBlanks() {
    while (at_ != end_ && (*at_ == ' ' || *at_ == '\n')) ++at_;
  }
  void skipDigits() {
    while (at_ != end_ && isDigit(*at_)) ++at_;
  }
  // Without escapes.
  bool takeText(std::string_view& text) {
    if (!sign('"')) return false;
    const char* const begin = at_;
    while (at_ != end_ && *at_ != '"' && *at_ != '\\' && static_cast<unsigned char>(*at_) >= 0x20) {
      ++at_;
    }
    text = {begin, at_};
    return sign('"');
  }
  bool scan(Number& number);

  const char* at_;
  const char* end_;
};

bool OwnForm::scan(Number& number) {
  skipBlanks();
  number.begin = at_;
  if (at_ != end_ && *at_ == '-') ++at_;
  const char* const digits = at_;
  skipDigits();
  if (at_ == digits || (*digits == '0' && at_ - digits > 1)) return false;
  number.wholeEnd = at_;
  if (at_ != end_ && *at_ == '.') {
    ++at_;
    skipDigits();
    if (at_ == number.wholeEnd + 1) return false;
  }
  number.fractionEnd = at_;
  if (at_ != end_ && (*at_ == 'e' || *at_ == 'E')) {
    ++at_;
    if (at_ != end_ && (*at_ == '+' || *at_ == '-')) ++at_;
    const char* const exponent = at_;
    skipDigits();
    if (at_ == exponent) return false;
  }
  number.end = at_;
  return true;
}

// A quotient of two whole numbers that a double holds exactly is rounded only once, and so is
// the nearest double to the decimal that they stand for.
bool OwnForm::take(double& value) {
  constexpr std::array<double, 16> powers{1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                          1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  Number number;
  if (!scan(number)) return false;
  if (number.end != number.fractionEnd || number.end - number.begin > 15) {
    const auto [rest, error] = std::from_chars(number.begin, number.end, value);
    return error == std::errc() && rest == number.end && std::isfinite(value);
  }
  std::int64_t digits = 0;
  const bool negative = *number.begin == '-';
  for (const char* c = number.begin + (negative ? 1 : 0); c != number.end; ++c) {
    if (*c != '.') digits = digits * 10 + (*c - '0');
  }
  const auto decimals = number.end == number.wholeEnd
                            ? 0
                            : static_cast<std::size_t>(number.end - number.wholeEnd) - 1;
  value = static_cast<double>(digits) / powers[decimals];
  if (negative) value = -value;
  return true;
}

bool take(OwnForm& json, ZQUICItem& item) {
  return json.sign('{') && json.first("\"id\":", item.id) && json.next("\"key\":", item.key) &&
         json.next("\"type\":", item.type) && json.next("\"intValue\":", item.intValue) &&
         json.next("\"doubleValue\":", item.doubleValue) &&
         json.next("\"stringValue\":", item.stringValue) &&
         json.next("\"boolValue\":", item.boolValue) &&
         json.next("\"pointValue\":", item.pointValue) &&
         json.next("\"shouldBeDeleted\":", item.shouldBeDeleted) && json.sign('}');
}

bool take(OwnForm& json, ZQUICGroup& group);

template <typename Entry>
bool takeList(OwnForm& json, std::vector<Entry>& list) {
  if (!json.sign('[')) return false;
  if (json.sign(']')) return true;
  do {
    list.push_back({.id = {}});
    if (!take(json, list.back())) return false;
    if (list.back().shouldBeDeleted) list.pop_back();
  } while (json.sign(','));
  return json.sign(']');
}

bool take(OwnForm& json, ZQUICGroup& group) {
  return json.sign('{') && json.first("\"id\":", group.id) && json.next("\"name\":", group.name) &&
         json.sign(',') && json.key("\"itemList\":") && takeList(json, group.itemList) &&
         json.next("\"expanded\":", group.expanded) &&
         json.next("\"shouldBeDeleted\":", group.shouldBeDeleted) && json.sign('}');
}

bool take(OwnForm& json, ZQUICProject& project, std::vector<ZQUICGroup>& groups) {
  std::string selected;
  if (!(json.sign('{') && json.first("\"id\":", project.id) &&
        json.next("\"name\":", project.name) &&
        json.next("\"appBundleId\":", project.appBundleId) && json.sign(','))) {
    return false;
  }
  if (json.key("\"configFileUrl\":") && !(json.take(project.configFileUrl) && json.sign(','))) {
    return false;
  }
  if (json.key("\"configSwiftFileUrl\":") &&
      !(json.take(project.configSwiftFileUrl) && json.sign(','))) {
    return false;
  }
  if (!(json.key("\"groupList\":") && takeList(json, groups) &&
        json.next("\"environmentObjectVarName\":", project.environmentObjectVarName) &&
        json.next("\"defaultDoubleValue\":", project.defaultDoubleValue) &&
        json.next("\"defaultIntValue\":", project.defaultIntValue) &&
        json.next("\"expanded\":", project.expanded) &&
        json.next("\"defaultBoolValue\":", project.defaultBoolValue))) {
    return false;
  }
  if (json.sign(',')) {
    if (!json.first("\"selectedGroupId\":", selected)) return false;
    project.selectedGroupId = std::move(selected);
  }
  return json.sign('}') && json.atEnd();
}

}  // namespace

std::optional<ZQUICProject> readOwnForm(std::string_view json) {
  OwnForm form(json);
  ZQUICProject project;
  std::vector<ZQUICGroup> groups;
  if (!take(form, project, groups)) return std::nullopt;
  return project.withGroups(std::move(groups));
}

}  // namespace zq
