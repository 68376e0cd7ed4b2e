// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/configurator/project_content.hpp>
#include <iterator>
#include <unordered_set>
#include <zqswiftui/platform/base/text.hpp>

namespace zq::configurator {
namespace {

const ZQUICGroup& of(const GroupPtr& group) {
  return *group;
}
const ZQUICItem& of(const ZQUICItem& item) {
  return item;
}

template <class Entries>
auto find(Entries& entries, std::string_view id) {
  return std::find_if(entries.begin(), entries.end(),
                      [&](const auto& entry) { return of(entry).id == id; });
}

// The entry that is shown as number index; the end where there are fewer.
template <class Entries>
auto shown(Entries& entries, std::size_t index) {
  return std::find_if(entries.begin(), entries.end(), [&index](const auto& entry) {
    return !of(entry).shouldBeDeleted && index-- == 0;
  });
}

template <class Entries>
void move(Entries& entries, std::size_t from, std::size_t to) {
  const auto source = shown(entries, from);
  const auto target = shown(entries, to);
  if (source == entries.end() || target == entries.end()) return;
  if (source < target) {
    std::rotate(source, std::next(source), std::next(target));
  } else {
    std::rotate(target, source, std::next(source));
  }
}

template <class Entries, class Entry>
void insertBehind(Entries& entries, const std::optional<std::string>& behind, Entry entry) {
  auto place = entries.end();
  if (behind) place = find(entries, *behind);
  entries.insert(place == entries.end() ? place : std::next(place), std::move(entry));
}

// The name, or with the first number from 2 on that makes it one that nobody else has: names are
// told apart by the identifiers that the generated source makes of them.
template <class Entries, class NameOf>
std::string freeName(const Entries& entries, const std::string& name, NameOf nameOf) {
  std::unordered_set<std::string> taken;
  for (const auto& entry : entries) {
    if (!of(entry).shouldBeDeleted) taken.insert(swiftTokenize(nameOf(of(entry))));
  }
  std::string free = name;
  for (int number = 2; taken.contains(swiftTokenize(free)); ++number) {
    free = name + " " + std::to_string(number);
  }
  return free;
}

std::string freeGroupName(const ProjectContent& content, const std::string& name) {
  return freeName(content.groups, name, [](const ZQUICGroup& group) { return group.name; });
}
std::string freeKey(const ZQUICGroup& group, const std::string& key) {
  return freeName(group.itemList, key, [](const ZQUICItem& item) { return item.key; });
}

void renewIds(ZQUICGroup& group) {
  group.id = newSettingsId();
  for (ZQUICItem& item : group.itemList) item.id = newSettingsId();
}

}  // namespace

ProjectContent ProjectContent::of(const ZQUICProject& project) {
  ProjectContent content;
  content.head = project.withGroups({});
  std::unordered_set<std::string> ids;
  for (ZQUICGroup group : project.groupList()) {
    if (!ids.insert(group.id).second) group.id = newSettingsId();
    for (ZQUICItem& item : group.itemList) {
      if (!ids.insert(item.id).second) item.id = newSettingsId();
    }
    content.groups.push_back(std::make_shared<const ZQUICGroup>(std::move(group)));
  }
  return content;
}

ZQUICProject ProjectContent::project() const {
  std::vector<ZQUICGroup> whole;
  whole.reserve(groups.size());
  for (const GroupPtr& group : groups) whole.push_back(*group);
  return head.withGroups(std::move(whole));
}

ZQUICProject ProjectContent::shownProject() const {
  std::vector<ZQUICGroup> whole;
  for (const GroupPtr& group : groups) {
    if (group->shouldBeDeleted) continue;
    std::erase_if(whole.emplace_back(*group).itemList,
                  [](const ZQUICItem& item) { return item.shouldBeDeleted; });
  }
  return head.withGroups(std::move(whole));
}

GroupPtr ProjectContent::group(std::string_view id) const {
  const auto found = find(groups, id);
  return found == groups.end() ? nullptr : *found;
}

std::optional<ZQUICItem> itemOf(const ProjectContent& content, std::string_view groupId,
                                std::string_view itemId) {
  const GroupPtr group = content.group(groupId);
  if (!group || group->shouldBeDeleted) return std::nullopt;
  const auto item = find(group->itemList, itemId);
  if (item == group->itemList.end() || item->shouldBeDeleted) return std::nullopt;
  return *item;
}

std::vector<GroupPtr> shownGroups(const ProjectContent& content, std::string_view query) {
  std::vector<GroupPtr> found;
  std::copy_if(content.groups.begin(), content.groups.end(), std::back_inserter(found),
               [&](const GroupPtr& group) {
                 return !group->shouldBeDeleted && (query.empty() || group->zqSearch(query));
               });
  return found;
}

std::vector<const ZQUICItem*> shownItems(const ZQUICGroup& group, std::string_view query) {
  // A group that is found by its name shows all that it has.
  const bool all = query.empty() || zqSearchContains(group.name, query);
  std::vector<const ZQUICItem*> found;
  for (const ZQUICItem& item : group.itemList) {
    if (!item.shouldBeDeleted && (all || item.zqSearch(query))) found.push_back(&item);
  }
  return found;
}

void editGroup(ProjectContent& content, std::string_view id,
               const std::function<void(ZQUICGroup&)>& edit) {
  const auto found = find(content.groups, id);
  if (found == content.groups.end()) return;
  ZQUICGroup changed = **found;
  edit(changed);
  // The same group is the same step of the history.
  if (changed != **found) *found = std::make_shared<const ZQUICGroup>(std::move(changed));
}

void editItem(ProjectContent& content, std::string_view groupId, std::string_view itemId,
              const std::function<void(ZQUICItem&)>& edit) {
  editGroup(content, groupId, [&](ZQUICGroup& group) {
    const auto item = find(group.itemList, itemId);
    if (item != group.itemList.end()) edit(*item);
  });
}

std::string addGroup(ProjectContent& content, const std::optional<std::string>& behind) {
  ZQUICGroup group;
  group.name = freeGroupName(content, group.name);
  std::string id = group.id;
  insertBehind(content.groups, behind, std::make_shared<const ZQUICGroup>(std::move(group)));
  return id;
}

std::string addItem(ProjectContent& content, std::string_view groupId, ZQUICRecordType type,
                    const std::optional<std::string>& behind) {
  ZQUICItem item{.type = type,
                 .intValue = content.head.defaultIntValue,
                 .doubleValue = content.head.defaultDoubleValue,
                 .boolValue = content.head.defaultBoolValue};
  std::string id = item.id;
  editGroup(content, groupId, [&](ZQUICGroup& group) {
    item.key = freeKey(group, "New value");
    insertBehind(group.itemList, behind, std::move(item));
  });
  return id;
}

std::string duplicateGroup(ProjectContent& content, std::string_view id) {
  const GroupPtr original = content.group(id);
  if (!original) return {};
  ZQUICGroup copy = *original;
  renewIds(copy);
  copy.name = freeGroupName(content, copy.name);
  std::string newId = copy.id;
  insertBehind(content.groups, std::string(id),
               std::make_shared<const ZQUICGroup>(std::move(copy)));
  return newId;
}

std::string duplicateItem(ProjectContent& content, std::string_view groupId, std::string_view id) {
  std::string newId;
  editGroup(content, groupId, [&](ZQUICGroup& group) {
    const auto original = find(group.itemList, id);
    if (original == group.itemList.end()) return;
    ZQUICItem copy = *original;
    copy.id = newId = newSettingsId();
    copy.key = freeKey(group, copy.key);
    group.itemList.insert(std::next(original), std::move(copy));
  });
  return newId;
}

void moveGroup(ProjectContent& content, std::size_t from, std::size_t to) {
  move(content.groups, from, to);
}

void moveItem(ProjectContent& content, std::string_view groupId, std::size_t from, std::size_t to) {
  editGroup(content, groupId, [&](ZQUICGroup& group) { move(group.itemList, from, to); });
}

void flagGroup(ProjectContent& content, std::string_view id) {
  editGroup(content, id, [](ZQUICGroup& group) { group.shouldBeDeleted = true; });
}

void flagItem(ProjectContent& content, std::string_view groupId, std::string_view itemId) {
  editItem(content, groupId, itemId, [](ZQUICItem& item) { item.shouldBeDeleted = true; });
}

}  // namespace zq::configurator
