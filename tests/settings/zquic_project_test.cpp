// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <limits>
#include <tests/base/temp_folder.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/settings/project_json.hpp>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Project : public testing::Test {
 protected:
  std::string readBack(const Url& url) {
    auto text = readTextFile(url.path());
    return text.ok() ? std::move(text).value() : "";
  }
  ZQUICProject withFile(const std::string& name) {
    ZQUICProject project;
    project.configFileUrl = Url::file(folder.path() + "/" + name);
    return project;
  }

  HeadlessPlatform platform;
  TempFolder folder;
};

ZQUICGroup group(const std::string& name, std::vector<ZQUICItem> items) {
  return {.name = name, .itemList = std::move(items)};
}

TEST_F(Project, aLookUpIsThatOfAnOrderedWalk) {
  ZQUICProject project;
  project.setGroupList({
      group("Max zoom", {{.key = "first", .doubleValue = 1},
                         {.key = "a b", .type = ZQUICRecordType::string, .doubleValue = 2},
                         {.key = "aB", .doubleValue = 3},
                         {.key = "gone", .doubleValue = 4, .shouldBeDeleted = true}}),
      group("maxZoom", {{.key = "hidden", .doubleValue = 5}}),
      group("empty", {}),
      group("empty", {{.key = "first", .doubleValue = 6}}),
      {.name = "dead", .itemList = {{.key = "k", .doubleValue = 7}}, .shouldBeDeleted = true},
  });
  EXPECT_EQ(project.doubleForKey("first", "maxZoom"), 1);
  EXPECT_EQ(project.doubleForKey("aB", "maxZoom"), 2);
  EXPECT_EQ(project.doubleForKey("gone", "maxZoom"), 4);
  EXPECT_EQ(project.doubleForKey("hidden", "maxZoom"), std::nullopt);
  EXPECT_EQ(project.doubleForKey("first", "empty"), std::nullopt);
  EXPECT_EQ(project.doubleForKey("k", "dead"), 7);
  EXPECT_EQ(project.doubleForKey("a b", "maxZoom"), std::nullopt);
  EXPECT_EQ(project.doubleForKey("first", "Max zoom"), std::nullopt);
  EXPECT_EQ(ZQUICProject().intForKey("", ""), std::nullopt);

  const ZQUICProject before = project;
  project.editGroupList([](auto& groups) { groups[0].itemList[0].doubleValue = 8; });
  EXPECT_EQ(project.doubleForKey("first", "maxZoom"), 8);
  EXPECT_EQ(before.doubleForKey("first", "maxZoom"), 1);
}

// Against the walk itself, over names that often share a token.
TEST_F(Project, manyLookUpsAgreeWithTheWalk) {
  const std::vector<std::string> names{"a b", "aB", "a-b", "c", "C", "", "_", "1", "_1", "x y z"};
  unsigned random = 1;
  const auto pick = [&random, &names]() -> const std::string& {
    random = random * 1664525 + 1013904223;
    return names[(random >> 16) % names.size()];
  };
  std::vector<ZQUICGroup> groups;
  for (int g = 0; g < 12; ++g) {
    groups.push_back(group(pick(), {}));
    for (int i = 0; i < g % 4 * 5; ++i) {
      groups.back().itemList.push_back({.key = pick(), .intValue = g * 100 + i});
    }
  }
  ZQUICProject project;
  project.setGroupList(groups);
  for (const std::string& groupName : names) {
    for (const std::string& key : names) {
      std::optional<std::int64_t> expected;
      for (const ZQUICGroup& candidate : groups) {
        if (swiftTokenize(candidate.name) != groupName) continue;
        for (const ZQUICItem& item : candidate.itemList) {
          if (!expected && swiftTokenize(item.key) == key) expected = item.intValue;
        }
        break;
      }
      EXPECT_EQ(project.intForKey(key, groupName), expected) << groupName << "." << key;
    }
  }
}

TEST_F(Project, flaggedEntriesAreCountedAsTheListsShowThem) {
  ZQUICProject project;
  const ZQUICItem kept{.key = "kept"};
  const ZQUICItem flagged{.key = "flagged", .shouldBeDeleted = true};
  project.setGroupList(
      {group("a", {kept, flagged}), {.name = "b", .itemList = {kept}, .shouldBeDeleted = true}});
  EXPECT_THAT(project.itemList(), ElementsAre(kept, kept));
  EXPECT_EQ(project.groupCount(), 1u);
  EXPECT_EQ(project.itemCount(), 2u);
}

TEST_F(Project, onlyTheGroupsMakeTwoProjectsDiffer) {
  ZQUICProject a;
  a.setGroupList({group("g", {{.key = "k"}})});
  ZQUICProject b = a;
  b.name = "other";
  b.defaultIntValue = 9;
  EXPECT_EQ(a, b);
  b.editGroupList([](auto& groups) { groups[0].expanded = false; });
  EXPECT_NE(a, b);
}

TEST_F(Project, searchLooksAtTheNameAndAtEverySlot) {
  const ZQUICItem item{.key = "Zoom",
                       .type = ZQUICRecordType::bool_,
                       .intValue = -12,
                       .doubleValue = 0.5,
                       .stringValue = "Über"};
  for (const char* const query : {"", "zoom", "oomü", "über-12", "-120.5", "0.5"}) {
    EXPECT_TRUE(item.zqSearch(query)) << query;
  }
  EXPECT_FALSE(item.zqSearch("true"));
  EXPECT_TRUE(group("Canvas", {item}).zqSearch("ANV"));
  EXPECT_TRUE(group("Canvas", {item}).zqSearch("zoom"));
  EXPECT_FALSE(group("Canvas", {item}).zqSearch("zoom "));
}

TEST_F(Project, aGroupIgnoresMarksInASidebar) {
  ZQUICGroup marked = group("g", {});
  marked.favorite = true;
  marked.hidden = true;
  marked.color = Color::red();
  marked.iconUrl = std::optional(Url::file("/x"));
  EXPECT_FALSE(marked.favorite || marked.hidden);
  EXPECT_EQ(Color(marked.color), Color::gray());
  EXPECT_EQ(std::optional<Url>(marked.iconUrl), std::nullopt);
}

TEST_F(Project, aBurstOfUpdatesIsWrittenOnceWithTheLastState) {
  ZQUICProject project = withFile("deep/er/p.zquic");
  project.configSwiftFileUrl = Url::file(folder.path() + "/Settings.swift");
  for (int i = 0; i < 10; ++i) {
    project.name = std::to_string(i);
    project.update();
    platform.advance(0.1);
  }
  platform.advance(0.14);
  EXPECT_EQ(readBack(*project.configFileUrl), "");
  project.name = "not told";
  platform.advance(0.02);
  EXPECT_EQ(ZQUICProject(*project.configFileUrl).name, "9");
  EXPECT_EQ(readBack(*project.configSwiftFileUrl), project.zqcCode());
  fs::remove(project.configFileUrl->path());
  platform.advance(10);
  EXPECT_EQ(readBack(*project.configFileUrl), "");
}

TEST_F(Project, copiesSaveTogetherAndASaveOutlivesThem) {
  const Url url = Url::file(folder.path() + "/p.zquic");
  {
    ZQUICProject project = withFile("p.zquic");
    ZQUICProject copy = project;
    project.setGroupList({group("first", {})});
    copy.setGroupList({group("second", {})});
  }
  platform.advance(0.3);
  EXPECT_EQ(ZQUICProject(url).groupList()[0].name, "second");
}

TEST_F(Project, whatWaitsIsWrittenAtANormalExit) {
  ZQUICProject project = withFile("p.zquic");
  project.name = "last";
  project.update();
  platform.quit();
  EXPECT_EQ(ZQUICProject(*project.configFileUrl).name, "last");
}

TEST_F(Project, aSaveThatCannotBeMadeLeavesTheOldFile) {
  ZQUICProject project = withFile("p.zquic");
  ASSERT_TRUE(project.saveConfigFile().ok());
  const std::string old = readBack(*project.configFileUrl);
  for (const double bad :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    project.setGroupList({group("Canvas", {{.key = "zoom", .doubleValue = bad}})});
    EXPECT_FALSE(project.saveConfigFile().ok());
    EXPECT_EQ(readBack(*project.configFileUrl), old);
  }
  project.setGroupList({});
  fs::create_directories(folder.path() + "/folder.zquic/inside");
  project.configFileUrl = Url::file(folder.path() + "/folder.zquic");
  EXPECT_FALSE(project.saveConfigFile().ok());
  EXPECT_TRUE(fs::exists(folder.path() + "/folder.zquic/inside"));
  project.configFileUrl = Url::parse("https://example.com/p.zquic");
  EXPECT_FALSE(project.saveConfigFile().ok());
  project.configFileUrl = std::nullopt;
  EXPECT_TRUE(project.saveConfigFile().ok());
}

TEST_F(Project, aSaveKeepsTheLinkAndTheMode) {
  const std::string target = folder.path() + "/real.zquic";
  ASSERT_TRUE(replaceFile(target, "{}").ok());
  ASSERT_EQ(::chmod(target.c_str(), 0640), 0);
  fs::create_symlink("real.zquic", folder.path() + "/link.zquic");
  ZQUICProject project = withFile("link.zquic");
  project.name = "through the link";
  ASSERT_TRUE(project.saveConfigFile().ok());
  EXPECT_TRUE(fs::is_symlink(folder.path() + "/link.zquic"));
  EXPECT_EQ(ZQUICProject(Url::file(target)).name, "through the link");
  EXPECT_EQ(fs::status(target).permissions(), fs::perms{0640});
  EXPECT_THAT((std::vector<fs::path>{fs::directory_iterator(folder.path()), {}}), SizeIs(2));
}

TEST_F(Project, whatCannotBeReadGivesANewProject) {
  EXPECT_EQ(ZQUICProject(Url::file(folder.path() + "/none")).name, "New App");
  EXPECT_EQ(ZQUICProject(Url::file(folder.path())).name, "New App");
  EXPECT_EQ(ZQUICProject(*Url::parse("https://example.com/a")).name, "New App");
  const Url broken = Url::file(folder.path() + "/broken.zquic");
  ASSERT_TRUE(replaceFile(broken.path(), "{\"name\":\"x\"").ok());
  EXPECT_EQ(ZQUICProject(broken).name, "New App");
  ASSERT_TRUE(replaceFile(broken.path(), "{}").ok());
  EXPECT_EQ(ZQUICProject(broken).name, "NewApp");
  EXPECT_EQ(ZQUICProject(broken).configFileUrl, std::nullopt);
}

TEST_F(Project, aBroadcastIsTheWholeProjectUnderTheNameOfItsApplication) {
  ZQUICProject project;
  project.setGroupList({group("g", {{.key = "k"}})});
  testing::internal::CaptureStdout();
  project.broadcast();
  project.appBundleId = "com.Example.App";
  project.broadcast();
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "ZQUICProject ().broadcast\nZQUICProject (com.Example.App).broadcast\n");
  const auto posted = platform.notifications().posted();
  ASSERT_THAT(posted, SizeIs(2));
  EXPECT_EQ(posted[0].name, "vendel.zquic.broadcast.");
  EXPECT_EQ(posted[1].name, "vendel.zquic.broadcast.comexampleapp");
  const auto received = decodeProject(posted[1].payload);
  ASSERT_TRUE(received.ok());
  EXPECT_EQ(received.value(), project);
  EXPECT_EQ(received.value().appBundleId, "com.Example.App");
}

}  // namespace
}  // namespace zq
