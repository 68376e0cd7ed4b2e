// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq::configurator {

using GroupPtr = std::shared_ptr<const ZQUICGroup>;

// A project at one moment. A copy shares all groups, so that every step of an undo history is as
// large as what it changed.
struct ProjectContent {
  ZQUICProject head;             // all but the groups
  std::vector<GroupPtr> groups;  // flagged ones too

  // Ids that are there already are made anew: everything is found by its id.
  static ProjectContent of(const ZQUICProject& project);
  // The whole project, which copies every item. It saves nothing by itself.
  ZQUICProject project() const;
  // The same without what is flagged.
  ZQUICProject shownProject() const;

  GroupPtr group(std::string_view id) const;  // null where there is none
};

// Absent where there is none, or it or its group is flagged.
std::optional<ZQUICItem> itemOf(const ProjectContent& content, std::string_view groupId,
                                std::string_view itemId);

// What is shown: neither flagged, nor left out by the search.
std::vector<GroupPtr> shownGroups(const ProjectContent& content, std::string_view query);
std::vector<const ZQUICItem*> shownItems(const ZQUICGroup& group, std::string_view query);

// Edits. Where the id is unknown they do nothing; indices count what is not flagged.
void editGroup(ProjectContent& content, std::string_view id,
               const std::function<void(ZQUICGroup&)>& edit);
void editItem(ProjectContent& content, std::string_view groupId, std::string_view itemId,
              const std::function<void(ZQUICItem&)>& edit);

// Behind that one, or at the end. Each answers the new id; names are others than those in use.
std::string addGroup(ProjectContent& content, const std::optional<std::string>& behind);
std::string addItem(ProjectContent& content, std::string_view groupId, ZQUICRecordType type,
                    const std::optional<std::string>& behind);
std::string duplicateGroup(ProjectContent& content, std::string_view id);
std::string duplicateItem(ProjectContent& content, std::string_view groupId, std::string_view id);

void moveGroup(ProjectContent& content, std::size_t from, std::size_t to);
void moveItem(ProjectContent& content, std::string_view groupId, std::size_t from, std::size_t to);

void flagGroup(ProjectContent& content, std::string_view id);
void flagItem(ProjectContent& content, std::string_view groupId, std::string_view itemId);

}  // namespace zq::configurator
