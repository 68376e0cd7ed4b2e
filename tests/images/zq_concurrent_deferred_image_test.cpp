// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tests/images/pictures.hpp>
#include <vector>
#include <zqswiftui/images/zq_concurrent_deferred_image.hpp>
#include <zqswiftui/images/zq_deferred_image.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

using VM = ZQConcurrentDeferredImageVM;
using Answer = std::optional<ZQImage>;

Task<Answer> answer(Answer value) {
  co_return value;
}

// Takes a second, and says when it begins and ends.
Task<Answer> slow(std::string* log, char name) {
  *log += name;
  co_await afterDelay(1);
  *log += '.';
  co_return picture();
}

View shown(const std::string& id, VM::Compute compute, double scale = 1,
           std::optional<ZQConcurrentDeferredImageView::CustomProgress> progress = std::nullopt) {
  return ZQConcurrentDeferredImageView(
      {.id = id, .scale = scale, .customProgress = progress, .compute = std::move(compute)});
}

TEST(ZQConcurrentDeferredImage, tellsEachStatusOnTheInterfaceThreadAndThePictureFirst) {
  HeadlessPlatform platform;
  MainQueue& queue = platform.mainQueue();
  int runs = 0;
  const auto vm = VM::withId("c order", [&] {
    ++runs;
    EXPECT_FALSE(queue.isMainThread());
    return answer(picture());
  });
  EXPECT_EQ(vm->status, VM::Status::startup) << "computing is posted";
  std::string told;
  const Subscription changes = vm->didChange.connect([&] {
    EXPECT_TRUE(queue.isMainThread());
    told += vm->image_.get() ? 'i' : '-';
    told += std::to_string(static_cast<int>(vm->status.get()));
  });
  platform.runUntilIdle();
  EXPECT_EQ(told, "-1i1i2");
  EXPECT_EQ(vm, VM::withId("c order", [&] {
              ++runs;
              return answer(std::nullopt);
            }));
  platform.runUntilIdle();
  EXPECT_EQ(runs, 1);
}

TEST(ZQConcurrentDeferredImage, closuresBeginInOrderAndRunBesideEachOther) {
  HeadlessPlatform platform;
  std::string log;
  for (char c = 'a'; c < 'k'; ++c) {
    VM::withId(std::string("beside ") + c, [&log, c] { return slow(&log, c); });
  }
  platform.runUntilIdle();
  EXPECT_EQ(log, "abcdefghij");
  platform.advance(1);
  EXPECT_EQ(log, "abcdefghij..........");
  EXPECT_EQ(VM::withId("beside j", nullptr)->status, VM::Status::ready);
}

TEST(ZQConcurrentDeferredImage, aClosureMayBeACoroutineThatCaptures) {
  HeadlessPlatform platform;
  const auto mark = std::make_shared<int>(7);
  const auto vm = VM::withId("captures", [mark]() -> Task<Answer> {
    co_await afterDelay(1);
    co_await onBackground();
    co_return picture(4, 4, static_cast<std::uint8_t>(*mark));
  });
  EXPECT_EQ(mark.use_count(), 2);
  platform.advance(1);
  ASSERT_EQ(vm->status, VM::Status::ready);
  EXPECT_EQ(mark.use_count(), 1) << "what it holds goes with its run";
  Harness screen(shown("captures", nullptr), {8, 8});
  EXPECT_EQ(shownMark(screen), 7);
}

TEST(ZQConcurrentDeferredImage, withoutAPictureItStaysAtComputing) {
  HeadlessPlatform platform;
  const struct {
    const char* id;
    VM::Compute compute;
  } rows[] = {{"c nothing", [] { return answer(std::nullopt); }}, {"c null", nullptr}};
  for (const auto& row : rows) {
    Harness screen(shown(row.id, row.compute));
    screen.advance(60);
    EXPECT_EQ(VM::withId(row.id, nullptr)->status, VM::Status::computing) << row.id;
    EXPECT_TRUE(screen.find(Role::progress, "Loading")) << row.id;
  }
}

TEST(ZQConcurrentDeferredImage, knowsNothingOfTheIdsOfTheOtherKind) {
  HeadlessPlatform platform;
  ZQDeferredImageVM::withId("both", [] { return Answer(picture(4, 4, 1)); });
  Harness screen(shown("both", [] { return answer(picture(4, 4, 2)); }));
  EXPECT_EQ(shownMark(screen), 2);
}

TEST(ZQConcurrentDeferredImage, aCustomSpinnerHasItsColourAndCountAndIsNotScaled) {
  HeadlessPlatform platform;
  Harness screen(
      shown("custom", nullptr, 5, ZQConcurrentDeferredImageView::CustomProgress{Color::teal(), 8}),
      {100, 100});
  const std::vector<DrawnCommand> spokes = screen.drawn();
  ASSERT_EQ(spokes.size(), 8U);
  EXPECT_EQ(spokes[0].bounds, (Rect{34, 34, 32, 32}));
  EXPECT_EQ(*std::get<StrokePath>(spokes[0].command).paint.color(), Color::teal().opacity(0.8));
  EXPECT_EQ(screen.find(Role::progress).value, "busy");

  Harness plain(shown("custom", nullptr, 0.5), {100, 100});
  EXPECT_EQ(plain.drawn().front().bounds, (Rect{46, 46, 8, 8}));
}

TEST(ZQConcurrentDeferredImage, whatComputesWhenThePlatformEndsGoesWithIt) {
  const auto held = std::make_shared<std::string>();
  {
    HeadlessPlatform platform;
    VM::withId("cut off", [held] { return slow(held.get(), 'a'); });
    platform.runUntilIdle();
    EXPECT_EQ(*held, "a");
  }
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace
}  // namespace zq
