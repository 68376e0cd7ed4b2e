// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <memory>
#include <string>
#include <tests/images/pictures.hpp>
#include <zqswiftui/images/zq_deferred_image.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

using VM = ZQDeferredImageVM;

// Lists outlive platforms: every test has ids of its own.
View shown(const std::string& id, VM::Compute compute, double scale = 1) {
  return ZQDeferredImageView({.id = id, .scale = scale, .compute = std::move(compute)});
}

TEST(ZQDeferredImage, isComputedOnceOffTheInterfaceThreadAndThereBeforeItIsReady) {
  HeadlessPlatform platform;
  MainQueue& queue = platform.mainQueue();
  int runs = 0;
  const auto vm = VM::withId("order", [&]() -> std::optional<ZQImage> {
    ++runs;
    EXPECT_FALSE(queue.isMainThread());
    return picture();
  });
  EXPECT_EQ(vm->status, VM::Status::computing) << "at once";
  EXPECT_EQ(runs, 0) << "never inside the call";
  std::string told;
  const Subscription changes = vm->didChange.connect([&] {
    EXPECT_TRUE(queue.isMainThread());
    told += vm->image_.get() ? 'i' : '-';
    told += vm->status == VM::Status::ready ? 'r' : '-';
  });
  platform.runUntilIdle();
  EXPECT_EQ(told, "i-ir");
  EXPECT_EQ(vm, VM::withId("order", [&]() -> std::optional<ZQImage> {
              ++runs;
              return std::nullopt;
            }));
  platform.runUntilIdle();
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(vm->status, VM::Status::ready);
}

TEST(ZQDeferredImage, ofOneIdIsSharedByItsViewsAndShownAtOnceWhenItIsThere) {
  HeadlessPlatform platform;
  int first = 0, second = 0;
  const auto one = [&]() -> std::optional<ZQImage> {
    ++first;
    return picture(200, 100, 1);
  };
  const auto other = [&]() -> std::optional<ZQImage> {
    ++second;
    return picture(200, 100, 2);
  };
  Harness both(HStack({.spacing = 0}, {shown("shared", one), shown("shared", other)}), {200, 100});
  ASSERT_EQ(drawnPictures(both).size(), 2U);
  EXPECT_EQ(markOf(drawnPictures(both)[1].picture), 1);
  EXPECT_EQ(drawnPictures(both)[0].rect.size(), (Size{100, 50})) << "fitted, not stretched";

  Harness later(shown("shared", other), {100, 100});
  EXPECT_EQ(shownMark(later), 1);
  EXPECT_EQ(later.counts().bodies, 1U) << "no spinner came before it";
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 0);
}

TEST(ZQDeferredImage, allClosuresRunOneAfterAnotherInTheOrderOfTheirViews) {
  HeadlessPlatform platform(BackgroundMode::threads);
  std::atomic<int> running{0};
  std::atomic<bool> together{false};
  std::string order;  // without a lock: only one closure runs
  for (char c = 'a'; c < 'k'; ++c) {
    VM::withId(std::string("serial ") + c, [&, c]() -> std::optional<ZQImage> {
      if (++running > 1) together = true;
      order += c;
      std::this_thread::yield();
      --running;
      return picture();
    });
  }
  platform.runUntilIdle();
  EXPECT_EQ(order, "abcdefghij");
  EXPECT_FALSE(together);
}

TEST(ZQDeferredImage, withoutAPictureItsSpinnerStaysAndTheOthersGoOn) {
  HeadlessPlatform platform;
  const struct {
    const char* id;
    VM::Compute compute;
  } rows[] = {{"nothing", [] { return std::optional<ZQImage>(); }}, {"null", nullptr}};
  for (const auto& row : rows) {
    Harness screen(shown(row.id, row.compute));
    screen.advance(60);
    EXPECT_EQ(VM::withId(row.id, nullptr)->status, VM::Status::computing) << row.id;
    EXPECT_EQ(screen.find(Role::progress, "Loading").value, "busy") << row.id;
  }
  Harness next(shown("after nothing", [] { return std::optional(picture(4, 4, 9)); }));
  EXPECT_EQ(shownMark(next), 9);
}

TEST(ZQDeferredImage, aSpinnerIsGrayAndTakesItsNaturalSizeTimesTheScale) {
  HeadlessPlatform platform;
  const struct {
    double scale;
    double side;
  } rows[] = {{1, 16}, {0.5, 8}, {3, 48}, {0, 0}, {-2, 0}, {NAN, 0}};
  for (const auto& row : rows) {
    Harness screen(shown("none", nullptr, row.scale), {100, 100});
    EXPECT_EQ(screen.host().sizeThatFits(ProposedSize::exactly({100, 100})),
              (Size{row.side, row.side}))
        << row.scale;
    if (row.side <= 0) continue;
    const std::vector<DrawnCommand> spokes = screen.drawn();
    ASSERT_EQ(spokes.size(), 8U);
    EXPECT_EQ(spokes[0].bounds, (Rect{50 - row.side / 2, 50 - row.side / 2, row.side, row.side}));
    EXPECT_EQ(*std::get<StrokePath>(spokes[0].command).paint.color(), Color::gray().opacity(0.8));
  }
}

TEST(ZQDeferredImage, whatAClosureHoldsGoesWithItsRun) {
  HeadlessPlatform platform;
  const auto held = std::make_shared<int>();
  const auto vm = VM::withId("held", [held] { return std::optional(picture()); });
  EXPECT_EQ(held.use_count(), 2);
  platform.runUntilIdle();
  EXPECT_EQ(held.use_count(), 1);
}

TEST(ZQDeferredImageDeathTest, isAskedForOnTheInterfaceThreadAlone) {
  EXPECT_DEATH(
      {
        HeadlessPlatform platform;
        Queue::execute(false, [] { VM::withId("elsewhere", nullptr); });
        platform.runUntilIdle();
      },
      "not the interface thread");
}

}  // namespace
}  // namespace zq
