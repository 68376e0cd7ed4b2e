// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <span>
#include <utility>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/settings/project_reader.hpp>

namespace zq {

namespace {

// The names of a level's slots in the order in which they are written.
constexpr std::array<std::string_view, 12> projectNames{"id",
                                                        "name",
                                                        "appBundleId",
                                                        "configFileUrl",
                                                        "configSwiftFileUrl",
                                                        "groupList",
                                                        "environmentObjectVarName",
                                                        "defaultDoubleValue",
                                                        "defaultIntValue",
                                                        "expanded",
                                                        "defaultBoolValue",
                                                        "selectedGroupId"};
enum ProjectField : std::size_t {
  projectId,
  projectName,
  projectBundle,
  projectFile,
  projectSwiftFile,
  projectGroups,
  projectVariable,
  projectDouble,
  projectInt,
  projectExpanded,
  projectBool,
  projectSelected
};

constexpr std::array<std::string_view, 5> groupNames{"id", "name", "itemList", "expanded",
                                                     "shouldBeDeleted"};
enum GroupField : std::size_t { groupId, groupName, groupItems, groupExpanded, groupDeleted };

constexpr std::array<std::string_view, 9> itemNames{"id",        "key",         "type",
                                                    "intValue",  "doubleValue", "stringValue",
                                                    "boolValue", "pointValue",  "shouldBeDeleted"};
enum ItemField : std::size_t {
  itemId,
  itemKey,
  itemType,
  itemInt,
  itemDouble,
  itemString,
  itemBool,
  itemPoint,
  itemDeleted
};

constexpr std::array<std::string_view, 2> pointNames{"x", "y"};

// The fallbacks, where they are others than those of a new value.
constexpr std::string_view fallbackProjectName = "NewApp";
constexpr std::string_view fallbackVariable = "zqc";
constexpr std::string_view fallbackGroupName = "NewGroup";

using Scalar = JsonScalar::Kind;

std::string textOr(const JsonScalar& value, std::string_view fallback) {
  return std::string(value.kind == Scalar::text ? value.text : fallback);
}

bool flagOr(const JsonScalar& value, bool fallback) {
  return value.kind == Scalar::flag ? value.flag : fallback;
}

double doubleOr(const JsonScalar& value, double fallback) {
  return value.kind == Scalar::number ? finiteNumber(value.text).value_or(fallback) : fallback;
}

std::int64_t intOr(const JsonScalar& value, std::int64_t fallback) {
  return value.kind == Scalar::number ? wholeNumber(value.text).value_or(fallback) : fallback;
}

std::optional<Url> urlOf(const JsonScalar& value) {
  return value.kind == Scalar::text ? Url::parse(value.text) : std::nullopt;
}

}  // namespace

ProjectReader::ProjectReader(std::string_view json, ProjectPlaces* places)
    : json_(json), places_(places) {
  if (places_ != nullptr) places_->groups.clear();
}

void ProjectReader::key(std::string_view name, std::size_t offset) {
  if (unknown_ > 0) return;
  std::span<const std::string_view> names;
  switch (level_) {
    case Level::project:
      names = projectNames;
      break;
    case Level::group:
      names = groupNames;
      break;
    case Level::item:
      names = itemNames;
      break;
    case Level::point:
      names = pointNames;
      break;
    default:
      return;
  }
  field_ = next_ < names.size() && names[next_] == name
               ? next_
               : static_cast<std::size_t>(std::ranges::find(names, name) - names.begin());
  next_ = field_ + 1;
  if (places_ == nullptr) return;
  if (level_ == Level::group && field_ == groupName) {
    places_->groups.back().offset = valueOffset(offset);
  } else if (level_ == Level::item && field_ == itemKey) {
    places_->groups.back().items.back() = valueOffset(offset);
  }
}

std::size_t ProjectReader::valueOffset(std::size_t keyOffset) const {
  std::size_t end = keyOffset + 1;
  while (end < json_.size() && json_[end] != '"') end += json_[end] == '\\' ? 2 : 1;
  return std::min(json_.find_first_not_of(": \t\r\n", end + 1), json_.size());
}

void ProjectReader::scalar(const JsonScalar& value) {
  if (unknown_ > 0) return;
  switch (level_) {
    case Level::project:
      return setProject(value);
    case Level::group:
      return setGroup(value);
    case Level::item:
      return setItem(value);
    case Level::point:
      if (field_ < coordinates_.size()) {
        coordinates_[field_] =
            value.kind == Scalar::number ? finiteNumber(value.text) : std::nullopt;
      }
      return;
    case Level::outside:
    case Level::groups:
    case Level::items:
      return;
  }
}

void ProjectReader::setId(std::string& id, bool& has, const JsonScalar& value) {
  has = value.kind == Scalar::text;
  if (has) id = value.text;
}

void ProjectReader::setProject(const JsonScalar& value) {
  ZQUICProject& project = *project_;
  switch (field_) {
    case projectId:
      return setId(project.id, projectHasId_, value);
    case projectName:
      project.name = textOr(value, fallbackProjectName);
      return;
    case projectBundle:
      project.appBundleId = textOr(value, "");
      return;
    case projectFile:
      project.configFileUrl = urlOf(value);
      return;
    case projectSwiftFile:
      project.configSwiftFileUrl = urlOf(value);
      return;
    case projectGroups:
      return clearGroups();
    case projectVariable:
      project.environmentObjectVarName = textOr(value, fallbackVariable);
      return;
    case projectDouble:
      project.defaultDoubleValue = doubleOr(value, 64);
      return;
    case projectInt:
      project.defaultIntValue = intOr(value, 0);
      return;
    case projectExpanded:
      project.expanded = flagOr(value, true);
      return;
    case projectBool:
      project.defaultBoolValue = flagOr(value, true);
      return;
    case projectSelected:
      project.selectedGroupId =
          value.kind == Scalar::text ? std::optional<std::string>(value.text) : std::nullopt;
      return;
    default:
      return;
  }
}

void ProjectReader::setGroup(const JsonScalar& value) {
  switch (field_) {
    case groupId:
      return setId(group().id, groupHasId_, value);
    case groupName:
      group().name = textOr(value, fallbackGroupName);
      return;
    case groupItems:
      return clearItems();
    case groupExpanded:
      group().expanded = flagOr(value, true);
      return;
    case groupDeleted:
      group().shouldBeDeleted = flagOr(value, false);
      return;
    default:
      return;
  }
}

void ProjectReader::setItem(const JsonScalar& value) {
  switch (field_) {
    case itemId:
      return setId(item().id, itemHasId_, value);
    case itemKey:
      item().key = textOr(value, "");
      return;
    case itemType:
      item().type = recordTypeOf(value.kind == Scalar::text ? value.text : "")
                        .value_or(ZQUICRecordType::double_);
      return;
    case itemInt:
      item().intValue = intOr(value, 0);
      return;
    case itemDouble:
      item().doubleValue = doubleOr(value, 0);
      return;
    case itemString:
      item().stringValue = textOr(value, "");
      return;
    case itemBool:
      item().boolValue = flagOr(value, true);
      return;
    case itemPoint:
      item().pointValue = {};
      return;
    case itemDeleted:
      item().shouldBeDeleted = flagOr(value, false);
      return;
    default:
      return;
  }
}

void ProjectReader::enter(bool object, std::size_t offset) {
  const bool ours = unknown_ == 0 && (object ? enterObject(offset) : enterArray());
  if (!ours) {
    // To a slot that wants something else, this is as good as nothing.
    if (unknown_ == 0) scalar({});
    ++unknown_;
  }
}

bool ProjectReader::enterObject(std::size_t offset) {
  switch (level_) {
    case Level::outside:
      if (project_) return false;
      project_.emplace();
      project_->name = fallbackProjectName;
      project_->environmentObjectVarName = fallbackVariable;
      level_ = Level::project;
      break;
    case Level::groups:
      groups_.push_back({.id = {}, .name = std::string(fallbackGroupName)});
      groupHasId_ = false;
      if (places_ != nullptr) places_->groups.push_back({offset, {}});
      level_ = Level::group;
      break;
    case Level::items:
      group().itemList.push_back({.id = {}});
      itemHasId_ = false;
      if (places_ != nullptr) places_->groups.back().items.push_back(offset);
      level_ = Level::item;
      break;
    case Level::item:
      if (field_ != itemPoint) return false;
      coordinates_ = {};
      level_ = Level::point;
      break;
    case Level::project:
    case Level::group:
    case Level::point:
      return false;
  }
  next_ = 0;
  return true;
}

bool ProjectReader::enterArray() {
  if (level_ == Level::project && field_ == projectGroups) {
    clearGroups();
    level_ = Level::groups;
    return true;
  }
  if (level_ == Level::group && field_ == groupItems) {
    clearItems();
    level_ = Level::items;
    return true;
  }
  return false;
}

void ProjectReader::clearGroups() {
  groups_.clear();
  if (places_ != nullptr) places_->groups.clear();
}

void ProjectReader::clearItems() {
  group().itemList.clear();
  if (places_ != nullptr) places_->groups.back().items.clear();
}

void ProjectReader::leave() {
  if (unknown_ > 0) {
    --unknown_;
    return;
  }
  switch (level_) {
    case Level::point:
      return endPoint();
    case Level::item:
      return endItem();
    case Level::items:
      level_ = Level::group;
      next_ = groupItems + 1;
      return;
    case Level::group:
      return endGroup();
    case Level::groups:
      level_ = Level::project;
      next_ = projectGroups + 1;
      return;
    case Level::project:
      level_ = Level::outside;
      return;
    case Level::outside:
      return;
  }
}

void ProjectReader::endPoint() {
  const auto& [x, y] = coordinates_;
  item().pointValue = x && y ? ZQUICPointSize{*x, *y} : ZQUICPointSize();
  level_ = Level::item;
  next_ = itemPoint + 1;
}

void ProjectReader::endItem() {
  if (!itemHasId_) item().id = newSettingsId();
  if (places_ == nullptr && item().shouldBeDeleted) group().itemList.pop_back();
  level_ = Level::items;
}

void ProjectReader::endGroup() {
  if (!groupHasId_) group().id = newSettingsId();
  if (places_ == nullptr && group().shouldBeDeleted) groups_.pop_back();
  level_ = Level::groups;
}

std::optional<ZQUICProject> ProjectReader::take() {
  if (!project_) return std::nullopt;
  if (!projectHasId_) project_->id = newSettingsId();
  return project_->withGroups(std::move(groups_));
}

}  // namespace zq
