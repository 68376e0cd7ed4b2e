// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <tests/images/pictures.hpp>
#include <vector>
#include <zqswiftui/images/zq_an_image.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

constexpr double kTick = 1.0 / 30;

// The marks at the next ticks, a letter each: "a" is the first frame, "-" none.
std::string play(Harness& screen, int ticks) {
  std::string marks;
  for (int i = 0; i < ticks; ++i) {
    screen.advance(kTick);
    const std::optional<int> mark = shownMark(screen);
    marks += mark ? static_cast<char>('a' + *mark - 10) : '-';
  }
  return marks;
}

class ZQAnImage : public testing::Test {
 protected:
  // Frames whose marks are 10, 11, 12 and so on.
  void addFrames(const std::string& prefix, const std::vector<int>& numbers) {
    for (const int number : numbers) {
      addPicture(platform_, folder_, prefix + strUt_padN(number, 5),
                 static_cast<std::uint8_t>(10 + number));
    }
  }
  // What happens on the screen while a second passes.
  static std::string atRest(Harness& screen) {
    const auto asked = screen.framesAsked();
    screen.advance(1);
    return screen.framesAsked() == asked ? "rests" : "works";
  }

  HeadlessPlatform platform_;
  TempFolder folder_;
};

TEST_F(ZQAnImage, loopsOverItsFramesUpToTheFirstMissingNumber) {
  addFrames("a", {0, 1, 2, 3, 4, 6});
  Harness screen(ZQAnImageView("a"), {60, 30});
  EXPECT_EQ(shownMark(screen), std::nullopt) << "nothing before the first tick";
  EXPECT_EQ(play(screen, 12), "abcdeabcdeab");
  EXPECT_EQ(drawnPictures(screen).front().rect, (Rect{0, 0, 60, 30})) << "stretched";
}

// Begins a piece of background work when it is told to, as a slow disk does.
class SlowTime : public HeadlessTime {
 public:
  using HeadlessTime::HeadlessTime;
  void postHeavy(std::function<void()> work) override { waiting.push_back(std::move(work)); }
  void readOne() {
    ASSERT_FALSE(waiting.empty());
    HeadlessTime::postHeavy(std::move(waiting.front()));
    waiting.pop_front();
    runUntilIdle();
  }
  std::deque<std::function<void()>> waiting;
};

class SlowPlatform : public HeadlessPlatform {
 public:
  SlowTime& background() override { return slow_; }

 private:
  SlowTime slow_{BackgroundMode::deterministic};
};

TEST(ZQAnImageOfASlowDisk, playsTheFramesThatAreThereAndThoseThatComeJoinItsLoop) {
  SlowPlatform platform;
  SlowTime& disk = platform.background();
  const TempFolder folder;
  for (const char letter : {'0', '1', '2'}) {
    addPicture(platform, folder, std::string("slow0000") + letter,
               static_cast<std::uint8_t>(10 + letter - '0'));
  }
  Harness screen(ZQAnImageView("slow"));
  EXPECT_EQ(play(screen, 3), "---") << "it waits, and goes on ticking";
  disk.readOne();
  EXPECT_EQ(play(screen, 2), "aa");
  disk.readOne();
  EXPECT_EQ(play(screen, 4), "abab") << "the second joins where the loop stands";
  disk.readOne();
  EXPECT_EQ(play(screen, 1), "a") << "the loop was about to begin anew";
  EXPECT_EQ(play(screen, 5), "bcabc");
  disk.readOne();  // there is no fourth
  EXPECT_TRUE(disk.waiting.empty());
  EXPECT_EQ(play(screen, 4), "abca");
}

TEST_F(ZQAnImage, withoutAFirstFrameNothingIsShownAndNothingTicks) {
  addFrames("gap", {1, 2});
  Harness screen(ZQAnImageView("gap"));
  EXPECT_EQ(play(screen, 3), "---");
  EXPECT_EQ(screen.host().sizeThatFits(ProposedSize::unspecified()), Size{});
  EXPECT_EQ(atRest(screen), "rests");

  addFrames("one", {0});
  Harness still(ZQAnImageView("one"));
  EXPECT_EQ(play(still, 2), "aa");
  EXPECT_EQ(atRest(still), "rests");
}

TEST_F(ZQAnImage, tenOfOnePrefixDecodeEachFrameOnce) {
  addFrames("ten", {0, 1, 2, 3});
  std::vector<View> ten(10, ZQAnImageView("ten"));
  Harness screen(VStack(ten), {100, 300});
  screen.advance(1);
  EXPECT_EQ(drawnPictures(screen).size(), 10U);
  EXPECT_EQ(platform_.imageCodec().decoded().size(), 4U);
}

TEST_F(ZQAnImage, dropsTheTicksThatComeLate) {
  addFrames("late", {0, 1, 2, 3, 4, 5, 6, 7});
  Harness screen(ZQAnImageView("late"));
  EXPECT_EQ(play(screen, 2), "ab");
  platform_.stall(10 * kTick);
  EXPECT_EQ(play(screen, 1), "d") << "one for all that were missed, and one in time";
}

TEST_F(ZQAnImage, doesNothingWhileItCannotBeSeen) {
  addFrames("hid", {0, 1, 2, 3});
  Harness screen(ScrollView(VStack({.spacing = 0}, {ZQAnImageView("hid").frame(40, 40),
                                                    Rectangle().frame(40, 1000)})),
                 {40, 100});
  EXPECT_EQ(play(screen, 2), "ab");
  screen.wheel({20, 50}, 0, 500);
  EXPECT_EQ(atRest(screen), "rests") << "scrolled away";
  screen.wheel({20, 50}, 0, -480);
  EXPECT_EQ(play(screen, 2), "cd") << "half of it shows again";
  screen.setVisible(false);
  EXPECT_EQ(atRest(screen), "rests") << "the window is hidden";
  screen.setVisible(true);
  EXPECT_EQ(play(screen, 2), "ab");
  screen.setRoot(View());
  EXPECT_EQ(atRest(screen), "rests") << "gone";

  Harness below(ScrollView(VStack({.spacing = 0}, {Rectangle().frame(40, 1000),
                                                   ZQAnImageView("hid").frame(40, 40)})),
                {40, 100});
  EXPECT_EQ(atRest(below), "rests") << "never seen yet";
  below.wheel({20, 50}, 0, 1e4);
  EXPECT_EQ(play(below, 2), "ab");
}

TEST_F(ZQAnImage, reducedMotionLetsTheFirstFrameStandStill) {
  addFrames("calm", {0, 1, 2, 3});
  platform_.appearance().setValues({.reducedMotion = true});
  Harness screen(ZQAnImageView("calm"));
  EXPECT_EQ(play(screen, 3), "aaa");
  EXPECT_EQ(atRest(screen), "rests");
  screen.setAppearance({.reducedMotion = false});
  EXPECT_EQ(play(screen, 2), "bc");
  screen.setAppearance({.reducedMotion = true});
  EXPECT_EQ(play(screen, 3), "aaa");
  EXPECT_EQ(atRest(screen), "rests");
}

TEST_F(ZQAnImage, anotherPrefixIsAnotherAnimation) {
  addFrames("p", {0, 1, 2});
  addFrames("q", {0, 1});
  Harness screen(ZQAnImageView("p"));
  EXPECT_EQ(play(screen, 2), "ab");
  screen.setRoot(ZQAnImageView("q"));
  EXPECT_EQ(play(screen, 3), "aba");
}

TEST_F(ZQAnImage, endsItsTimerAndItsReadingWhenItGoes) {
  addFrames("end", {0, 1, 2});
  auto playing = ZQAnimImage::create("end");
  platform_.advance(kTick);
  EXPECT_EQ(playing->imageList().size(), 3U);
  EXPECT_EQ(playing->currentImage(), 1U);
  const std::weak_ptr<ZQAnimImage> weak = playing;
  playing.reset();
  EXPECT_TRUE(weak.expired());
  platform_.advance(1);

  ZQAnimImage::create("end");
  const auto decoded = platform_.imageCodec().decoded().size();
  platform_.advance(1);
  EXPECT_EQ(platform_.imageCodec().decoded().size(), decoded) << "nobody wants its frames";
}

}  // namespace
}  // namespace zq
