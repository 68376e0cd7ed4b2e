// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <tests/configurator/open_project.hpp>
#include <vector>
#include <zqswiftui/platform/base/prefs.hpp>

namespace zq::configurator {
namespace {

class Recent : public OpenProject {
 protected:
  std::string make(const std::string& name) const {
    const std::string path = folder.path(name);
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::filesystem::copy_file(url.path(), path);
    return path;
  }
  void openAt(const std::string& path) {
    bench->openRecent(Url::file(path));
    platform.runUntilIdle();
  }
  std::vector<std::string> titles() const {
    return recentTitles(shelf->recent()->files(),
                        [this](const Url& file) { return shelf->nameOf(file); });
  }

  std::shared_ptr<Shelf> shelf = std::make_shared<Shelf>();
  std::shared_ptr<Workbench> bench =
      std::make_shared<Workbench>(shelf, std::make_shared<OpenDocuments>(), WindowActions{});
};

TEST_F(Recent, tenAtMostAreKeptBetweenRunsTheLastOpenedFirst) {
  std::vector<Url> opened;
  for (int i = 0; i < 12; ++i) {
    const std::string path = make(std::to_string(i) + ".zquic");
    opened.insert(opened.begin(), Url::file(path));
    openAt(path);
  }
  openAt(opened[3].path());
  std::rotate(opened.begin(), opened.begin() + 3, opened.begin() + 4);
  opened.erase(opened.begin() + RecentProjects::most, opened.end());
  EXPECT_EQ(shelf->recent()->files(), opened);
  EXPECT_EQ(RecentProjects().files(), opened);

  platform.fileDialogs().answerNext({folder.path("made.zquic")});
  bench->newProject();
  platform.runUntilIdle();
  EXPECT_EQ(titles().front(), "made");
  shelf->recent()->clear();
  EXPECT_TRUE(RecentProjects().files().empty());
}

TEST_F(Recent, hostileLinesOfThePreferencesArePassedOver) {
  std::vector<std::string> lines{
      "", "x", "http://example.org/x", "file:x", url.text(), url.text(), "\xff\xfe"};
  for (int i = 0; i < 50; ++i) lines.push_back(url.text() + std::to_string(i));
  prefs_setValueStringList("recentProjects", lines);
  const auto files = RecentProjects().files();
  ASSERT_EQ(files.size(), RecentProjects::most);
  EXPECT_EQ(files[0], url);
  EXPECT_NE(files[1], url);
}

TEST_F(Recent, thoseOfOneNameAreToldApartByTheirFolders) {
  const auto named = [](const Url& file) {
    return file.name().starts_with('_') ? "Twin" : projectName(file);
  };
  const std::vector<Url> files{Url::file("/a/x.zquic"), Url::file("/b/x.zquic"),
                               Url::file("/x y.zquic"), Url::file("/c/_1.zquic"),
                               Url::file("/c/_2.zquic")};
  EXPECT_EQ(recentTitles(files, named),
            (std::vector<std::string>{"x — /a", "x — /b", "x y", "Twin — /c/_1.zquic",
                                      "Twin — /c/_2.zquic"}));
}

TEST_F(Recent, oneThatIsGoneSaysSoAndLeavesTheList) {
  const std::string gone = make("gone.zquic"), damaged = make("damaged.zquic");
  openAt(gone);
  openAt(damaged);
  openAt(url.path());
  std::filesystem::remove(gone);
  EXPECT_TRUE(replaceFile(damaged, "{").ok());
  openAt(gone);
  EXPECT_EQ(bench->sheet.get(), Sheet::failure);
  EXPECT_EQ(bench->failure,
            "“Sample” is no longer at " + gone + ", and has left the list of recent projects.");
  EXPECT_EQ(bench->document()->file(), url);
  openAt(damaged);
  EXPECT_NE(bench->failure.find(damaged), std::string::npos);
  EXPECT_EQ(shelf->recent()->files(), (std::vector<Url>{url, Url::file(damaged)}));
}

}  // namespace
}  // namespace zq::configurator
