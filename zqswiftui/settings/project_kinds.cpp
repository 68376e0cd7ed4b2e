// ZQSwiftUI, MIT licence; see LICENSE.
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <array>
#include <utility>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/settings/cpp_literal.hpp>
#include <zqswiftui/settings/project_kinds.hpp>
#include <zqswiftui/settings/zquic_record_type.hpp>

namespace zq {

namespace {

enum class Level : unsigned char { outside, project, groups, group, items, item, point, unknown };
enum class Kind : unsigned char { text, type, number, whole, flag, list, object };

struct Slot {
  Level level;
  std::string_view key;
  Kind kind;
};

constexpr std::array slots{Slot{Level::project, "id", Kind::text},
                           Slot{Level::project, "name", Kind::text},
                           Slot{Level::project, "appBundleId", Kind::text},
                           Slot{Level::project, "configFileUrl", Kind::text},
                           Slot{Level::project, "configSwiftFileUrl", Kind::text},
                           Slot{Level::project, "groupList", Kind::list},
                           Slot{Level::project, "environmentObjectVarName", Kind::text},
                           Slot{Level::project, "defaultDoubleValue", Kind::number},
                           Slot{Level::project, "defaultIntValue", Kind::whole},
                           Slot{Level::project, "expanded", Kind::flag},
                           Slot{Level::project, "defaultBoolValue", Kind::flag},
                           Slot{Level::project, "selectedGroupId", Kind::text},
                           Slot{Level::group, "id", Kind::text},
                           Slot{Level::group, "name", Kind::text},
                           Slot{Level::group, "itemList", Kind::list},
                           Slot{Level::group, "expanded", Kind::flag},
                           Slot{Level::group, "shouldBeDeleted", Kind::flag},
                           Slot{Level::item, "id", Kind::text},
                           Slot{Level::item, "key", Kind::text},
                           Slot{Level::item, "type", Kind::type},
                           Slot{Level::item, "intValue", Kind::whole},
                           Slot{Level::item, "doubleValue", Kind::number},
                           Slot{Level::item, "stringValue", Kind::text},
                           Slot{Level::item, "boolValue", Kind::flag},
                           Slot{Level::item, "pointValue", Kind::object},
                           Slot{Level::item, "shouldBeDeleted", Kind::flag},
                           Slot{Level::point, "x", Kind::number},
                           Slot{Level::point, "y", Kind::number}};

std::string_view described(Kind kind) {
  constexpr std::array<std::string_view, 7> descriptions{
      "a text",        "a type", "a number", "a whole number of 64 bits",
      "true or false", "a list", "an object"};
  return descriptions[static_cast<std::size_t>(kind)];
}

class Walk {
 public:
  Walk(std::string_view json, rapidjson::MemoryStream& stream) : json_(json), stream_(stream) {}

  std::vector<TextFinding> take() { return std::move(found_); }

  // What the parser calls.
  bool Null() { return true; }
  bool Bool(bool) { return scalar(Kind::flag); }
  bool RawNumber(const char* text, rapidjson::SizeType size, bool) {
    const std::string_view number(text, size);
    if (wholeNumber(number)) return scalar(Kind::whole);
    return scalar(finiteNumber(number) ? Kind::number : Kind::object);
  }
  bool String(const char* text, rapidjson::SizeType size, bool) {
    const std::string_view value(text, size);
    if (slot_ == nullptr || slot_->kind != Kind::type) return scalar(Kind::text);
    if (!recordTypeOf(value)) tell("there is no type " + cppComment(value));
    return true;
  }
  bool Key(const char* text, rapidjson::SizeType size, bool) {
    const std::string_view name(text, size);
    const auto slot = std::ranges::find_if(slots, [&](const Slot& candidate) {
      return candidate.level == level() && candidate.key == name;
    });
    slot_ = slot != slots.end() ? &*slot : nullptr;
    keyEnd_ = stream_.Tell();
    return true;
  }
  bool StartObject() {
    const bool ofPoint = slot_ != nullptr && slot_->kind == Kind::object;
    if (level() == Level::outside) return enter(Level::project);
    if (level() == Level::groups) return enter(Level::group);
    if (level() == Level::items) return enter(Level::item);
    if (ofPoint) return enter(Level::point);
    scalar(Kind::object);
    return enter(Level::unknown);
  }
  bool StartArray() {
    if (slot_ != nullptr && slot_->kind == Kind::list) {
      return enter(level() == Level::project ? Level::groups : Level::items);
    }
    scalar(Kind::list);
    return enter(Level::unknown);
  }
  bool EndObject(rapidjson::SizeType) { return leave(); }
  bool EndArray(rapidjson::SizeType) { return leave(); }
  bool Int(int) { return false; }
  bool Uint(unsigned) { return false; }
  bool Int64(std::int64_t) { return false; }
  bool Uint64(std::uint64_t) { return false; }
  bool Double(double) { return false; }

 private:
  Level level() const { return levels_.back(); }
  bool enter(Level level) {
    levels_.push_back(level);
    slot_ = nullptr;
    return true;
  }
  bool leave() {
    levels_.pop_back();
    slot_ = nullptr;
    return true;
  }
  bool scalar(Kind kind) {
    const bool ofList = level() == Level::groups || level() == Level::items;
    if (ofList) {
      found_.push_back({stream_.Tell() - 1, "this entry of the list is no object: it is not read"});
    } else if (slot_ != nullptr && !fits(kind, slot_->kind)) {
      tell("\"" + std::string(slot_->key) + "\" wants " + std::string(described(slot_->kind)));
    }
    return true;
  }
  static bool fits(Kind kind, Kind wanted) {
    return kind == wanted || (wanted == Kind::number && kind == Kind::whole);
  }
  void tell(const std::string& sentence) {
    const std::size_t value = json_.find_first_not_of(": \t\r\n", keyEnd_);
    found_.push_back(
        {std::min(value, json_.size()), sentence + ": this is as if it were not there"});
  }

  std::string_view json_;
  rapidjson::MemoryStream& stream_;
  std::vector<Level> levels_{Level::outside};
  const Slot* slot_ = nullptr;  // of the last key; null where that is none of ours
  std::size_t keyEnd_ = 0;
  std::vector<TextFinding> found_;
};

}  // namespace

std::vector<TextFinding> findWrongKinds(std::string_view json) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  const std::size_t skipped = json.starts_with(mark) ? mark.size() : 0;
  json.remove_prefix(skipped);
  rapidjson::MemoryStream stream(json.data(), json.size());
  Walk walk(json, stream);
  rapidjson::Reader parser;
  const auto result = parser.Parse<rapidjson::kParseNumbersAsStringsFlag>(stream, walk);
  std::vector<TextFinding> found = walk.take();
  if (result.Code() == rapidjson::kParseErrorNumberTooBig) {
    // The parser does not go on from here.
    found.push_back({result.Offset(),
                     "this number is too big: it is as if it were not there, and of what follows "
                     "the kinds are not looked at"});
  }
  for (TextFinding& finding : found) finding.offset += skipped;
  return found;
}

}  // namespace zq
