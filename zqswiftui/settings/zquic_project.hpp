// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/base/pressure_task.hpp>
#include <zqswiftui/platform/base/result.hpp>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/settings/list_protocols.hpp>
#include <zqswiftui/settings/zquic_group.hpp>

namespace zq {

// The settings of one application: groups of typed items, kept in a JSON file. A value; its
// copies share the task that saves, so that edits of any of them are saved together. Copies
// are cheap, and may be read on several threads.
//   ZQUICProject project(Url::file("canvas.zquic"));
//   project.editGroupList([](auto& groups) { groups[0].itemList[0].doubleValue = 8; });
class ZQUICProject {
 public:
  static constexpr std::string_view configuratorFileExtension = "zquic";

  // Without groups.
  ZQUICProject();
  // Of a file; one that is missing, unreadable or no project gives the project without groups.
  // It waits for the disk. The file's own configFileUrl holds, not this location.
  explicit ZQUICProject(const Url& url);

  std::string id;
  std::string name = "New App";
  std::string appBundleId;
  std::optional<Url> configFileUrl;                   // where the project is saved
  std::optional<Url> configSwiftFileUrl;              // where its generated source is saved
  std::string environmentObjectVarName = "zqConfig";  // the store's name in generated source
  double defaultDoubleValue = 64;
  std::int64_t defaultIntValue = 0;
  bool defaultBoolValue = true;
  std::optional<std::string> selectedGroupId;
  bool expanded = true;

  // Of this run only; not in the file.
  bool favorite = false;
  bool hidden = false;
  Color color = Color::gray();
  std::optional<ZQImage> icon;
  std::optional<Url> iconUrl;
  bool shouldBeDeleted = false;
  std::shared_ptr<ZQPressureTask> pressureQueue = ZQPressureTask::make();

  const std::vector<ZQUICGroup>& groupList() const;
  // Both schedule a save, as update does.
  void setGroupList(std::vector<ZQUICGroup> groups);
  void editGroupList(const std::function<void(std::vector<ZQUICGroup>&)>& edit);
  // This project with other groups; nothing is scheduled.
  ZQUICProject withGroups(std::vector<ZQUICGroup> groups) const;

  // Of all groups, flagged ones too, without the items that are flagged to be deleted.
  std::vector<ZQUICItem> itemList() const;
  std::size_t groupCount() const;  // without flagged groups
  std::size_t itemCount() const;   // of groups that are not flagged, flagged items too

  // The slot of the first item whose key has this token, whatever its type, in the first group
  // whose name has this token; absent where there is none. By index: nothing is allocated.
  std::optional<std::int64_t> intForKey(std::string_view key, std::string_view inGroup) const;
  std::optional<double> doubleForKey(std::string_view key, std::string_view inGroup) const;
  std::optional<std::string> stringForKey(std::string_view key, std::string_view inGroup) const;
  std::optional<bool> boolForKey(std::string_view key, std::string_view inGroup) const;
  std::optional<ZQUICPointSize> pointSizeForKey(std::string_view key,
                                                std::string_view inGroup) const;
  // The item itself, as long as this project or a copy keeps its groups; null where none is.
  const ZQUICItem* itemForKey(std::string_view key, std::string_view inGroup) const;

  // Write the file of their name where its location is given; nothing otherwise. They wait for
  // the disk. A failure leaves the old file.
  Result<void> saveConfigFile() const;
  Result<void> saveSwiftConfigFile() const;
  // Both saves of the project as it is now, off the interface thread, after a quarter of a
  // second without another update. They happen though the project goes. Any thread.
  void update() const;

  // Hands the project to every process that listens for its application, and prints a line
  // that says so. An encoding that is not possible is not sent.
  void broadcast() const;
  // The name under which it is handed over: that of an application's identifier.
  static std::string broadcastName(std::string_view appBundleId);

  // Settings access in Swift: an extension of the store with a property an item, which asks the
  // store in a debug build and is the literal value in a release build. Texts stand in it as
  // they are, and two items of one name give two properties of one name.
  std::string zqcCode() const;
  // Puts the declaration of the store as an environment object on the pasteboard. Interface
  // thread only.
  void copyEnviromentObject() const;

  // Only the groups count, so that an editor sees whether the content changed.
  bool operator==(const ZQUICProject& other) const;

 private:
  struct Content;

  Shared<Content> content_;  // shared by copies, and then not changed any more
};

}  // namespace zq
