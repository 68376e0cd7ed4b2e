// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <algorithm>
#include <apps/configurator/project_content.hpp>
#include <random>
#include <set>

namespace zq::configurator {
namespace {

ProjectContent contentOf(std::vector<ZQUICGroup> groups) {
  ProjectContent content;
  for (ZQUICGroup& group : groups) {
    content.groups.push_back(std::make_shared<const ZQUICGroup>(std::move(group)));
  }
  return content;
}

std::string keysOf(const ZQUICGroup& group, bool flagged) {
  std::string keys;
  for (const ZQUICItem& item : group.itemList) {
    if (item.shouldBeDeleted == flagged) keys += item.key;
  }
  return keys;
}

TEST(ProjectContent, whatIsMovedPassesWhatIsFlagged) {
  std::minstd_rand random(11);
  for (int round = 0; round < 300; ++round) {
    ZQUICGroup group{.id = "g"};
    for (std::size_t i = 0; i < 8; ++i) {
      group.itemList.push_back({.key = std::string(1, static_cast<char>('a' + i)),
                                .shouldBeDeleted = random() % 3 == 0});
    }
    ProjectContent content = contentOf({group});
    std::string expected = keysOf(group, false);
    const std::size_t from = random() % 9;
    const std::size_t to = random() % 9;
    moveItem(content, "g", from, to);
    if (from < expected.size() && to < expected.size()) {
      const char moved = expected[from];
      expected.erase(from, 1);
      expected.insert(to, 1, moved);
    }
    EXPECT_EQ(keysOf(*content.group("g"), false), expected) << from << " to " << to;
    EXPECT_EQ(keysOf(*content.group("g"), true), keysOf(group, true));
  }
}

TEST(ProjectContent, copiesHaveFreeNamesAndIdsOfTheirOwn) {
  ProjectContent content = contentOf({{.id = "a", .name = "Canvas", .itemList = {{.key = "Zoom"}}},
                                      {.id = "b", .name = "canvas-2"},
                                      {.id = "c", .name = "Canvas 3", .shouldBeDeleted = true}});
  const std::string copy = duplicateGroup(content, "a");
  ASSERT_TRUE(content.group(copy));
  EXPECT_EQ(content.groups[1]->id, copy);  // right behind
  EXPECT_TRUE(content.group(copy)->name == "Canvas 2" || content.group(copy)->name == "Canvas 3");
  EXPECT_NE(content.group(copy)->itemList[0].id, content.group("a")->itemList[0].id);

  const std::string item = content.group("a")->itemList[0].id;
  for (int i = 0; i < 3; ++i) duplicateItem(content, "a", item);
  addItem(content, "a", ZQUICRecordType::int_, item);
  addItem(content, "a", ZQUICRecordType::int_, std::nullopt);
  addGroup(content, std::nullopt);
  addGroup(content, "gone");
  std::set<std::string> ids, keys, names;
  for (const GroupPtr& group : content.groups) {
    EXPECT_TRUE(ids.insert(group->id).second);
    EXPECT_TRUE(group->shouldBeDeleted || names.insert(group->name).second) << group->name;
    for (const ZQUICItem& each : group->itemList) EXPECT_TRUE(ids.insert(each.id).second);
  }
  for (const ZQUICItem& each : content.group("a")->itemList) {
    EXPECT_TRUE(keys.insert(each.key).second) << each.key;
  }
}

TEST(ProjectContent, newValuesBeginWithTheProjectsDefaults) {
  ProjectContent content = contentOf({{.id = "g"}});
  content.head.defaultIntValue = 7;
  content.head.defaultDoubleValue = 2.5;
  content.head.defaultBoolValue = false;
  const auto item = itemOf(content, "g", addItem(content, "g", ZQUICRecordType::bool_, {}));
  ASSERT_TRUE(item);
  EXPECT_EQ(item->type, ZQUICRecordType::bool_);
  EXPECT_EQ(item->intValue, 7);
  EXPECT_EQ(item->doubleValue, 2.5);
  EXPECT_FALSE(item->boolValue);
}

TEST(ProjectContent, idsThatComeTwiceAreMadeAnewInTheWholeProject) {
  const ZQUICProject project =
      ZQUICProject().withGroups({{.id = "x", .itemList = {{.id = "i"}, {.id = "i"}, {.id = "x"}}},
                                 {.id = "x", .itemList = {{.id = "i"}, {.id = "own"}}}});
  const ProjectContent content = ProjectContent::of(project);
  std::set<std::string> ids;
  for (const GroupPtr& group : content.groups) {
    ids.insert(group->id);
    for (const ZQUICItem& item : group->itemList) ids.insert(item.id);
  }
  EXPECT_EQ(ids.size(), 7U);
  for (const char* const kept : {"x", "i", "own"}) EXPECT_TRUE(ids.contains(kept)) << kept;
}

TEST(ProjectContent, theSearchShowsGroupsByTheirNameOrByAnyItem) {
  ProjectContent content =
      contentOf({{.id = "map", .name = "Map", .itemList = {{.key = "Zoom"}, {.key = "Tiles"}}},
                 {.id = "lens", .name = "Zoom lens", .itemList = {{.key = "f"}, {.key = "g"}}},
                 {.id = "ink", .name = "Ink", .itemList = {{.key = "Color"}}},
                 {.id = "gone", .name = "Zoom", .shouldBeDeleted = true}});
  const auto shown = [&](std::string_view query) {
    std::string found;
    for (const GroupPtr& group : shownGroups(content, query)) {
      found += group->id + ":";
      for (const ZQUICItem* item : shownItems(*group, query)) found += " " + item->key;
      found += ";";
    }
    return found;
  };
  EXPECT_EQ(shown("ZOOM"), "map: Zoom;lens: f g;");
  EXPECT_EQ(shown("colo"), "ink: Color;");
  EXPECT_EQ(shown("nowhere"), "");
  EXPECT_EQ(shown(""), "map: Zoom Tiles;lens: f g;ink: Color;");
}

TEST(ProjectContent, anEditThatChangesNothingKeepsTheSameGroups) {
  ProjectContent content = contentOf({{.id = "g", .itemList = {{.id = "i", .doubleValue = 3}}},
                                      {.id = "gone", .itemList = {{.id = "j"}}}});
  const auto before = content.groups;
  editGroup(content, "g", [](ZQUICGroup& group) { group.name = std::string(group.name); });
  editItem(content, "g", "i", [](ZQUICItem& item) { item.doubleValue = 3; });
  editItem(content, "g", "unknown", [](ZQUICItem& item) { item.doubleValue = 4; });
  editGroup(content, "unknown", [](ZQUICGroup& group) { group.name = "?"; });
  moveItem(content, "g", 0, 0);
  moveGroup(content, 1, 1);
  EXPECT_EQ(duplicateItem(content, "g", "unknown"), "");
  EXPECT_EQ(duplicateGroup(content, "unknown"), "");
  EXPECT_EQ(content.groups, before);
  flagGroup(content, "gone");
  EXPECT_FALSE(itemOf(content, "gone", "j"));  // nothing of it is there any more
  EXPECT_EQ(content.groups[0], before[0]);
}

}  // namespace
}  // namespace zq::configurator
