// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <concepts>
#include <cstring>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq {

namespace {

bool isPlain(char c) {
  return static_cast<unsigned char>(c) >= 0x20 && static_cast<unsigned char>(c) < 0x80 &&
         c != '"' && c != '\\';
}

void appendEscaped(std::string& json, char c) {
  constexpr std::string_view letters = "btn?fr";
  const auto code = static_cast<unsigned char>(c);
  json += '\\';
  if (code >= 0x20) {
    json += c;
  } else if (code >= 8 && code <= 13 && code != 11) {
    json += letters[code - 8u];
  } else {
    constexpr std::string_view digits = "0123456789abcdef";
    json.append({'u', '0', '0', digits[code >> 4], digits[code & 15]});
  }
}

std::string escaped(std::string_view text) {
  std::string json;
  for (const char c : validUtf8(text)) {
    if (isPlain(c) || static_cast<unsigned char>(c) >= 0x80) {
      json += c;
    } else {
      appendEscaped(json, c);
    }
  }
  return json;
}

// Gathers short pieces in a block that stays in the processor's cache, and adds whole blocks to
// the text.
class Output {
 public:
  explicit Output(std::size_t sizeHint) { text_.reserve(sizeHint); }

  void append(char c) { *advance(1) = c; }
  void append(std::string_view piece) {
    if (piece.size() > block_.size()) {
      flush();
      text_ += piece;
    } else {
      std::memcpy(advance(piece.size()), piece.data(), piece.size());
    }
  }
  // Of a size that the compiler knows, the copy is an instruction or two.
  template <std::size_t size>
  void append(const char (&literal)[size]) {
    std::memcpy(advance(size - 1), literal, size - 1);
  }
  template <std::integral Number>
  void appendNumber(Number number) {
    constexpr std::size_t longest = 24;
    char* const begin = advance(longest);
    used_ -= longest;
    used_ += static_cast<std::size_t>(std::to_chars(begin, begin + longest, number).ptr - begin);
  }
  std::string take() {
    flush();
    return std::move(text_);
  }

 private:
  char* advance(std::size_t count) {
    if (block_.size() - used_ < count) [[unlikely]]
      flush();
    return block_.data() + std::exchange(used_, used_ + count);
  }
  void flush() {
    text_.append(block_.data(), used_);
    used_ = 0;
  }

  std::string text_;
  std::array<char, 8192> block_;  // written before it is read
  std::size_t used_ = 0;
};

class Writer {
 public:
  Writer(JsonStyle style, std::size_t sizeHint)
      : json_(sizeHint), pretty_(style == JsonStyle::pretty) {}

  void beginObject() { begin('{'); }
  void endObject() { end('}'); }
  void beginArray() { begin('['); }
  void endArray() { end(']'); }
  void element() { separate(); }

  template <std::size_t size>
  void key(const char (&name)[size]) {
    separate();
    json_.append('"');
    json_.append(name);
    if (pretty_) return json_.append("\": ");
    json_.append("\":");
  }
  void value(std::string_view text) {
    json_.append('"');
    if (std::all_of(text.begin(), text.end(), isPlain)) {
      json_.append(text);
    } else {
      json_.append(std::string_view(escaped(text)));
    }
    json_.append('"');
  }
  void value(bool flag) { json_.append(flag ? std::string_view("true") : "false"); }
  void value(std::int64_t number) { json_.appendNumber(number); }
  void value(double number) {
    finite_ = finite_ && std::isfinite(number);
    number_.clear();
    appendStandardText(number_, number);
    json_.append(std::string_view(number_));
  }
  template <std::size_t size, typename T>
  void field(const char (&name)[size], const T& content) {
    key(name);
    value(content);
  }

  bool finite() const { return finite_; }
  std::string take() { return json_.take(); }

 private:
  void begin(char bracket) {
    json_.append(bracket);
    ++depth_;
    first_ = true;
  }
  void end(char bracket) {
    --depth_;
    if (!first_) newLine();
    json_.append(bracket);
    first_ = false;
  }
  void separate() {
    if (!first_) json_.append(',');
    first_ = false;
    newLine();
  }
  void newLine() {
    constexpr std::string_view indented = "\n                ";
    if (pretty_) json_.append(indented.substr(0, 1 + 2 * depth_));
  }

  Output json_;
  std::string number_;
  bool pretty_;
  bool first_ = true;
  bool finite_ = true;
  std::size_t depth_ = 0;
};

void write(Writer& json, const ZQUICItem& item) {
  json.beginObject();
  json.field("id", std::string_view(item.id));
  json.field("key", std::string_view(item.key));
  json.field("type", rawValue(item.type));
  json.field("intValue", item.intValue);
  json.field("doubleValue", item.doubleValue);
  json.field("stringValue", std::string_view(item.stringValue));
  json.field("boolValue", item.boolValue);
  json.key("pointValue");
  json.beginObject();
  json.field("x", item.pointValue.x);
  json.field("y", item.pointValue.y);
  json.endObject();
  json.field("shouldBeDeleted", item.shouldBeDeleted);
  json.endObject();
}

void write(Writer& json, const ZQUICGroup& group) {
  json.beginObject();
  json.field("id", std::string_view(group.id));
  json.field("name", std::string_view(group.name));
  json.key("itemList");
  json.beginArray();
  for (const ZQUICItem& item : group.itemList) {
    json.element();
    write(json, item);
  }
  json.endArray();
  json.field("expanded", group.expanded);
  json.field("shouldBeDeleted", group.shouldBeDeleted);
  json.endObject();
}

void write(Writer& json, const ZQUICProject& project) {
  json.beginObject();
  json.field("id", std::string_view(project.id));
  json.field("name", std::string_view(project.name));
  json.field("appBundleId", std::string_view(project.appBundleId));
  if (project.configFileUrl) {
    json.field("configFileUrl", std::string_view(project.configFileUrl->text()));
  }
  if (project.configSwiftFileUrl) {
    json.field("configSwiftFileUrl", std::string_view(project.configSwiftFileUrl->text()));
  }
  json.key("groupList");
  json.beginArray();
  for (const ZQUICGroup& group : project.groupList()) {
    json.element();
    write(json, group);
  }
  json.endArray();
  json.field("environmentObjectVarName", std::string_view(project.environmentObjectVarName));
  json.field("defaultDoubleValue", project.defaultDoubleValue);
  json.field("defaultIntValue", project.defaultIntValue);
  json.field("expanded", project.expanded);
  json.field("defaultBoolValue", project.defaultBoolValue);
  if (project.selectedGroupId) {
    json.field("selectedGroupId", std::string_view(*project.selectedGroupId));
  }
  json.endObject();
}

}  // namespace

Result<std::string> encodeProject(const ZQUICProject& project, JsonStyle style) {
  std::size_t items = 0;
  for (const ZQUICGroup& group : project.groupList()) items += group.itemsCount() + 1;
  const std::size_t itemSize = style == JsonStyle::pretty ? 400 : 240;
  Writer json(style, 1024 + items * itemSize);
  write(json, project);
  if (!json.finite()) return Error{"a number is not finite, which JSON cannot say"};
  std::string text = json.take();
  if (style == JsonStyle::pretty) text += '\n';
  return text;
}

}  // namespace zq
