// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <tests/base/temp_folder.hpp>
#include <vector>
#include <zqswiftui/platform/base/files.hpp>

namespace zq {
namespace {

namespace fs = std::filesystem;

std::string contentOf(const std::string& path) {
  const auto text = readTextFile(path);
  return text.ok() ? text.value() : "error: " + text.error().sentence;
}

TEST(Files, aReplacedFileKeepsItsModeAndNothingLiesBeside) {
  const TempFolder folder;
  const std::string path = folder.path("a.txt");
  ASSERT_TRUE(replaceFile(path, "one").ok());
  ::chmod(path.c_str(), 0640);
  ASSERT_TRUE(replaceFile(path, "two").ok());
  EXPECT_EQ(contentOf(path), "two");
  EXPECT_EQ(fs::status(path).permissions(), static_cast<fs::perms>(0640));
  EXPECT_EQ(folder.entries(), 1U);
}

TEST(Files, aLinkStaysALinkToTheFileThatIsReplaced) {
  const TempFolder folder;
  fs::create_directory(folder.path("real"));
  ASSERT_TRUE(replaceFile(folder.path("real/a"), "one").ok());
  fs::create_symlink("real/a", folder.path("link"));
  fs::create_symlink("real/new", folder.path("dangling"));
  ASSERT_TRUE(replaceFile(folder.path("link"), "two").ok());
  ASSERT_TRUE(replaceFile(folder.path("dangling"), "three").ok());
  EXPECT_TRUE(fs::is_symlink(folder.path("link")));
  EXPECT_EQ(contentOf(folder.path("real/a")), "two");
  EXPECT_EQ(contentOf(folder.path("real/new")), "three");
}

TEST(Files, aWriteThatFailsLeavesTheOldFileAndNoRest) {
  const TempFolder folder;
  ASSERT_TRUE(replaceFile(folder.path("a"), "old").ok());
  EXPECT_FALSE(replaceFile(folder.path("missing/a"), "x").ok());
  EXPECT_FALSE(replaceFile(folder.path(), "x").ok());
  fs::create_symlink("loop", folder.path("loop"));
  EXPECT_FALSE(replaceFile(folder.path("loop/a"), "x").ok());
  if (::geteuid() != 0) {
    fs::permissions(folder.path("a"), fs::perms::owner_read);
    EXPECT_FALSE(replaceFile(folder.path("a"), "x").ok());
  }
  EXPECT_EQ(contentOf(folder.path("a")), "old");
  EXPECT_EQ(folder.entries(), 2U);
}

TEST(Files, whatIsNoFileOrIsTooLongIsAnErrorAndNeverAWait) {
  const TempFolder folder;
  ASSERT_TRUE(replaceFile(folder.path("five"), "12345").ok());
  ASSERT_EQ(::mkfifo(folder.path("pipe").c_str(), 0600), 0);
  EXPECT_TRUE(readFile(folder.path("five"), 5).ok());
  EXPECT_FALSE(readFile(folder.path("five"), 4).ok());
  EXPECT_FALSE(readFile(folder.path("pipe")).ok());
  EXPECT_FALSE(readFile(folder.path()).ok());
  EXPECT_FALSE(readFile(folder.path("missing")).ok());
  // Its size says 0, though it has content.
  EXPECT_GT(contentOf("/proc/self/status").size(), 100U);
}

TEST(Files, existenceCountsWholeKilobytes) {
  const TempFolder folder;
  ASSERT_TRUE(replaceFile(folder.path("a b"), std::string(2047, 'x')).ok());
  const Url url = Url::file(folder.path("a b"));
  EXPECT_TRUE(fu_fileExists(url));
  EXPECT_TRUE(fu_fileExists(url, 1));
  EXPECT_FALSE(fu_fileExists(url, 2));
  EXPECT_FALSE(fu_fileExists(Url::file(folder.path("none"))));
  EXPECT_FALSE(fu_fileExists(*Url::parse("http://host/a")));
}

TEST(Files, sizesAreReadable) {
  const std::vector<std::pair<std::int64_t, std::string>> cases{
      {-5, "0 bytes"},     {1, "1 byte"},
      {999, "999 bytes"},  {1000, "1.0 KB"},
      {9949, "9.9 KB"},    {9950, "10 KB"},
      {999499, "999 KB"},  {999500, "1.0 MB"},
      {12345678, "12 MB"}, {std::numeric_limits<std::int64_t>::max(), "9.2 EB"}};
  for (const auto& [bytes, text] : cases) EXPECT_EQ(fu_getReadableFileSizeBySize(bytes), text);
}

TEST(Files, theNewestComesFirstAndMissingFilesLast) {
  const TempFolder folder;
  std::vector<Url> urls{Url::file(folder.path("missing"))};
  int age = 0;
  for (const std::string name : {"b", "A", "c"}) {
    ASSERT_TRUE(replaceFile(folder.path(name), name).ok());
    fs::last_write_time(folder.path(name),
                        fs::file_time_type::clock::now() - std::chrono::hours(++age));
    urls.push_back(Url::file(folder.path(name)));
  }
  const auto names = [&](SortMethod method) {
    std::string all;
    for (const Url& url : sortedWith(method, urls)) all += url.name().substr(0, 1);
    return all;
  };
  EXPECT_EQ(names(SortMethod::newestFirst), "bAcm");
  EXPECT_EQ(names(SortMethod::oldestFirst), "mcAb");
  EXPECT_EQ(names(SortMethod::nameAscending), "Abcm");
}

TEST(Url, pathsSurviveTheirWayThroughAUrl) {
  for (const std::string path : {"/a b/c#d?e%41.png", "/\xC3\xA9/\xFF.x", "/", "relative/x"}) {
    const Url url = Url::file(path);
    EXPECT_EQ(url.path(), path);
    EXPECT_EQ(Url::parse(url.text()), url);
  }
  EXPECT_EQ(Url::file("/a b").text(), "file:///a%20b");
}

TEST(Url, partsOfAUrl) {
  struct Case {
    std::string text;
    std::string path;
    std::string name;
    std::string extension;
  };
  const std::vector<Case> cases{
      {"http://host/a/b.tar.GZ?x=/y.z#f", "/a/b.tar.GZ", "b.tar.GZ", "GZ"},
      {"http://host", "", "", ""},
      {"file://localhost/a/.hidden", "/a/.hidden", ".hidden", ""},
      {"file:///Applications/Tool.app/", "/Applications/Tool.app/", "Tool.app", "app"},
      {"file:///a%2", "/a%2", "a%2", ""},
      {"mailto:x", "x", "x", ""}};
  for (const Case& row : cases) {
    const auto url = Url::parse(row.text);
    ASSERT_TRUE(url) << row.text;
    EXPECT_EQ(url->path(), row.path) << row.text;
    EXPECT_EQ(url->name(), row.name) << row.text;
    EXPECT_EQ(url->pathExtension(), row.extension) << row.text;
  }
  EXPECT_TRUE(Url::parse("http://host/a.PNG")->isA({"jpg", "png"}));
  for (const std::string text : {"", "a", ":x", "1a:b", "http://a b", "ht tp:x", "http:\n"}) {
    EXPECT_FALSE(Url::parse(text)) << text;
  }
}

}  // namespace
}  // namespace zq
