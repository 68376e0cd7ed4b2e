// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cstdio>
#include <utility>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/saves.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>
#include <zqswiftui/settings/project_index.hpp>
#include <zqswiftui/settings/project_json.hpp>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq {

static_assert(ZQLeftSideItemable<ZQUICProject>);

namespace {

constexpr double quietPeriod = 0.25;
constexpr std::string_view broadcastPrefix = "vendel.zquic.broadcast.";

Result<void> writeText(const Url& url, const std::string& text) {
  if (!url.isFile()) return Error{"cannot write " + url.text() + ": it is not a file"};
  fu_createParentFolderIfNeeded(url);
  return replaceFile(url.path(), text);
}

}  // namespace

struct ZQUICProject::Content {
  explicit Content(std::vector<ZQUICGroup> list = {}) : groups(std::move(list)) {}
  std::vector<ZQUICGroup> groups;
  MadeOnce<ProjectIndex> index;
};

ZQUICProject::ZQUICProject() : id(newSettingsId()), content_(std::make_shared<Content>()) {}

ZQUICProject::ZQUICProject(const Url& url) : ZQUICProject() {
  if (!url.isFile()) return;
  const auto text = readTextFile(url.path(), longestProject);
  if (!text.ok()) return;
  if (auto decoded = decodeProject(text.value()); decoded.ok()) *this = std::move(decoded).value();
}

const std::vector<ZQUICGroup>& ZQUICProject::groupList() const {
  return content_->groups;
}

void ZQUICProject::setGroupList(std::vector<ZQUICGroup> groups) {
  content_ = std::make_shared<Content>(std::move(groups));
  update();
}

ZQUICProject ZQUICProject::withGroups(std::vector<ZQUICGroup> groups) const {
  ZQUICProject other = *this;
  other.content_ = std::make_shared<Content>(std::move(groups));
  return other;
}

void ZQUICProject::editGroupList(const std::function<void(std::vector<ZQUICGroup>&)>& edit) {
  // The save that waits is of these groups as they were; without it they may be nobody else's,
  // and are then edited as they are. The save of the edited ones follows.
  pressureQueue->drop();
  const bool ours = content_.use_count() == 1;
  struct Edited {
    ~Edited() { project.setGroupList(std::move(groups)); }  // however the edit ends
    ZQUICProject& project;
    std::vector<ZQUICGroup> groups;
  } edited{*this, ours ? std::move(content_->groups) : content_->groups};
  edit(edited.groups);
}

std::vector<ZQUICItem> ZQUICProject::itemList() const {
  std::vector<ZQUICItem> items;
  for (const ZQUICGroup& group : groupList()) {
    std::copy_if(group.itemList.begin(), group.itemList.end(), std::back_inserter(items),
                 [](const ZQUICItem& item) { return !item.shouldBeDeleted; });
  }
  return items;
}

std::size_t ZQUICProject::groupCount() const {
  return static_cast<std::size_t>(
      std::count_if(groupList().begin(), groupList().end(),
                    [](const ZQUICGroup& group) { return !group.shouldBeDeleted; }));
}

std::size_t ZQUICProject::itemCount() const {
  std::size_t count = 0;
  for (const ZQUICGroup& group : groupList()) {
    if (!group.shouldBeDeleted) count += group.itemsCount();
  }
  return count;
}

const ZQUICItem* ZQUICProject::itemForKey(std::string_view key, std::string_view inGroup) const {
  const Content& content = *content_;
  return content.index
      .get([&content] { return std::make_unique<const ProjectIndex>(content.groups); })
      .find(key, inGroup);
}

std::optional<std::int64_t> ZQUICProject::intForKey(std::string_view key,
                                                    std::string_view inGroup) const {
  const ZQUICItem* const item = itemForKey(key, inGroup);
  return item != nullptr ? std::optional(item->intValue) : std::nullopt;
}

std::optional<double> ZQUICProject::doubleForKey(std::string_view key,
                                                 std::string_view inGroup) const {
  const ZQUICItem* const item = itemForKey(key, inGroup);
  return item != nullptr ? std::optional(item->doubleValue) : std::nullopt;
}

std::optional<std::string> ZQUICProject::stringForKey(std::string_view key,
                                                      std::string_view inGroup) const {
  const ZQUICItem* const item = itemForKey(key, inGroup);
  return item != nullptr ? std::optional(item->stringValue) : std::nullopt;
}

std::optional<bool> ZQUICProject::boolForKey(std::string_view key, std::string_view inGroup) const {
  const ZQUICItem* const item = itemForKey(key, inGroup);
  return item != nullptr ? std::optional(item->boolValue) : std::nullopt;
}

std::optional<ZQUICPointSize> ZQUICProject::pointSizeForKey(std::string_view key,
                                                            std::string_view inGroup) const {
  const ZQUICItem* const item = itemForKey(key, inGroup);
  return item != nullptr ? std::optional(item->pointValue) : std::nullopt;
}

Result<void> ZQUICProject::saveConfigFile() const {
  if (!configFileUrl) return {};
  const auto json = encodeProject(*this, JsonStyle::pretty);
  if (!json.ok()) return json.error();
  return writeText(*configFileUrl, json.value());
}

Result<void> ZQUICProject::saveSwiftConfigFile() const {
  return configSwiftFileUrl ? writeText(*configSwiftFileUrl, zqcCode()) : Result<void>();
}

void ZQUICProject::update() const {
  pressureQueue->perform(quietPeriod, [project = *this] {
    Saves::post([project] {
      // Who wants to know of a failure saves by the functions that answer.
      static_cast<void>(project.saveConfigFile());
      static_cast<void>(project.saveSwiftConfigFile());
    });
  });
}

void ZQUICProject::broadcast() const {
  std::printf("ZQUICProject (%s).broadcast\n", appBundleId.c_str());
  std::fflush(stdout);
  const auto json = encodeProject(*this, JsonStyle::compact);
  if (json.ok()) ZQNotify::broadcast(broadcastName(appBundleId), json.value());
}

std::string ZQUICProject::broadcastName(std::string_view appBundleId) {
  return std::string(broadcastPrefix) + searchAndReplace(lowercased(appBundleId), ".", "", false);
}

bool ZQUICProject::operator==(const ZQUICProject& other) const {
  return content_ == other.content_ || groupList() == other.groupList();
}

}  // namespace zq
