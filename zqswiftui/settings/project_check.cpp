// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <unordered_map>
#include <utility>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/settings/cpp_literal.hpp>
#include <zqswiftui/settings/project_check.hpp>
#include <zqswiftui/settings/project_kinds.hpp>

namespace zq {

namespace {

using Found = TextFinding;

std::string quoted(std::string_view text) {
  return cppComment(text);
}

// Tells lines of a text without counting them from its begin each time.
class Lines {
 public:
  explicit Lines(std::string_view text) : text_(text) {
    for (std::size_t at = text.find('\n'); at != std::string_view::npos;
         at = text.find('\n', at + 1)) {
      begins_.push_back(at + 1);
    }
  }
  std::string line(std::size_t offset) const { return "line " + std::to_string(number(offset)); }
  // Asked in order, so that the characters of one long line are counted once.
  TextPlace next(std::size_t offset) {
    const std::size_t line = number(offset);
    const std::size_t begin = begins_[line - 1];
    if (last_ < begin) {
      last_ = begin;
      column_ = 1;
    }
    column_ += scalarCount(text_.substr(last_, offset - last_));
    last_ = offset;
    return {line, column_};
  }

 private:
  std::size_t number(std::size_t offset) const {
    return static_cast<std::size_t>(std::ranges::upper_bound(begins_, offset) - begins_.begin());
  }

  std::string_view text_;
  std::vector<std::size_t> begins_{0};
  std::size_t last_ = 0;
  std::size_t column_ = 1;
};

class Check {
 public:
  Check(const Lines& lines, const ProjectPlaces& places, std::vector<Found> found)
      : lines_(lines), places_(places), found_(std::move(found)) {}

  std::vector<Found> of(const ZQUICProject& project) {
    const auto& groups = project.groupList();
    for (std::size_t i = 0; i < groups.size(); ++i) checkGroup(groups[i], places_.groups[i]);
    std::ranges::stable_sort(found_, {}, &Found::offset);
    return std::move(found_);
  }

 private:
  using Seen = std::unordered_map<std::string, std::size_t>;  // where it came first

  void tell(std::size_t offset, std::string sentence) {
    found_.push_back({offset, std::move(sentence)});
  }

  void checkGroup(const ZQUICGroup& group, const ProjectPlaces::Group& place) {
    if (group.shouldBeDeleted) {
      tell(place.offset,
           "the group " + quoted(group.name) +
               " is flagged to be deleted: it is not read, and gone at the next save");
      return;
    }
    checkId(groupIds_, group.id, "group", place.offset);
    const std::string token = swiftTokenize(group.name);
    checkName(token, group.name, "group's name", place.offset);
    const auto [first, isNew] = groups_.emplace(token, place.offset);
    if (!isNew) {
      tell(place.offset, "the group " + quoted(group.name) + " is hidden behind that in " +
                             lines_.line(first->second) + ": both have the name " + token +
                             " in source, and settings are looked for in the first alone");
    }
    for (std::size_t i = 0; i < group.itemList.size(); ++i) {
      checkItem(group.itemList[i], place.items[i], token, isNew);
    }
  }

  void checkItem(const ZQUICItem& item, std::size_t offset, const std::string& group,
                 bool groupIsSeen) {
    if (item.shouldBeDeleted) {
      tell(offset, "the item " + quoted(item.key) +
                       " is flagged to be deleted: it is not read, and gone at the next save");
      return;
    }
    checkId(itemIds_, item.id, "item", offset);
    const std::string key = swiftTokenize(item.key);
    checkName(key, item.key, "item's key", offset);
    if (item.type == ZQUICRecordType::string) checkText(item, offset);
    // Of a hidden group all is said.
    if (!groupIsSeen) return;
    const std::string name = group + "_" + key;
    const auto [first, isNew] = properties_.emplace(name, offset);
    if (!isNew) {
      tell(offset, "the item " + quoted(item.key) + " has the name " + name +
                       " in source, as has that in " + lines_.line(first->second));
    }
  }

  void checkName(const std::string& token, const std::string& name, std::string_view what,
                 std::size_t offset) {
    if (token != "_") return;
    tell(offset, "the " + std::string(what) + " " + quoted(name) +
                     " has no letter and no digit: it becomes _ in source");
  }

  void checkText(const ZQUICItem& item, std::size_t offset) {
    const bool breaks = item.stringValue.find_first_of("\"\\\n\r") != std::string::npos;
    if (!breaks) return;
    tell(offset, "the text of " + quoted(item.key) +
                     " has a quote, a backslash or a line break, which Swift source takes as it "
                     "stands");
  }

  void checkId(Seen& seen, const std::string& id, std::string_view what, std::size_t offset) {
    const auto [first, isNew] = seen.emplace(id, offset);
    if (isNew) return;
    tell(offset, "the " + std::string(what) + "'s id " + quoted(id) + " is also that of the " +
                     std::string(what) + " in " + lines_.line(first->second));
  }

  const Lines& lines_;
  const ProjectPlaces& places_;
  std::vector<Found> found_;
  Seen groups_;
  Seen properties_;
  Seen groupIds_;
  Seen itemIds_;
};

}  // namespace

Result<std::vector<ProjectFinding>> checkProject(std::string_view json) {
  ProjectPlaces places;
  const auto project = decodeEverything(json, places);
  if (!project.ok()) return project.error();
  Lines lines(json);
  std::vector<ProjectFinding> findings;
  for (Found& found : Check(lines, places, findWrongKinds(json)).of(project.value())) {
    findings.push_back({lines.next(found.offset), std::move(found.sentence)});
  }
  return findings;
}

}  // namespace zq
