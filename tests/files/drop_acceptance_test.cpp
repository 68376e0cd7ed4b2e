// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <zqswiftui/files/drop_acceptance.hpp>

namespace zq {
namespace {

// The disk of these tests: what is in /folders.
bool isFolder(const std::string& path) {
  return path.starts_with("/folders/");
}

using List = std::optional<std::vector<std::string>>;

TEST(DropAcceptance, filesGoByTheirExtensionAndFoldersByWhatIsAskedFor) {
  const List none, nothing = std::vector<std::string>(), pictures = List{{"PNG", "jpg"}};
  struct Case {
    List extensions;
    const char* url;
    bool files;           // taken
    bool filesOrFolders;  // taken where folders are
  };
  for (const Case& row : std::vector<Case>{
           {none, "file:///a", true, true},
           {none, "file:///folders/b", true, true},
           {none, "https://example.org/", true, true},
           {pictures, "file:///photo.png", true, true},
           {pictures, "file:///photo.PNG", true, true},
           {pictures, "file:///photo.Jpg", true, true},
           {pictures, "file:///a.tar.jpg", true, true},
           {pictures, "https://example.org/cover.png?size=2#top", true, true},
           {pictures, "file:///photo%2Epng", true, true},
           {pictures, "file:///png", false, false},
           {pictures, "file:///.png", false, false},
           {pictures, "file:///photo.png.txt", false, false},
           {pictures, "file:///photo.", false, false},
           {pictures, "file:///folders/plain", false, true},
           {pictures, "file:///folders/album.png", true, true},
           {pictures, "file:///folders/Tool.app/", false, true},
           {pictures, "https://example.org/folders/plain", false, false},
           {pictures, "file:folders/relative", false, false},
           {pictures, "file://folders/relative", false, false},
           {nothing, "file:///photo.png", false, false},
           {nothing, "file:///plain", false, false},
           {nothing, "file:///folders/plain", false, true},
           {List{{"ÄÖ"}}, "file:///a.%C3%A4%C3%B6", true, true},
       }) {
    const Url url = *Url::parse(row.url);
    EXPECT_EQ(acceptsFile(fileRule(row.extensions, false), url, isFolder), row.files) << row.url;
    EXPECT_EQ(acceptsFile(fileRule(row.extensions, true), url, isFolder), row.filesOrFolders)
        << row.url;
  }
}

TEST(DropAcceptance, theDiskIsAskedOnlyWhereThatDecides) {
  const FolderTest fails = [](const std::string& path) {
    ADD_FAILURE() << path;
    return false;
  };
  acceptsFile(fileRule({{"png"}}, true), Url::file("/a.png"), fails);
  acceptsFile(fileRule({{"png"}}, false), Url::file("/a"), fails);
  acceptsFile(fileRule(std::nullopt, true), Url::file("/a"), fails);
  acceptsFolder(true, Url::file("/a.png"), fails);
  acceptsFolder(false, *Url::parse("smb://server/share"), fails);
}

TEST(DropAcceptance, foldersAndBundles) {
  struct Case {
    const char* path;
    bool folder;
    bool app;
  };
  for (const Case& row : std::vector<Case>{{"/folders/plain", true, false},
                                           {"/folders/Tool.app", true, true},
                                           {"/folders/TOOL.APP", true, true},
                                           {"/folders/app", true, false},
                                           {"/Tool.app", false, false},
                                           {"/photo.png", false, false}}) {
    EXPECT_EQ(acceptsFolder(false, Url::file(row.path), isFolder), row.folder) << row.path;
    EXPECT_EQ(acceptsFolder(true, Url::file(row.path), isFolder), row.app) << row.path;
  }
}

TEST(DropAcceptance, isSaidInWords) {
  EXPECT_EQ(spokenRule(fileRule(std::nullopt, false)), "Accepts any file or folder");
  EXPECT_EQ(spokenRule(fileRule({{"PNG", "jpg"}}, false)), "Accepts png, jpg");
  EXPECT_EQ(spokenRule(fileRule({{"png"}}, true)), "Accepts png and folders");
  EXPECT_EQ(spokenRule(fileRule(std::vector<std::string>(), true)), "Accepts folders");
  EXPECT_EQ(spokenRule(fileRule(std::vector<std::string>(), false)), "Accepts what is chosen");
}

}  // namespace
}  // namespace zq
