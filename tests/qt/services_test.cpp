// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <algorithm>
#include <optional>
#include <span>
#include <string>
#include <tests/qt/support.hpp>
#include <thread>
#include <vector>
#include <zqswiftui/platform/qt/image_codec.hpp>
#include <zqswiftui/platform/qt/platform.hpp>
#include <zqswiftui/platform/qt/preferences.hpp>
#include <zqswiftui/platform/services/clock.hpp>

namespace zq::qt {
namespace {

TEST(QtMainQueue, keepsTheOrderOfEachThreadThatPosts) {
  constexpr int kThreads = 8, kPosts = 500;
  std::vector<std::vector<int>> seen(kThreads);
  int all = 0;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < kPosts; ++i) {
        platform().mainQueue().post([&, t, i] {
          EXPECT_TRUE(platform().mainQueue().isMainThread());
          seen[static_cast<std::size_t>(t)].push_back(i);
          ++all;
        });
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  ASSERT_TRUE(waitFor([&] { return all == kThreads * kPosts; }));
  for (const auto& of : seen) EXPECT_TRUE(std::is_sorted(of.begin(), of.end()));
}

TEST(QtMainQueue, delayedCallsComeInTheOrderOfTheirDeadlinesAndNeverEarly) {
  std::string order;
  const double start = platform().clock().now();
  double second = 0;
  zq::MainQueue& queue = platform().mainQueue();
  queue.postDelayed(0.02, [&] {
    order += 'b';
    second = platform().clock().now();
  });
  queue.postDelayed(0.02, [&] { order += 'c'; });
  const DelayedCallId cancelled = queue.postDelayed(0.01, [&] { order += 'x'; });
  queue.postDelayed(-1, [&] { order += 'a'; });
  std::thread other([&] { queue.postDelayed(0.03, [&] { order += 'd'; }); });
  other.join();
  queue.cancel(cancelled);
  ASSERT_TRUE(waitFor([&] { return order.size() == 4; }));
  EXPECT_EQ(order, "abcd");
  EXPECT_GE(second - start, 0.02);
}

TEST(QtMainQueue, workThatRunsAModalLoopDoesNotHoldUpTheRest) {
  bool inner = false, seenInside = false;
  platform().mainQueue().post([&] { seenInside = waitFor([&] { return inner; }); });
  platform().mainQueue().post([&] { inner = true; });
  ASSERT_TRUE(waitFor([&] { return inner && seenInside; }));
}

TEST(QtPreferences, valuesComeBackInTheirTypesAfterARestart) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("p.ini"));
  const std::pair<std::string, PreferenceValue> rows[] = {
      {"Recent Files Open", true},
      {"a/b", std::int64_t{-7}},
      {"a%2Fb", 0.1},
      {"", std::string("first, \"second\"\n ü")},
      {"list", std::vector<std::string>{"x", "", "y,z"}},
      {"one", std::vector<std::string>{"@only"}},
      {"none", std::vector<std::string>{}},
  };
  {
    Preferences first(platform().mainQueue(), path);
    first.setValue("gone", true);
    for (const auto& [key, value] : rows) first.setValue(key, value);
    first.remove("gone");
  }
  const Preferences second(platform().mainQueue(), path);
  for (const auto& [key, value] : rows) EXPECT_EQ(second.value(key), value) << key;
  EXPECT_FALSE(second.value("gone"));
}

TEST(QtImageCodec, keepsToTheLimitsAndRefusesWhatIsNoImage) {
  const ImageCodec codec;
  Pixels pixels{40, 20, Bytes(std::size_t{40} * 20 * 4, 128)};
  const Bytes png = codec.encodePng(pixels);
  EXPECT_EQ(codec.decode(png, {}), pixels);
  const auto small = codec.decode(png, {10, 1000});
  ASSERT_TRUE(small);
  EXPECT_EQ(small->width, 10);
  EXPECT_EQ(small->height, 5);
  EXPECT_FALSE(codec.decode(png, {0, 799}));
  EXPECT_FALSE(codec.decode(std::span(png).first(png.size() / 2), {}));
  EXPECT_FALSE(codec.decode({}, {}));
  pixels.width = 41;
  EXPECT_TRUE(codec.encodePng(pixels).empty());
}

TEST(QtPasteboard, givesBackTextImagesAndUrls) {
  Pasteboard& board = platform().pasteboard();
  const std::uint64_t before = board.changeCount();
  std::optional<std::string> text;
  std::optional<Bytes> image;
  std::optional<std::vector<std::string>> urls;
  int answers = 0;
  const auto read = [&] {
    answers = 0;
    board.readText([&](auto answer) { text = std::move(answer), ++answers; });
    board.readImage([&](auto answer) { image = std::move(answer), ++answers; });
    board.readUrls([&](auto answer) { urls = std::move(answer), ++answers; });
    ASSERT_TRUE(waitFor([&] { return answers == 3; }));
  };
  board.setText("é\n中");
  read();
  EXPECT_EQ(text, "é\n中");
  EXPECT_FALSE(image);
  EXPECT_GT(board.changeCount(), before);
  const Bytes png = ImageCodec().encodePng({1, 1, {1, 2, 3, 255}});
  board.setImage(png);
  read();
  EXPECT_EQ(image, png);
  EXPECT_FALSE(text);
  board.setUrls({"file:///tmp/a%20b.txt"});
  read();
  EXPECT_EQ(urls, std::vector<std::string>{"file:///tmp/a%20b.txt"});
  board.clear();
  read();
  EXPECT_FALSE(text || image || urls);
}

TEST(QtDownloads, answersOnceWithBytesOrAnErrorAndNeverAfterCancel) {
  const QTemporaryDir folder;
  QFile file(folder.filePath(QStringLiteral("a b.txt")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("hello");
  file.close();
  const std::string url = "file://" + folder.path().toStdString() + "/a%20b.txt";
  struct Row {
    DownloadRequest request;
    std::string expected;
    std::optional<DownloadAnswer> answer;
  };
  Row rows[] = {{{url, 60, 99}, "hello", {}},
                {{"data:,hi", 0, 99}, "hi", {}},
                {{url, 60, 3}, "", {}},
                {{"file:///does/not/exist", 60, 99}, "", {}},
                {{"no url", 60, 99}, "", {}}};
  for (Row& row : rows) {
    platform().downloads().fetch(row.request, [&row](DownloadAnswer answer) {
      EXPECT_FALSE(row.answer);
      row.answer = std::move(answer);
    });
  }
  bool cancelled = false;
  platform().downloads().cancel(
      platform().downloads().fetch({url, 60, 99}, [&](const auto&) { cancelled = true; }));
  ASSERT_TRUE(waitFor([&] {
    return std::all_of(std::begin(rows), std::end(rows), [](auto& row) { return row.answer; });
  }));
  for (const Row& row : rows) {
    EXPECT_EQ(row.answer->ok(), !row.expected.empty()) << row.request.url << row.answer->error;
    EXPECT_EQ(std::string(row.answer->bytes.begin(), row.answer->bytes.end()), row.expected);
  }
  EXPECT_FALSE(cancelled);
}

TEST(QtFileDialogs, answerWithTheChoiceOrNothing) {
  const QTemporaryDir folder;
  for (const bool accept : {true, false}) {
    std::optional<std::vector<std::string>> answer;
    FileDialogRequest request;
    request.kind = FileDialogRequest::Kind::saveFile;
    request.extensions = {"txt"};
    request.defaultPath = folder.path().toStdString() + "/new";
    platform().fileDialogs().show(request, [&](auto paths) { answer = std::move(paths); });
    EXPECT_FALSE(answer);
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    QMetaObject::invokeMethod(dialog, accept ? "accept" : "reject");
    ASSERT_TRUE(waitFor([&] { return answer.has_value(); }));
    EXPECT_EQ(answer->size(), accept ? 1U : 0U);
    if (accept) {
      EXPECT_EQ(answer->front(), request.defaultPath + ".txt");
    }
  }
}

TEST(QtAppearance, theHostsWordOverridesTheDesktopsAndListenersHearOfIt) {
  Appearance& appearance = platform().appearance();
  int heard = 0;
  const unsigned long id = appearance.addListener([&] { ++heard; });
  const AppearanceValues desktop = appearance.values();
  appearance.setColorScheme(ColorScheme::dark);
  appearance.setColorScheme(ColorScheme::dark);
  EXPECT_EQ(appearance.values().colorScheme, ColorScheme::dark);
  EXPECT_EQ(heard, 1);
  appearance.setColorScheme(std::nullopt);
  EXPECT_EQ(appearance.values(), desktop);
  appearance.removeListener(id);
  appearance.setReducedMotion(!desktop.reducedMotion);
  appearance.setReducedMotion(std::nullopt);
  EXPECT_EQ(heard, 2);
}

}  // namespace
}  // namespace zq::qt
