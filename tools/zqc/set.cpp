// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <tools/zqc/bus.hpp>
#include <tools/zqc/project_files.hpp>
#include <tools/zqc/values.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq::zqc {

namespace {

// The entry of exactly that name, or else the first with its token; none of the flagged ones.
template <typename Entry>
Entry* named(std::vector<Entry>& entries, std::string Entry::*name, const std::string& wanted) {
  const auto find = [&entries](const auto& matches) -> Entry* {
    const auto found = std::ranges::find_if(entries, [&matches](const Entry& entry) {
      return !entry.shouldBeDeleted && matches(entry);
    });
    return found != entries.end() ? &*found : nullptr;
  };
  const std::string token = swiftTokenize(wanted);
  Entry* const exact = find([&](const Entry& entry) { return entry.*name == wanted; });
  if (exact != nullptr) return exact;
  return find([&](const Entry& entry) { return swiftTokenize(entry.*name) == token; });
}

struct Change {
  const std::string& group;
  const std::string& key;
  const std::string& value;
  std::optional<ZQUICRecordType> type{};
};

int apply(const Session& session, const Change& change, std::vector<ZQUICGroup>& groups) {
  ZQUICGroup* const group = named(groups, &ZQUICGroup::name, change.group);
  ZQUICItem* const item =
      group != nullptr ? named(group->itemList, &ZQUICItem::key, change.key) : nullptr;
  if (item == nullptr && !change.type) {
    return session.fail(exitUsage, "there is no item " + change.key + " in the group " +
                                       change.group + "; --type would add it");
  }
  ZQUICItem changed = item != nullptr ? *item : ZQUICItem{.key = change.key};
  changed.type = change.type.value_or(changed.type);
  if (!setValue(changed, change.value)) return failValue(session, change.value, changed.type);
  if (item != nullptr) {
    *item = changed;
  } else if (group != nullptr) {
    group->itemList.push_back(changed);
  } else {
    groups.push_back({.name = change.group, .itemList = {changed}});
  }
  return exitOk;
}

int save(const Session& session, const std::string& path, const ZQUICProject& project) {
  const auto text = encodeProject(project, JsonStyle::pretty);
  if (!text.ok()) return session.fail(exitData, path + ": " + text.error().sentence);
  return writeIfDifferent(session, path, text.value());
}

}  // namespace

int runSet(const Session& session, const Arguments& arguments) {
  const auto& operands = arguments.operands;
  const std::string& path = operands[0];
  Change change{operands[1], operands[2], operands[3]};
  if (arguments.has("--type")) {
    const auto type = typeOption(session, arguments);
    if (!type) return type.status;
    change.type = type.value;
  }
  const bool broadcast = arguments.has("--broadcast");
  if (broadcast) {
    if (const int status = checkBus(session)) return status;
  }
  auto project = readEverything(session, path);
  if (!project) return project.status;
  // A change of the groups schedules a save, which this platform's clock never comes to.
  const HeadlessPlatform platform;
  int status = exitOk;
  project->editGroupList([&](auto& groups) { status = apply(session, change, groups); });
  if (status == exitOk) status = save(session, path, *project);
  if (status == exitOk && broadcast) status = broadcastProject(session, path, *project);
  return status;
}

}  // namespace zq::zqc
