// ZQSwiftUI, MIT licence; see LICENSE.
#include <array>
#include <cmath>
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

void appendQuoted(std::string& json, std::string_view text) {
  json += '"';
  std::size_t plain = 0;
  while (plain < text.size() && isPlain(text[plain])) ++plain;
  json += text.substr(0, plain);
  if (plain < text.size()) {
    for (const char c : validUtf8(text.substr(plain))) {
      if (isPlain(c) || static_cast<unsigned char>(c) >= 0x80) {
        json += c;
      } else {
        appendEscaped(json, c);
      }
    }
  }
  json += '"';
}

class Writer {
 public:
  Writer(JsonStyle style, std::size_t sizeHint) : pretty_(style == JsonStyle::pretty) {
    json_.reserve(sizeHint);
  }

  void beginObject() { begin('{'); }
  void endObject() { end('}'); }
  void beginArray() { begin('['); }
  void endArray() { end(']'); }
  void element() { separate(); }

  void key(std::string_view name) {
    separate();
    json_ += '"';
    json_ += name;
    json_ += pretty_ ? std::string_view("\": ") : std::string_view("\":");
  }
  void value(std::string_view text) { appendQuoted(json_, text); }
  void value(bool flag) { json_ += flag ? std::string_view("true") : std::string_view("false"); }
  void value(std::int64_t number) { appendNumber(json_, number); }
  void value(double number) {
    finite_ = finite_ && std::isfinite(number);
    appendStandardText(json_, number);
  }
  template <typename T>
  void field(std::string_view name, const T& content) {
    key(name);
    value(content);
  }

  bool finite() const { return finite_; }
  std::string take() { return std::move(json_); }

 private:
  void begin(char bracket) {
    json_ += bracket;
    ++depth_;
    first_ = true;
  }
  void end(char bracket) {
    --depth_;
    if (!first_) newLine();
    json_ += bracket;
    first_ = false;
  }
  void separate() {
    if (!first_) json_ += ',';
    first_ = false;
    newLine();
  }
  void newLine() {
    constexpr std::string_view indented = "\n                ";
    if (pretty_) json_ += indented.substr(0, 1 + 2 * depth_);
  }

  std::string json_;
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
  const auto location = [&json](std::string_view name, const std::optional<Url>& url) {
    if (url) json.field(name, std::string_view(url->text()));
  };
  location("configFileUrl", project.configFileUrl);
  location("configSwiftFileUrl", project.configSwiftFileUrl);
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
