// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>
#include <zqswiftui/platform/base/signal.hpp>

namespace zq {
namespace {

TEST(Signal, listenersAreCalledInTheOrderOfTheirConnectionUntilTheirTokenGoes) {
  Signal<int> signal;
  std::string heard;
  const auto first = signal.connect([&](int value) { heard += "a" + std::to_string(value); });
  auto second = signal.connect([&](int value) { heard += "b" + std::to_string(value); });
  signal.send(1);
  second.reset();
  signal.send(2);
  EXPECT_EQ(heard, "a1b1a2");
}

TEST(Signal, aListenerMayDropItselfOrALaterOneOrConnectDuringASend) {
  Signal<> signal;
  std::string heard;
  Subscription self;
  Subscription later;
  Subscription added;
  self = signal.connect([&] {
    heard += 's';
    later.reset();
    added = signal.connect([&] { heard += 'n'; });
    self.reset();
  });
  later = signal.connect([&] { heard += 'l'; });
  signal.send();
  EXPECT_EQ(heard, "s");
  signal.send();
  EXPECT_EQ(heard, "sn");
}

TEST(Signal, aListenerMaySendAgainAndDestroyTheSignal) {
  auto signal = std::make_unique<Signal<int>>();
  int depth = 0;
  const auto token = signal->connect([&](int value) {
    ++depth;
    if (value < 3) return signal->send(value + 1);
    signal.reset();
  });
  signal->send(0);
  EXPECT_EQ(depth, 4);
}

TEST(Signal, whatAListenerHoldsGoesWithItsTokenEvenAfterASend) {
  Signal<> signal;
  const auto held = std::make_shared<int>(0);
  auto token = signal.connect([held] { ++*held; });
  signal.send();
  EXPECT_EQ(held.use_count(), 2);
  token.reset();
  EXPECT_EQ(held.use_count(), 1);
  EXPECT_FALSE(signal.hasListeners());
}

TEST(Subscription, cancelsOnceWhenMovedAboutAndOverwritten) {
  int cancelled = 0;
  {
    Subscription first([&] { cancelled += 1; });
    Subscription second(std::move(first));
    first = Subscription([&] { cancelled += 10; });
    second = std::move(first);
    EXPECT_EQ(cancelled, 1);
  }
  EXPECT_EQ(cancelled, 11);
}

TEST(Signal, onEightThreadsNoCallbackRunsOnceItsTokenIsGone) {
  Signal<> signal;
  std::atomic<bool> ranTooLate{false};
  std::vector<std::thread> threads;
  threads.reserve(8);
  for (int t = 0; t < 8; ++t) {
    threads.emplace_back([&] {
      for (int round = 0; round < 300; ++round) {
        // Written without a lock: only the promise of the token keeps other threads off.
        auto alive = std::make_unique<std::atomic<bool>>(true);
        auto token = signal.connect([&ranTooLate, watched = alive.get()] {
          if (!*watched) ranTooLate = true;
        });
        signal.send();
        token.reset();
        *alive = false;
        alive.reset();
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_FALSE(ranTooLate);
  EXPECT_FALSE(signal.hasListeners());
}

}  // namespace
}  // namespace zq
