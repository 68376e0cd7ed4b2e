// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <memory>
#include <string>
#include <tests/images/pictures.hpp>
#include <thread>
#include <vector>
#include <zqswiftui/bindings/zq_notificable_image.hpp>
#include <zqswiftui/bindings/zq_notificable_image_view.hpp>
#include <zqswiftui/bindings/zq_notificable_percentage_view.hpp>
#include <zqswiftui/bindings/zq_notificable_text.hpp>
#include <zqswiftui/bindings/zq_notificable_text_view.hpp>
#include <zqswiftui/bindings/zq_notificable_value.hpp>
#include <zqswiftui/platform/base/zq_notify.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr int kThreads = 8;

// Runs it on so many threads; the interface thread does `meanwhile` until they are done.
template <class Work, class Meanwhile>
void onThreads(const Work& work, const Meanwhile& meanwhile) {
  std::atomic<int> left{kThreads};
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      work(t);
      --left;
    });
  }
  while (left > 0) meanwhile();
  for (std::thread& thread : threads) thread.join();
}

// A keyword that nothing was posted under yet: the process remembers.
std::string fresh() {
  static int count = 0;
  return "fresh." + std::to_string(++count);
}

// How often observers were told, and whether that was on this thread.
struct Told {
  explicit Told(ObservableObject& object)
      : token(object.willChange.connect([this, home = std::this_thread::get_id()] {
          ++times;
          atHome = atHome && std::this_thread::get_id() == home;
        })) {}
  int times = 0;
  bool atHome = true;
  Subscription token;
};

// A parent that is evaluated, with what it holds, whenever its model changes.
struct Model : ObservableObject {
  Published<std::string> key{this, "parent.a"};
};
struct Parent {
  std::shared_ptr<Model> model;
  View body(Context& context) const {
    context.observe(model);
    const std::string key = model->key;
    return VStack({ZQNotificablePercentageView({.key = key, .showPercentage = true}),
                   ZQNotificableTextView(key)});
  }
};

class Notificable : public testing::Test {
 protected:
  HeadlessPlatform platform;
};

TEST_F(Notificable, aTextBeginsWithTheLastOneOfItsKeywordAndHearsOnlyThatOne) {
  const std::string early = fresh(), other = fresh();
  ZQNotify::notify(early, "posted before anyone looked");
  Harness first{ZQNotificableTextView(early)};
  EXPECT_TRUE(first.findText("posted before anyone looked"));
  Harness second{ZQNotificableTextView(other)};
  EXPECT_TRUE(second.texts().empty());

  ZQNotify::notify(other, "mine");
  ZQNotify::notify(early, std::optional<std::string>());
  first.settle();
  second.settle();
  EXPECT_TRUE(first.findText("posted before anyone looked")) << "none is no text";
  EXPECT_TRUE(second.findText("mine"));

  ZQNotificableText host(other);
  EXPECT_EQ(host.text(), "mine");
  host.setText("set by the host");
  EXPECT_EQ(ZQNotificableText(other).text(), "set by the host");
  second.settle();
  EXPECT_TRUE(second.findText("mine")) << "nobody posted";
}

TEST_F(Notificable, equalValuesTellNobody) {
  const std::string same = fresh();
  ZQNotificableText text(same);
  ZQNotificableValue value(same);
  ZQNotificableImage image(same);
  Told texts(text), values(value), images(image);
  const ZQImage one = picture(2, 2, 1), another = picture(2, 2, 1);
  for (int i = 0; i < 3; ++i) {
    ZQNotify::notify(same, "a");
    ZQNotify::notify(same, 0.5);
    ZQNotify::notify(same, std::optional(one));
    ZQNotify::notify(same, std::optional<ZQImage>());
    ZQNotify::notify(same, std::optional<double>());
  }
  EXPECT_EQ(texts.times, 1);
  EXPECT_EQ(values.times, 1);
  EXPECT_EQ(images.times, 1);
  EXPECT_EQ(image.image(), one);
  ZQNotify::notify(same, std::optional(another));
  EXPECT_EQ(images.times, 2) << "another picture of equal pixels";
  text.setText("a");
  EXPECT_EQ(texts.times, 2) << "the host's write is told in any case";
}

TEST_F(Notificable, aPictureViewBeginsWithTheLastPictureOfAllAndFillsItsRoom) {
  Harness first(ZQNotificableImageView("picture.one").frame(80, 20), {100, 60});
  ZQNotify::notify("picture.one", std::optional(picture(4, 4, 7)));
  first.settle();
  EXPECT_EQ(shownMark(first), 7);
  EXPECT_EQ(drawnPictures(first).at(0).rect, (Rect{10, 20, 80, 20})) << "stretched";
  Harness second(ZQNotificableImageView("picture.two"), {100, 60});
  EXPECT_EQ(shownMark(second), 7) << "of whichever keyword";
  ZQNotify::notify("picture.two", std::optional(picture(4, 4, 8)));
  first.settle();
  second.settle();
  EXPECT_EQ(shownMark(first), 7);
  EXPECT_EQ(shownMark(second), 8);
}

TEST_F(Notificable, aViewMadeAnewKeepsWhatCameUntilItFollowsAnotherKeyword) {
  const auto model = std::make_shared<Model>();
  ZQNotify::notify("parent.a", 0.25);
  Harness screen(Parent{model}, {300, 100});
  EXPECT_TRUE(screen.findText("0 %")) << "numbers are not remembered";
  ZQNotify::notify("parent.a", 0.5);
  ZQNotify::notify("parent.a", "half");
  screen.settle();
  EXPECT_TRUE(screen.findText("50 %"));
  model->key = "parent.a";
  screen.settle();
  EXPECT_TRUE(screen.findText("50 %"));
  model->key = "parent.b";
  screen.settle();
  EXPECT_TRUE(screen.findText("0 %"));
  EXPECT_FALSE(screen.findText("half"));
  ZQNotify::notify("parent.b", 1.0);
  screen.settle();
  EXPECT_TRUE(screen.findText("100 %"));
}

// What is left waiting when the queue goes must not keep the next change from being told.
TEST(NotificableLife, aHolderOutlivesThePlatformThatDroppedItsNews) {
  ZQNotificableValue value("platforms");
  Told told(value);
  {
    HeadlessPlatform first;
    std::thread([] { ZQNotify::notify("platforms", 0.1); }).join();
  }
  EXPECT_EQ(told.times, 0);
  HeadlessPlatform second;
  std::thread([] { ZQNotify::notify("platforms", 0.2); }).join();
  second.runUntilIdle();
  EXPECT_EQ(told.times, 1);
}

// Workers may post a moment longer than there is a platform to tell anyone by.
TEST(NotificableLife, postsWithoutAPlatformAreKeptAndHarmNobody) {
  ZQNotificableText text("between");
  Told told(text);
  ZQNotify::notify("between", "here, before the first");
  EXPECT_EQ(text.text(), "here, before the first");
  int platforms = 0;
  onThreads(
      [](int t) {
        for (int i = 0; i < 5000; ++i) ZQNotify::notify("between", std::to_string(t * i));
      },
      [&] {
        HeadlessPlatform brief;
        if (++platforms % 2) brief.runUntilIdle();
      });
  HeadlessPlatform last;
  told.times = 0;
  ZQNotify::notify("between", "the end");
  EXPECT_EQ(told.times, 1);
}

// Three holders of one keyword, and one in their midst at which a post overtakes another.
TEST_F(Notificable, aPostThatIsOvertakenComesToNobodyAnyMore) {
  const ZQNotificableText before("race");
  const ZQNotificableValue valueBefore("race");
  const ZQNotificableImage imageBefore("race");
  const ZQImage late = picture(1, 1, 1), last = picture(1, 1, 2);
  const auto overtake = ZQNotify::observeString(nullptr, "race", [](const auto& text) {
    if (text == "late") ZQNotify::notify("race", "last");
  });
  const auto overtakeValue = ZQNotify::observeDouble(nullptr, "race", [](const auto& number) {
    if (number == 0.1) ZQNotify::notify("race", 0.2);
  });
  const auto overtakeImage = ZQNotify::observeImage(nullptr, "race", [&](const auto& image) {
    if (image == late) ZQNotify::notify("race", std::optional(last));
  });
  const ZQNotificableText after("race");
  const ZQNotificableValue valueAfter("race");
  const ZQNotificableImage imageAfter("race");
  ZQNotify::notify("race", "late");
  ZQNotify::notify("race", 0.1);
  ZQNotify::notify("race", std::optional(late));
  EXPECT_EQ(before.text(), "last");
  EXPECT_EQ(after.text(), "last");
  EXPECT_EQ(ZQNotificableText("race").text(), "last");
  EXPECT_EQ(valueBefore.value(), 0.2);
  EXPECT_EQ(valueAfter.value(), 0.2);
  EXPECT_EQ(imageBefore.image(), last);
  EXPECT_EQ(imageAfter.image(), last);
  EXPECT_EQ(ZQNotificableImage("race").image(), last);
}

TEST_F(Notificable, aFloodWaitsAsOneNewsAHolderAndAllHoldersAgree) {
  ZQNotificableText text("flood"), otherText("flood");
  ZQNotificableValue value("flood"), otherValue("flood");
  ZQNotificableImage image("flood"), otherImage("flood");
  Told texts(text), values(value), images(image);
  onThreads(
      [](int t) {
        for (int i = 0; i < 2000; ++i) {
          ZQNotify::notify("flood", t + i / 1e4);
          ZQNotify::notify("flood", std::to_string(t) + "." + std::to_string(i));
          ZQNotify::notify("flood", std::optional(picture(1, 1, static_cast<std::uint8_t>(t))));
        }
      },
      [] { std::this_thread::yield(); });
  EXPECT_EQ(texts.times + values.times + images.times, 0);
  platform.runUntilIdle();
  EXPECT_EQ(texts.times, 1);
  EXPECT_EQ(values.times, 1);
  EXPECT_EQ(images.times, 1);
  EXPECT_TRUE(texts.atHome && values.atHome && images.atHome);
  EXPECT_EQ(otherText.text(), text.text());
  EXPECT_EQ(ZQNotificableText("flood").text(), text.text()) << "what is remembered is shown";
  EXPECT_EQ(otherValue.value(), value.value());
  EXPECT_EQ(otherImage.image(), image.image());
  EXPECT_EQ(ZQNotificableImage("flood").image(), image.image());
}

TEST_F(Notificable, aFloodCostsOneEvaluationAFrameAndTheLastValueShows) {
  constexpr int kPosts = 42000;  // of three kinds each: a million in all
  Harness screen(
      VStack({ZQNotificablePercentageView({.key = "busy"}), ZQNotificableTextView("busy"),
              ZQNotificableImageView("busy").frame(40, 20)}),
      {300, 100});
  const std::vector<ZQImage> pictures = {picture(2, 2, 1), picture(2, 2, 2)};
  int rounds = 0;
  std::uint64_t most = 0;
  onThreads(
      [&](int t) {
        for (int i = 0; i < kPosts; ++i) {
          ZQNotify::notify("busy", (t + i) % 1000 / 1e3);
          ZQNotify::notify("busy", std::to_string(t * i));
          ZQNotify::notify("busy", std::optional(pictures[static_cast<std::size_t>(i % 2)]));
        }
      },
      [&] {
        const WorkCounts before = screen.counts();
        platform.runUntilIdle();
        if (screen.host().needsFrame()) screen.host().frame();
        EXPECT_LE(screen.counts().frames - before.frames, 1U);
        most = std::max(most, screen.counts().bodies - before.bodies);
        ++rounds;
      });
  EXPECT_GT(rounds, 0);
  EXPECT_LE(most, 4U) << "three views, and the bar that one of them shows";
  ZQNotify::notify("busy", 1.0);
  ZQNotify::notify("busy", "the end");
  ZQNotify::notify("busy", std::optional(picture(2, 2, 9)));
  screen.settle();
  EXPECT_TRUE(screen.findText("100 %"));
  EXPECT_TRUE(screen.findText("the end"));
  EXPECT_EQ(shownMark(screen), 9);
}

TEST_F(Notificable, holdersComeAndGoWhileOthersPost) {
  std::atomic<bool> done{false};
  std::thread poster([&] {
    for (int i = 0; !done; ++i) {
      ZQNotify::notify("brief", i % 100 / 1e2);
      ZQNotify::notify("brief", std::to_string(i));
      ZQNotify::notify("brief", std::optional(picture(1, 1, static_cast<std::uint8_t>(i))));
    }
  });
  onThreads(
      [](int) {
        for (int i = 0; i < 100; ++i) {
          const ZQNotificableText text("brief");
          const ZQNotificableValue value("brief");
          const ZQNotificableImage image("brief");
          EXPECT_LE(value.value(), 1);
        }
      },
      [&] { platform.runUntilIdle(); });
  done = true;
  poster.join();
  ZQNotify::notify("brief", "last");
  EXPECT_EQ(ZQNotificableText("brief").text(), "last");
}

}  // namespace
}  // namespace zq
