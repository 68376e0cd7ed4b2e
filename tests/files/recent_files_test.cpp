// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <tests/base/temp_folder.hpp>
#include <zqswiftui/files/recent_files.hpp>
#include <zqswiftui/files/zq_recent_file_view.hpp>
#include <zqswiftui/files/zq_recent_files.hpp>
#include <zqswiftui/platform/base/dates.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/prefs.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

constexpr Size kPanelSize{360, 400};
const char* const kPreference = "Recent Files Open";

class RecentFiles : public testing::Test {
 protected:
  // A file so many hours old.
  Url write(const std::string& name, int hours, std::string content = "12345") {
    const std::string path = folder.path(name);
    EXPECT_TRUE(replaceFile(path, content).ok());
    std::filesystem::last_write_time(path, now - std::chrono::hours(hours));
    return Url::file(path);
  }
  void remember(const std::vector<Url>& urls) {
    std::vector<RecentDocument> documents;
    for (const Url& url : urls) documents.push_back({url.text()});
    platform.recentDocuments().setDocuments(documents);
  }
  std::vector<Url> many(int count) {
    std::vector<Url> urls;
    for (int i = 0; i < count; ++i) urls.push_back(write("file " + std::to_string(i) + ".txt", i));
    return urls;
  }
  static View panel(std::vector<std::string> extensions = {},
                    std::function<void(const Url&)> callback = nullptr) {
    return ZQRecentFilesView(
        {.filterExtensions = std::move(extensions), .callback = std::move(callback)});
  }
  static void open(Harness& h) { h.click(h.button("Recent Files")); }
  // The names of the rows that can be seen, and of the header.
  static std::string buttons(Harness& h) {
    std::string names;
    for (const Element& e : h.all(Role::button)) names += e.name + "|";
    return names;
  }

  HeadlessPlatform platform;
  TempFolder folder;
  const std::filesystem::file_time_type now = std::filesystem::file_time_type::clock::now();
};

TEST_F(RecentFiles, thoseThatExistAreListedTheNewestFirstAndTiesByPath) {
  const Url b = write("b.txt", 5), a = write("a.txt", 5), newest = write("z.PNG", 1);
  const Url folderUrl = Url::file(folder.path("plain"));
  std::filesystem::create_directory(folderUrl.path());
  std::filesystem::last_write_time(folderUrl.path(), now - std::chrono::hours(9));
  remember({b, Url::file(folder.path("gone.txt")), folderUrl, a,
            *Url::parse("https://example.org/page.png"), newest});
  platform.recentDocuments().add("no address at all");

  const ZQRecentFilesVM model;
  EXPECT_TRUE(model.urlList.get().empty()) << "nobody waits for the disk";
  platform.advance(0);
  EXPECT_EQ(model.urlList.get(), (std::vector<Url>{newest, a, b, folderUrl}));

  remember({});
  platform.advance(60);
  EXPECT_EQ(model.urlList.get().size(), 4U) << "gathered once";
}

TEST_F(RecentFiles, aShareThatDoesNotAnswerKeepsNobodyWaiting) {
  std::mutex mutex;
  std::condition_variable changed;
  bool released = false;
  int waiting = 0, ended = 0;
  const detail::AskFile ask = [&](const Url& url) -> std::optional<FileFacts> {
    if (url.path().starts_with("/dead")) {
      std::unique_lock lock(mutex);
      ++waiting;
      changed.wait(lock, [&] { return released; });
      ++ended;
      changed.notify_all();
    }
    return FileFacts{};
  };
  const std::vector<Documents::Recent> documents{
      {Url::file("/dead/a"), "/dead"}, {Url::file("/dead/b"), "/dead"}, {Url::file("/home/c"), ""}};
  std::vector<std::string> told;
  const auto gather = [&] {
    detail::gatherRecentFiles(documents, ask, [&](const detail::RecentFileList& list) {
      told.clear();
      for (const auto& file : list) told.push_back(file->url.path());
    });
  };
  gather();
  platform.advance(detail::remoteLimit - 0.1);
  EXPECT_TRUE(told.empty());
  platform.advance(0.2);
  EXPECT_EQ(told, std::vector<std::string>{"/home/c"});

  // The share is not asked again before it has answered: the list comes at once.
  told.clear();
  gather();
  platform.advance(0);
  EXPECT_EQ(told, std::vector<std::string>{"/home/c"});

  std::unique_lock lock(mutex);
  EXPECT_LE(waiting, 1);
  released = true;
  changed.notify_all();
  changed.wait(lock, [&] { return ended == 1; });
}

TEST_F(RecentFiles, whatThePlatformKnowsOfAFileIsNotAskedAgain) {
  const auto at = [](int hour) {
    return FileFacts{1, std::chrono::system_clock::time_point(std::chrono::hours(hour))};
  };
  std::mutex mutex;
  std::vector<std::string> asked, told;
  const detail::AskFile ask = [&](const Url& url) -> std::optional<FileFacts> {
    const std::lock_guard lock(mutex);
    asked.push_back(url.path());
    return at(2);
  };
  detail::gatherRecentFiles({{Url::file("/a"), "", at(1)},
                             {Url::file("/unknown"), ""},
                             {Url::file("/d"), "", at(3)},
                             {Url::file("/c"), "", at(3)},
                             {Url::file("/e"), "", FileFacts{}}},
                            ask, [&](const detail::RecentFileList& list) {
                              for (const auto& file : list) told.push_back(file->url.path());
                            });
  platform.advance(0);
  EXPECT_EQ(told, (std::vector<std::string>{"/c", "/d", "/unknown", "/a", "/e"}));
  const std::lock_guard lock(mutex);
  EXPECT_EQ(asked, std::vector<std::string>{"/unknown"});
}

TEST_F(RecentFiles, theListGrowsAndThenScrolls) {
  struct Case {
    int count;
    double height;
  };
  for (const Case& row : {Case{3, 105}, Case{9, 255}, Case{10, 270}, Case{20, 270}}) {
    remember(many(row.count));
    prefs_setValueBool(kPreference, true);
    Harness h(VStack({View(panel()), Spacer()}), kPanelSize);
    const Rect field = h.find(Role::textField).bounds;
    const Rect list = h.find(Role::scrollArea).bounds;
    // The field stands in the middle of its 30 points.
    EXPECT_EQ(list.y - (field.y + field.height / 2), 15) << row.count;
    EXPECT_EQ(list.height + 30, row.height) << row.count;
  }
}

TEST_F(RecentFiles, theSearchAndTheKindsNarrowTheList) {
  remember({write("Alpha.png", 1), write("beta.JPG", 2), write("gamma.txt", 3)});
  prefs_setValueInt(kPreference, 1);
  Harness all(panel(), kPanelSize);
  EXPECT_EQ(buttons(all), "Recent Files|Alpha.png|beta.JPG|gamma.txt|");
  Harness pictures(panel({"png", "jpg"}), kPanelSize);
  EXPECT_EQ(buttons(pictures), "Recent Files|Alpha.png|beta.JPG|");
  pictures.click(pictures.find(Role::textField));
  pictures.type("ALPHA");
  EXPECT_EQ(buttons(pictures), "Recent Files|Alpha.png|");
  pictures.type(" no such");
  EXPECT_EQ(buttons(pictures), "Recent Files|");
}

TEST_F(RecentFiles, aPressHandsTheFileOverAndTheDesktopHearsOfIt) {
  const Url first = write("a.txt", 1), second = write("b.txt", 2);
  remember({first, second});
  prefs_setValueBool(kPreference, true);
  std::vector<Url> taken;
  Harness host(panel({}, [&](const Url& url) { taken.push_back(url); }), kPanelSize);
  host.click(host.button("b.txt"));
  EXPECT_EQ(taken, std::vector<Url>{second});
  EXPECT_TRUE(platform.workspace().opened().empty());

  Harness alone(panel(), kPanelSize);
  while (alone.tab() && alone.focused().name != "a.txt") continue;
  EXPECT_TRUE(alone.key(Key::enter));
  EXPECT_EQ(platform.workspace().opened(), std::vector<std::string>{first.text()});

  std::vector<std::string> order;
  platform.recentDocuments().list([&](const std::vector<RecentDocument>& documents) {
    for (const RecentDocument& document : documents) order.push_back(document.url);
  });
  platform.advance(0);
  EXPECT_EQ(order, (std::vector<std::string>{first.text(), second.text()}));
}

TEST_F(RecentFiles, whetherThePanelIsOpenIsKept) {
  remember(many(1));
  struct Case {
    const char* what;
    std::function<void()> set;
    bool open;
  };
  for (const Case& row : std::vector<Case>{
           {"one", [] { prefs_setValueInt(kPreference, 1); }, true},
           {"true", [] { prefs_setValueBool(kPreference, true); }, true},
           {"two", [] { prefs_setValueInt(kPreference, 2); }, false},
           {"text", [] { prefs_setValueString(kPreference, "open"); }, false},
           {"zero", [] { prefs_setValueInt(kPreference, 0); }, false},
       }) {
    row.set();
    Harness h(panel(), kPanelSize);
    EXPECT_EQ(h.findText("Recent Files:").found, row.open) << row.what;
    EXPECT_EQ(h.findText("Recent Files").found, !row.open) << row.what;
    EXPECT_EQ(h.findSymbol("chevron.compact.up").found, row.open) << row.what;
    EXPECT_EQ(std::get<bool>(*platform.preferences().value(kPreference)), row.open) << row.what;
    open(h);
    EXPECT_EQ(std::get<bool>(*platform.preferences().value(kPreference)), !row.open) << row.what;
    Harness next(panel(), kPanelSize);
    EXPECT_EQ(next.find(Role::textField).found, !row.open) << row.what;
  }
}

TEST_F(RecentFiles, aRowShowsNameSizeAndDateAndIsMarkedUnderThePointer) {
  const Url url =
      write("a very long name of a file that does not fit.txt", 3, std::string(1'234'567, 'x'));
  const std::string date = du_formatDate(*fu_getModificationDate(url), "dd MMM yy [HH:mm]");
  std::vector<Url> pressed;
  Harness h(ZQRecentFileView({.url = url, .tapped = [&](const Url& u) { pressed.push_back(u); }}),
            {330, 25});
  EXPECT_EQ(h.find(Role::button).value, "1.2 MB, " + date);
  const Element size = h.findText("1.2 MB");
  EXPECT_TRUE(size);
  EXPECT_EQ(size.font.size, 12);
  EXPECT_TRUE(h.findText(date));
  EXPECT_NE(h.displayList().find("middle"), std::string::npos) << "a long name keeps its end";
  const std::size_t plain = h.drawn().size();
  h.hover(h.find(Role::button));
  h.advance(1);
  EXPECT_GT(h.drawn().size(), plain);
  h.leave();
  h.advance(1);
  EXPECT_EQ(h.drawn().size(), plain);
  h.click(h.find(Role::button));
  EXPECT_EQ(pressed, std::vector<Url>{url});

  Harness gone(ZQRecentFileView({.url = Url::file(folder.path("gone")), .tapped = nullptr}),
               {330, 25});
  EXPECT_EQ(gone.find(Role::button).value, "0 bytes");
  gone.click(gone.find(Role::button));
}

TEST_F(RecentFiles, theColumnsOfARowAndItsMarkKeepTheirMeasures) {
  const std::string name(120, 'n');
  remember({write(name, 1)});
  prefs_setValueBool(kPreference, true);
  Harness h(panel(), kPanelSize);
  constexpr double kSpacing = 8;
  const Rect row = h.button(name).bounds, size = h.findText("5 bytes").bounds;
  EXPECT_EQ(row.maxX() - size.maxX(), 4 + 116 + kSpacing);
  // A shortened name ends with a whole letter, so it may not quite fill its column.
  const double besideName = size.maxX() - h.findText(name).bounds.maxX();
  EXPECT_GE(besideName, kSpacing + 84);
  EXPECT_LT(besideName, kSpacing + 84 + 7);

  h.hover(h.button(name));
  h.advance(1);
  int marks = 0;
  for (const DrawnCommand& drawn : h.drawn()) {
    const auto* mark = std::get_if<FillRoundedRect>(&drawn.command);
    if (mark == nullptr || drawn.bounds != row) continue;
    EXPECT_EQ(mark->radius, 4);
    ++marks;
  }
  EXPECT_EQ(marks, 1);
}

TEST_F(RecentFiles, thousandsCostWhatIsSeen) {
  constexpr int kCount = 2000;
  const auto now = std::filesystem::file_time_type::clock::now();
  std::vector<Url> urls;
  for (int i = 0; i < kCount; ++i) {
    const std::string path = folder.path(std::to_string(i) + ".txt");
    std::ofstream(path).put('x');
    // The disk's own times are too coarse to tell them apart.
    std::filesystem::last_write_time(path, now - std::chrono::minutes(kCount - i));
    urls.push_back(Url::file(path));
  }
  remember(urls);
  prefs_setValueBool(kPreference, true);
  Harness h(panel(), kPanelSize);
  EXPECT_TRUE(h.find(Role::scrollArea));
  EXPECT_LT(h.counts().bodies, 60U);
  h.click(h.find(Role::textField));
  const auto before = h.counts();
  h.type("77.txt");  // of the name: the folder has digits too
  EXPECT_TRUE(h.button("1977.txt"));
  EXPECT_LT(h.counts().bodies - before.bodies, 60U);
}

}  // namespace
}  // namespace zq
