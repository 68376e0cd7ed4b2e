// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <deque>
#include <tests/images/pictures.hpp>
#include <vector>
#include <zqswiftui/images/zq_pasteboard_image.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

Bytes file(int mark) {
  return HeadlessImageCodec::file(8, 4, static_cast<std::uint8_t>(mark), 0, 0);
}

TEST(ZQPasteboardImage, showsWhatWasCopiedWithinHalfASecondAndKeepsIt) {
  HeadlessPlatform platform;
  HeadlessPasteboard& pasteboard = platform.pasteboard();
  Harness screen(ZQPasteboardImage(), {80, 60});
  screen.advance(2);
  EXPECT_EQ(screen.drawn().size(), 0U);
  pasteboard.setImage(file(1));
  screen.advance(0.5);
  EXPECT_EQ(shownMark(screen), 1);
  EXPECT_EQ(drawnPictures(screen).front().rect, (Rect{0, 0, 80, 60})) << "stretched";

  pasteboard.clear();
  screen.advance(2);
  EXPECT_EQ(shownMark(screen), 1) << "emptied";
  pasteboard.setText("words");
  screen.advance(2);
  EXPECT_EQ(shownMark(screen), 1) << "a text";
  pasteboard.setImage(Bytes(10, 'x'));
  screen.advance(2);
  EXPECT_EQ(shownMark(screen), 1) << "no picture";
  pasteboard.setImage(file(2));
  screen.advance(0.5);
  EXPECT_EQ(shownMark(screen), 2);
}

TEST(ZQPasteboardImage, handsOverWhatItShowsToAClickAndToTheKeyboard) {
  HeadlessPlatform platform;
  std::vector<int> taken;
  const auto take = [&](const ZQImage& image) { taken.push_back(markOf(image)); };
  Harness screen(ZQPasteboardImage({.maxSize = Size{40, 20}, .tappedCallback = take}), {80, 60});
  screen.click(Point{40, 30});
  EXPECT_FALSE(screen.tab()) << "there is nothing to press yet";
  EXPECT_TRUE(taken.empty());

  platform.pasteboard().setImage(file(3));
  screen.advance(0.5);
  EXPECT_EQ(drawnPictures(screen).front().rect, (Rect{20, 20, 40, 20})) << "that size, centred";
  screen.click(Point{5, 5});
  EXPECT_TRUE(screen.tab());
  screen.key(Key::space);
  screen.click(screen.button("Picture on the pasteboard"));
  EXPECT_EQ(taken, (std::vector<int>{3, 3}));

  Harness shown(ZQPasteboardImage({.maxSize = Size{40, 20}}), {80, 60});
  shown.advance(0.5);
  EXPECT_FALSE(shown.button("Picture on the pasteboard")) << "nobody would take it";
  EXPECT_TRUE(shown.find(Role::image, "Picture on the pasteboard"));
}

TEST(ZQPasteboardImage, readsAPictureOnceAndNoneWhileItCannotBeSeen) {
  HeadlessPlatform platform;
  platform.pasteboard().setImage(file(1));
  Harness screen(ZQPasteboardImage(), {80, 60});
  screen.advance(0.5);
  const auto asked = screen.framesAsked();
  screen.advance(60);
  EXPECT_EQ(platform.imageCodec().decoded().size(), 1U);
  EXPECT_EQ(screen.framesAsked(), asked);

  screen.setVisible(false);
  platform.pasteboard().setImage(file(2));
  screen.advance(60);
  EXPECT_EQ(platform.imageCodec().decoded().size(), 1U);
  screen.setVisible(true);
  screen.advance(0.5);
  EXPECT_EQ(shownMark(screen), 2);
}

TEST(ZQPasteboardImage, eachLookMakesAnotherPictureOfThePixelsAsLongAsTheyAreThere) {
  HeadlessPlatform platform;
  std::vector<ZQImage> taken;
  const auto take = [&](const ZQImage& image) { taken.push_back(image); };
  Harness screen(ZQPasteboardImage({.tappedCallback = take}), {80, 60});
  platform.pasteboard().setImage(file(1));
  const auto tapAfter = [&](double seconds) {
    screen.advance(seconds);
    screen.click(Point{40, 30});
    return taken.back();
  };
  const ZQImage first = tapAfter(0.5);
  EXPECT_EQ(tapAfter(0.1), first);
  const ZQImage second = tapAfter(0.5);
  EXPECT_NE(second, first);
  EXPECT_NE(second.identity(), first.identity());
  EXPECT_EQ(&second.pixels(), &first.pixels());
  platform.pasteboard().clear();
  EXPECT_EQ(tapAfter(2), second) << "there is none any more";
  EXPECT_EQ(platform.imageCodec().decoded().size(), 1U);
}

// Keeps questions until the test answers them, as an owner that is slow or hangs.
class SlowPasteboard : public HeadlessPasteboard {
 public:
  using HeadlessPasteboard::HeadlessPasteboard;
  void readImage(Answer<Bytes> answer) override { questions.push_back(std::move(answer)); }
  void answerFirst(std::optional<Bytes> bytes) {
    const Answer<Bytes> answer = std::move(questions.front());
    questions.pop_front();
    answer(std::move(bytes));
  }
  std::deque<Answer<Bytes>> questions;
};

class SlowPlatform : public HeadlessPlatform {
 public:
  SlowPasteboard& pasteboard() override { return slow_; }

 private:
  SlowPasteboard slow_{mainQueue()};
};

TEST(ZQPasteboardImage, asksASlowOwnerOnceAndShowsNoOlderPictureAfterANewerOne) {
  SlowPlatform platform;
  SlowPasteboard& pasteboard = platform.pasteboard();
  pasteboard.setImage(file(1));
  Harness screen(ZQPasteboardImage(), {80, 60});
  screen.advance(10);
  EXPECT_EQ(pasteboard.questions.size(), 1U);
  pasteboard.answerFirst(std::nullopt);
  screen.advance(10);
  ASSERT_EQ(pasteboard.questions.size(), 1U) << "asked again: it may have been slow alone";

  pasteboard.setImage(file(2));
  screen.advance(10);
  ASSERT_EQ(pasteboard.questions.size(), 2U) << "another content, another owner perhaps";
  const auto older = pasteboard.questions.front();
  pasteboard.questions.pop_front();
  pasteboard.answerFirst(file(2));
  screen.settle();
  EXPECT_EQ(shownMark(screen), 2);
  older(file(1));
  screen.settle();
  EXPECT_EQ(shownMark(screen), 2);
}

TEST(ZQPasteboardImage, anAnswerAfterItsViewIsDropped) {
  SlowPlatform platform;
  platform.pasteboard().setImage(file(1));
  {
    Harness screen(ZQPasteboardImage(), {80, 60});
    screen.advance(0.5);
  }
  platform.pasteboard().answerFirst(file(1));
  platform.runUntilIdle();
}

}  // namespace
}  // namespace zq
