// ZQSwiftUI, MIT licence; see LICENSE.
// The stand-ins keep the promises of the services that they stand in for.
#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/platform/headless/recording_canvas.hpp>

namespace zq {
namespace {

TEST(HeadlessTime, callsThatPostAndCancelWhileTimePassesKeepTheirOrder) {
  HeadlessPlatform platform;
  auto& queue = platform.mainQueue();
  std::string order;
  const DelayedCallId late = queue.postDelayed(0.3, [&] { order += 'x'; });
  queue.postDelayed(0.1, [&] {
    order += 'a';
    queue.cancel(late);
    queue.postDelayed(-5, [&] { order += 'b'; });
    queue.postDelayed(std::numeric_limits<double>::quiet_NaN(), [&] { order += 'c'; });
    queue.post([&] { order += 'p'; });
  });
  queue.postDelayed(0.2, [&] { order += 'd'; });
  queue.cancel(0);
  platform.advance(1);
  EXPECT_EQ(order, "apbcd");
  queue.cancel(late);
}

TEST(HeadlessTime, workOfNothingIsNone) {
  HeadlessPlatform platform;
  platform.mainQueue().post(nullptr);
  const DelayedCallId id = platform.mainQueue().postDelayed(0.1, nullptr);
  EXPECT_NE(id, 0U);
  platform.advance(1);
  platform.mainQueue().cancel(id);
}

TEST(HeadlessTime, aCallAtTheEndOfManyIntervalsIsDueThen) {
  HeadlessPlatform platform;
  int ticks = 0;
  for (int i = 1; i <= 30; ++i) platform.mainQueue().postDelayed(i / 30.0, [&] { ++ticks; });
  for (int i = 0; i < 30; ++i) platform.advance(1.0 / 30);
  EXPECT_EQ(ticks, 30);
}

TEST(HeadlessTime, aBusyThreadFindsEverythingDueAfterwardsInItsOrder) {
  HeadlessPlatform platform;
  std::string order;
  platform.mainQueue().postDelayed(0.2, [&] { order += 'b'; });
  platform.mainQueue().postDelayed(0.1, [&] {
    order += 'a';
    platform.stall(5);
  });
  platform.advance(0.1);
  EXPECT_EQ(order, "a");
  platform.advance(0);
  EXPECT_EQ(order, "ab");
  EXPECT_GE(platform.clock().now(), 5.0);
}

TEST(HeadlessTime, whatWaitsAtTheEndIsFreedWhileServicesStillStand) {
  struct Farewell {
    explicit Farewell(int* where) : told(where) {}
    int* told;
    ~Farewell() { *told += Platform::installed() ? 1 : 100; }
  };
  int told = 0;
  {
    HeadlessPlatform platform;
    const auto farewell = std::make_shared<Farewell>(&told);
    platform.mainQueue().post([farewell] {});
    platform.mainQueue().postDelayed(9, [farewell] {});
    platform.background().post([farewell] {}, true);
    platform.downloads().setAnswer("http://host/", {}, 9);
    platform.downloads().fetch({"http://host/"}, [farewell](const DownloadAnswer&) {});
  }
  EXPECT_EQ(told, 1);
}

TEST(HeadlessServices, anAnswerThatNobodyWantsIsNotGiven) {
  HeadlessPlatform platform;
  platform.pasteboard().setText("x");
  platform.pasteboard().readText(nullptr);
  platform.pasteboard().readImage(nullptr);
  platform.pasteboard().readUrls(nullptr);
  platform.fileDialogs().show({}, nullptr);
  platform.recentDocuments().list(nullptr);
  platform.dragData().begin({}, nullptr);
  platform.downloads().fetch({"http://host/missing"}, nullptr);
  platform.advance(1);
}

TEST(HeadlessPasteboard, eachContentReplacesTheOthersAndAReadSeesTheMomentOfItsCall) {
  HeadlessPlatform platform;
  HeadlessPasteboard& board = platform.pasteboard();
  std::optional<std::string> text;
  std::optional<std::vector<std::string>> urls;
  bool answered = false;
  board.setUrls({"file:///a"});
  board.setText("words");
  board.readText([&](auto answer) { text = std::move(answer); });
  board.readUrls([&](auto answer) {
    urls = std::move(answer);
    answered = true;
  });
  const std::uint64_t count = board.changeCount();
  board.clear();
  EXPECT_GT(board.changeCount(), count);
  EXPECT_FALSE(answered) << "later, never inside the call";
  platform.runUntilIdle();
  EXPECT_EQ(text, "words");
  EXPECT_TRUE(answered);
  EXPECT_FALSE(urls);
}

TEST(HeadlessFileDialogs, theScriptAnswersInOrderAndThenTheUserCancels) {
  HeadlessPlatform platform;
  std::vector<std::size_t> counts;
  platform.fileDialogs().answerNext({"/a", "/b"});
  platform.fileDialogs().answerNext({"/c"});
  for (int i = 0; i < 3; ++i) {
    FileDialogRequest request;
    request.title = std::to_string(i);
    platform.fileDialogs().show(request,
                                [&](const auto& paths) { counts.push_back(paths.size()); });
  }
  EXPECT_TRUE(counts.empty());
  platform.runUntilIdle();
  EXPECT_EQ(counts, (std::vector<std::size_t>{2, 1, 0}));
  EXPECT_EQ(platform.fileDialogs().requests().at(2).title, "2");
}

TEST(HeadlessAppearance, listenersThatComeAndGoWhileTheyAreToldAreToldRightly) {
  HeadlessPlatform platform;
  HeadlessAppearance& appearance = platform.appearance();
  std::string heard;
  unsigned long second = 0, first = 0;
  first = appearance.addListener([&] {
    heard += '1';
    appearance.removeListener(second);
    appearance.removeListener(first);
    appearance.addListener([&] { heard += '3'; });
  });
  second = appearance.addListener([&] { heard += '2'; });
  EXPECT_NE(first, 0U);
  appearance.setValues({.colorScheme = ColorScheme::dark});
  EXPECT_EQ(heard, "1");
  appearance.setValues({.colorScheme = ColorScheme::dark});
  EXPECT_EQ(heard, "1") << "nothing changed";
  appearance.setValues({.reducedMotion = true});
  EXPECT_EQ(heard, "13");
}

TEST(HeadlessDrags, oneRunsAtATimeAndEndsOnce) {
  HeadlessPlatform platform;
  std::string heard;
  const auto note = [&](DropResult result) { heard += result == DropResult::copied ? 'c' : 'r'; };
  const DragItems items{std::make_shared<HeadlessDragItem>(
      std::vector<std::pair<std::string, std::string>>{{"public.url", "http://a"}})};
  platform.dragData().begin(items, note);
  platform.dragData().begin(items, note);
  platform.dragData().begin({}, note);
  platform.runUntilIdle();
  EXPECT_EQ(heard, "rr");
  platform.dragData().endDrag(DropResult::copied);
  platform.dragData().endDrag(DropResult::copied);
  EXPECT_EQ(heard, "rrc");
  platform.dragData().begin(items, note);
  EXPECT_EQ(platform.dragData().dragged().size(), 1U);

  std::optional<Bytes> known, unknown{Bytes{1}};
  items[0]->load("public.url", [&](auto bytes) { known = std::move(bytes); });
  items[0]->load("public.other", [&](auto bytes) { unknown = std::move(bytes); });
  EXPECT_FALSE(known) << "later, never inside the call";
  platform.runUntilIdle();
  EXPECT_EQ(known, (Bytes{'h', 't', 't', 'p', ':', '/', '/', 'a'}));
  EXPECT_FALSE(unknown);
}

TEST(HeadlessImageCodec, pixelsThatDoNotFitTheirSizeAreNeitherReadNorWritten) {
  const HeadlessImageCodec codec;
  for (const Pixels& bad : {Pixels{-1, -1, Bytes(4)}, Pixels{0, 0, {}}, Pixels{1, 1, Bytes(7)},
                            Pixels{2, 1, Bytes(4)}, Pixels{1, -1, {}}}) {
    EXPECT_TRUE(codec.encodePng(bad).empty()) << bad.width << "x" << bad.height;
  }
  Bytes file = HeadlessImageCodec::file(1, 1, 1, 2, 3);
  const auto pixels = codec.decode(file, {});
  ASSERT_TRUE(pixels);
  EXPECT_EQ(codec.encodePng(*pixels), file);
  file.push_back(0);
  EXPECT_FALSE(codec.decode(file, {}));
}

TEST(RecordingCanvas, groupsInsideEachOtherPlaceClipAndWeaken) {
  RecordingCanvas canvas({100, 100});
  PlayState state;
  state.origin = {10, 10};
  state.opacity = 0.5;
  canvas.pushClip(Rect{0, 0, 50, 50});
  canvas.pushScale(2, 2, {10, 10});
  canvas.pushOpacity(0.5, {});
  canvas.pushScale(0.5, 1, {10, 10});
  canvas.draw(FillRect{{0, 0, 20, 30}, Color::red()}, state);
  canvas.pop();
  canvas.pushClip(Rect{10, 10, 5, 5});
  canvas.draw(FillRect{{0, 0, 20, 20}, Color::red()}, state);
  for (int i = 0; i < 4; ++i) canvas.pop();
  canvas.draw(FillRect{{85, 0, 20, 20}, Color::red()}, {});
  canvas.pop();  // one too many
  canvas.draw(FillRect{{0, 0, 1, 1}, Color::red()}, {});

  const std::vector<DrawnCommand>& drawn = canvas.commands();
  ASSERT_EQ(drawn.size(), 4U);
  EXPECT_EQ(drawn[0].bounds, (Rect{10, 10, 20, 60}));
  EXPECT_EQ(drawn[0].visible, (Rect{10, 10, 20, 40}));
  EXPECT_EQ(drawn[0].opacity, 0.25);
  EXPECT_EQ(drawn[1].bounds, (Rect{10, 10, 40, 40}));
  EXPECT_EQ(drawn[1].visible, (Rect{10, 10, 10, 10}));
  EXPECT_EQ(drawn[2].visible, (Rect{85, 0, 15, 20})) << "the window is the last clip";
  EXPECT_EQ(drawn[2].opacity, 1);
  EXPECT_EQ(drawn[3].visible, (Rect{0, 0, 1, 1}));
}

}  // namespace
}  // namespace zq
