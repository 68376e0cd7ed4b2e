// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>
#include <zqswiftui/settings/project_json.hpp>

namespace zq {

// A JSON value that holds no others. The text lives as long as the call it comes in.
struct JsonScalar {
  enum class Kind : unsigned char { null, flag, number, text };
  Kind kind = Kind::null;
  bool flag = false;
  std::string_view text{};  // of a number as it is written, of a text without escapes
};

// Makes a project of what a JSON parser meets, in one walk: what does not fit its slot gives
// the slot's fallback. The parser sees to the form; begin and end of objects and lists match.
class ProjectReader {
 public:
  // Keeps flagged entries, and their places, where places are asked for.
  ProjectReader(std::string_view json, ProjectPlaces* places);

  // Offsets are those of the first character.
  void key(std::string_view name, std::size_t offset);
  void scalar(const JsonScalar& value);
  void enter(bool object, std::size_t offset);
  void leave();

  // Absent where the text was no object. Once only.
  std::optional<ZQUICProject> take();

 private:
  enum class Level : unsigned char { outside, project, groups, group, items, item, point };

  void setProject(const JsonScalar& value);
  void setGroup(const JsonScalar& value);
  void setItem(const JsonScalar& value);
  void setPoint(const JsonScalar& value);
  void setId(std::string& id, bool& has, const JsonScalar& value);
  bool enterObject(std::size_t offset);
  bool enterArray();
  void clearGroups();
  void clearItems();
  void endPoint();
  void endItem();
  void endGroup();
  std::size_t valueOffset(std::size_t keyOffset) const;
  ZQUICGroup& group() { return groups_.back(); }
  ZQUICItem& item() { return groups_.back().itemList.back(); }

  std::string_view json_;
  ProjectPlaces* places_;
  std::optional<ZQUICProject> project_;
  std::vector<ZQUICGroup> groups_;
  Level level_ = Level::outside;
  std::size_t unknown_ = 0;  // levels below something that is not ours
  std::size_t field_ = 0;    // the slot of the last key, among the names of this level
  std::size_t next_ = 0;     // the slot that most likely comes next
  // Which values have an id of their own; the others get one when they end.
  bool projectHasId_ = false;
  bool groupHasId_ = false;
  bool itemHasId_ = false;
  std::array<std::optional<double>, 2> coordinates_;
};

}  // namespace zq
