// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <tests/base/temp_folder.hpp>
#include <vector>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/share_app.hpp>
#include <zqswiftui/platform/base/sub_files.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>

namespace zq {
namespace {

using namespace std::string_literals;

class Stores : public testing::Test {
 protected:
  HeadlessPlatform platform;
  TempFolder folder;

  template <typename T>
  T finished(Task<T> task) {
    std::optional<T> result;
    detach(thenOnMain<T>(std::move(task), [&](T value) { result = std::move(value); }));
    platform.advance(10);
    return result.value();
  }
};

TEST_F(Stores, aSubFileIsACopyUnderAnIdWithItsExtension) {
  ASSERT_TRUE(replaceFile(folder.path("a b.PNG"), "picture").ok());
  const ZQSubFiles store(Url::file(folder.path("store")));
  const auto id = finished(store.add(Url::file(folder.path("a b.PNG"))));
  ASSERT_TRUE(id);
  EXPECT_TRUE(id->ends_with(".png"));
  std::filesystem::remove(folder.path("a b.PNG"));
  const auto bytes = finished(store.read(*id));
  ASSERT_TRUE(bytes);
  EXPECT_EQ(std::string(bytes->begin(), bytes->end()), "picture");
  EXPECT_TRUE(finished(store.remove(*id)));
  EXPECT_FALSE(finished(store.read(*id)));
}

TEST_F(Stores, anAddThatFailsLeavesNothingBehind) {
  const ZQSubFiles store(Url::file(folder.path("store")));
  std::filesystem::create_directory(folder.path("store"));
  EXPECT_FALSE(finished(store.add(Url::file(folder.path("missing.png")))));
  EXPECT_FALSE(finished(store.add(Url::file(folder.path()))));
  EXPECT_FALSE(finished(store.add(*Url::parse("http://host/missing.png"))));
  EXPECT_TRUE(std::filesystem::is_empty(folder.path("store")));
}

TEST_F(Stores, noIdLeadsOutOfTheFolder) {
  ASSERT_TRUE(replaceFile(folder.path("secret"), "secret").ok());
  std::filesystem::create_directories(folder.path("store/sub"));
  ASSERT_TRUE(replaceFile(folder.path("store/sub/inner"), "inner").ok());
  std::filesystem::create_symlink("../secret", folder.path("store/link"));
  const ZQSubFiles store(Url::file(folder.path("store")));
  const std::vector<std::string> ids{"../secret", "link", "sub/inner",    "sub",
                                     "",          ".",    "..",           "/etc/hosts",
                                     "link\0"s,   ".\0"s, "../secret\0"s, "%2e%2e%2fsecret"};
  for (const std::string& id : ids) {
    EXPECT_FALSE(finished(store.read(id))) << id;
    EXPECT_FALSE(finished(store.remove(id))) << id;
  }
  EXPECT_TRUE(std::filesystem::exists(folder.path("secret")));
}

TEST_F(Stores, aSharedItemIsDownloadedOnceAndOnlyWhenAsked) {
  platform.downloads().setAnswer("http://host/x", {{'x'}, ""}, 1);
  const ZQShareApp record(Url::file(folder.path("shared")),
                          {{"here", "here.txt", ""},
                           {"there", "there.txt", "http://host/x"},
                           {"lost", "lost.txt", "http://host/missing"},
                           {"evil", "../evil.txt", "http://host/x"}});
  ASSERT_TRUE(fu_createFolderIfNeeded(Url::file(folder.path("shared"))));
  ASSERT_TRUE(replaceFile(folder.path("shared/here.txt"), "here").ok());
  EXPECT_TRUE(finished(record.urlForId("here", false)));
  EXPECT_FALSE(finished(record.urlForId("there", false)));
  for (int i = 0; i < 2; ++i) {
    const auto url = finished(record.urlForId("there", true));
    ASSERT_TRUE(url);
    EXPECT_EQ(readTextFile(url->path()).value(), "x");
  }
  EXPECT_EQ(platform.downloads().fetched(), (std::vector<std::string>{"http://host/x"}));
  for (const std::string id : {"lost", "evil", "unknown"}) {
    EXPECT_FALSE(finished(record.urlForId(id, true))) << id;
  }
  EXPECT_EQ(folder.entries(), 1U);
}

// Many ask for one item before it is there, over records that are copies, and with one asker that
// goes away meanwhile: one download, one answer each.
TEST_F(Stores, anItemThatManyAskForAtOnceIsDownloadedOnce) {
  platform.downloads().setAnswer("http://host/x", {{'x'}, ""}, 1);
  const Url shared = Url::file(folder.path("shared"));
  const ZQShareApp record(
      shared, {{"x", "x.txt", "http://host/x"}, {"lost", "lost.txt", "http://host/missing"}});
  std::vector<std::string> heard;
  const auto ask = [&](const ZQShareApp& of, const std::string& id) {
    return start(thenOnMain<std::optional<Url>>(of.urlForId(id, true), [&, id](const auto& url) {
      heard.push_back(id + (url ? readTextFile(url->path()).value() : "-"));
    }));
  };
  std::vector<Subscription> asking;
  for (int i = 0; i < 3; ++i) asking.push_back(ask(ZQShareApp(record), "x"));
  for (int i = 0; i < 2; ++i) asking.push_back(ask(record, "lost"));
  platform.advance(0.5);
  asking.push_back(ask(record, "x"));
  asking[1].reset();
  platform.advance(1);
  EXPECT_EQ(heard, (std::vector<std::string>{"lost-", "lost-", "xx", "xx", "xx"}));
  EXPECT_EQ(platform.downloads().fetched(),
            (std::vector<std::string>{"http://host/x", "http://host/missing"}));
  // A download that failed is begun anew by who asks later.
  platform.downloads().setAnswer("http://host/missing", {{'y'}, ""});
  const auto found = finished(record.urlForId("lost", true));
  ASSERT_TRUE(found);
  EXPECT_EQ(readTextFile(found->path()).value(), "y");
}

TEST(StoresAtTheEnd, aPlatformThatEndsLetsGoOfAllWhoWaitForADownload) {
  const TempFolder folder;
  std::weak_ptr<int> held;
  const auto record = std::make_unique<ZQShareApp>(
      Url::file(folder.path()), std::vector<ZQShareApp::Item>{{"x", "x.txt", "http://host/x"}});
  {
    HeadlessPlatform platform;
    platform.downloads().setAnswer("http://host/x", {{'x'}, ""}, 10);
    const auto waiter = std::make_shared<int>(1);
    held = waiter;
    for (int i = 0; i < 2; ++i) {
      detach(thenOnMain<std::optional<Url>>(record->urlForId("x", true),
                                            [waiter](const auto&) { FAIL() << "it never came"; }));
    }
    platform.advance(1);
  }
  EXPECT_TRUE(held.expired());
  HeadlessPlatform next;
  next.downloads().setAnswer("http://host/x", {{'x'}, ""});
  bool there = false;
  detach(thenOnMain<std::optional<Url>>(record->urlForId("x", true),
                                        [&](const auto& url) { there = url.has_value(); }));
  next.advance(1);
  EXPECT_TRUE(there);
}

}  // namespace
}  // namespace zq
