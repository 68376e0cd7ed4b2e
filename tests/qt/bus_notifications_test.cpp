// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <tests/qt/bus_payload.hpp>
#include <tests/qt/private_bus.hpp>
#include <tests/qt/support.hpp>
#include <thread>
#include <vector>
#include <zqswiftui/platform/headless/headless_time.hpp>
#include <zqswiftui/platform/qt/bus_notifications.hpp>
#include <zqswiftui/platform/qt/platform.hpp>

namespace zq::qt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

zq::MainQueue& queue() {
  return zq::Platform::current().mainQueue();
}

// Notifications, and what was heard of each name.
struct Listener {
  BusNotifications notifications{queue()};
  std::map<std::string, std::vector<std::string>> heard;

  std::uint64_t observe(const std::string& name) {
    return notifications.observe(
        name, [this, name](const std::string& payload) { heard[name].push_back(payload); });
  }
  bool waitUntilHeard(const std::string& name, std::size_t count = 1) {
    return waitFor([&] { return heard[name].size() >= count; });
  }
};

TEST(BusNotifications, insideTheProcessTheyComeLaterInOrderAndOnlyToWhoStillObserves) {
  Listener listener;
  BusNotifications& notifications = listener.notifications;
  std::string order;
  std::uint64_t second = 0;
  notifications.observe("n", [&](const std::string& payload) {
    order += "a" + payload;
    notifications.stopObserving(second);
    EXPECT_TRUE(queue().isMainThread());
    if (payload == "1") notifications.post("n", "3");
  });
  second = notifications.observe("n", [&](const std::string& payload) { order += "b" + payload; });
  EXPECT_NE(second, 0U);
  notifications.observe("n", nullptr);
  notifications.post("n", "1");
  std::thread([&] { notifications.post("n", "2"); }).join();
  EXPECT_EQ(order, "");
  ASSERT_TRUE(waitFor([&] { return order.size() >= 6; }));
  EXPECT_EQ(order, "a1a2a3");
}

TEST(BusNotifications, anEndWithPostsUnderWayDropsThemAndWhatTheObserversHeld) {
  auto notifications = std::make_unique<BusNotifications>(queue());
  const auto held = std::make_shared<int>();
  // A token as programs have it: the last observer of one name ends that of another.
  const std::uint64_t other = notifications->observe("m", [held](const auto&) {});
  BusNotifications* const raw = notifications.get();
  std::shared_ptr<void> token(nullptr, [raw, other](void*) { raw->stopObserving(other); });
  notifications->observe("n", [held, token](const std::string&) { FAIL(); });
  token.reset();
  for (int i = 0; i < 100; ++i) notifications->post("n", "x");
  notifications.reset();
  settle();
  EXPECT_EQ(held.use_count(), 1);
}

TEST(BusNotifications, withoutABusOneLineSaysSoWhenItIsFirstNeeded) {
  BusPeer peer({QStringLiteral("alone")});
  ASSERT_TRUE(peer.waitForLine());
  EXPECT_EQ(peer.output(), "started\n");
  EXPECT_EQ(peer.errors(), "");
  peer.write("\n");
  ASSERT_TRUE(peer.waitForEnd());
  EXPECT_EQ(peer.output(), "1\n2\n");
  const std::string errors = peer.errors();
  EXPECT_THAT(errors, HasSubstr("there is no session bus"));
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
}

// Delays come at once, when the test says so.
class SteppedQueue final : public zq::MainQueue {
 public:
  void post(std::function<void()> work) override { queue().post(std::move(work)); }
  DelayedCallId postDelayed(double seconds, std::function<void()> work) override {
    queue().post([this, seconds, work = std::move(work)] {
      delays.push_back(seconds);
      next = work;
    });
    return 1;
  }
  void cancel(DelayedCallId) override {}
  bool isMainThread() const override { return queue().isMainThread(); }

  std::vector<double> delays;
  std::function<void()> next;
};

TEST(BusNotifications, aBusThatIsMissingIsLookedForAtGrowingIntervals) {
  if (!PrivateBus::possible()) GTEST_SKIP() << "dbus-daemon is not installed";
  SteppedQueue stepped;
  {
    BusNotifications notifications(stepped);
    std::string heard;
    notifications.observe("n", [&](const std::string& payload) { heard += payload; });
    for (std::size_t tries = 1; tries <= 7; ++tries) {
      ASSERT_TRUE(waitFor([&] { return stepped.delays.size() == tries; }));
      if (tries < 7) stepped.next();
    }
    EXPECT_THAT(stepped.delays, ElementsAre(1, 2, 4, 8, 16, 30, 30));
    PrivateBus bus;
    ASSERT_TRUE(bus.start());
    stepped.next();
    BusNotifications other(queue());
    ASSERT_TRUE(waitFor([&] {
      other.post("n", "x");
      return !heard.empty();
    }));
  }
  settle();
}

class OnABus : public testing::Test {
 protected:
  void SetUp() override {
    if (!PrivateBus::possible()) GTEST_SKIP() << "dbus-daemon is not installed";
    ASSERT_TRUE(bus_.start());
  }
  PrivateBus bus_;
};

TEST_F(OnABus, eachNameIsHeardByItsOwnObserversAlone) {
  std::string accents;
  for (int i = 0; i < 300; ++i) accents += "é";
  const std::vector<std::string> posted = {"plain",
                                           "plain.",
                                           "a.b",
                                           "",
                                           "it's",
                                           "a,b",
                                           "back\\slash",
                                           "a b",
                                           "é",
                                           std::string(300, 'n'),
                                           accents,
                                           "\xff\xfe no text",
                                           std::string("a\0b", 3),
                                           "%",
                                           "%41",
                                           "A",
                                           "'",
                                           "\"",
                                           "\n"};
  Listener listener;
  for (const std::string& name : posted) listener.observe(name);
  const std::vector<std::string> silent = {"pla",
                                           "plain..",
                                           "a",
                                           "a.",
                                           "its",
                                           "%25",
                                           std::string(299, 'n'),
                                           std::string(301, 'n'),
                                           accents + "e",
                                           "a",
                                           std::string("a\0c", 3),
                                           " ",
                                           "PLAIN",
                                           "%2541"};
  for (const std::string& name : silent) listener.observe(name);
  listener.observe("end");
  EXPECT_EQ(postElsewhere(2048, posted), "");
  EXPECT_EQ(postElsewhere(0, {"end"}), "");
  ASSERT_TRUE(listener.waitUntilHeard("end"));
  for (std::size_t i = 0; i < posted.size(); ++i) {
    EXPECT_THAT(listener.heard[posted[i]],
                ElementsAre(payloadOf(2048, static_cast<unsigned>(i) + 1)))
        << posted[i];
  }
  for (const std::string& name : silent) EXPECT_THAT(listener.heard[name], IsEmpty()) << name;
}

TEST_F(OnABus, payloadsArriveWholeThoughTheSenderEndsAtOnce) {
  Listener listener;
  listener.observe("n");
  const std::size_t megabyte = std::size_t{1} << 20;
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{2048}, std::size_t{65535}, std::size_t{65536},
        std::size_t{65537}, megabyte, 8 * megabyte, 32 * megabyte}) {
    listener.heard.clear();
    EXPECT_EQ(postElsewhere(size, {"n"}), "");
    ASSERT_TRUE(listener.waitUntilHeard("n")) << size;
    EXPECT_TRUE(listener.heard["n"].front() == payloadOf(size, 1)) << size;
  }
}

TEST_F(OnABus, whatIsTooBigIsSentNowhereAndOneLineSaysSo) {
  Listener listener;
  const std::string longName(std::size_t{1} << 17, 'n');
  for (const std::string& name : {std::string("n"), std::string("end"), longName}) {
    listener.observe(name);
  }
  const std::size_t tooBig = DistributedNotifications::maxPayloadSize + 1;
  const std::string complaint = postElsewhere(tooBig, {"n"});
  EXPECT_THAT(complaint, HasSubstr("\"n\" is not sent"));
  EXPECT_EQ(std::count(complaint.begin(), complaint.end(), '\n'), 1) << complaint;
  testing::internal::CaptureStderr();
  listener.notifications.post("n", std::string(tooBig, 'x'));
  listener.notifications.post(longName, "x");
  EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("131072"));
  EXPECT_EQ(postElsewhere(1, {"end"}), "");
  ASSERT_TRUE(listener.waitUntilHeard("end"));
  EXPECT_THAT(listener.heard["n"], IsEmpty());
  EXPECT_THAT(listener.heard[longName], IsEmpty());
}

TEST_F(OnABus, aBusyInterfaceThreadMissesNothing) {
  Listener listener;
  listener.observe("big");
  listener.observe("many");
  // No event loop runs here until the senders have ended.
  EXPECT_EQ(postElsewhere(std::size_t{8} << 20, std::vector<std::string>(20, "big")), "");
  EXPECT_EQ(postElsewhere(70000, std::vector<std::string>(2000, "many")), "");
  ASSERT_TRUE(listener.waitUntilHeard("big", 20));
  ASSERT_TRUE(listener.waitUntilHeard("many", 2000));
  for (unsigned i = 0; i < 20; ++i) {
    EXPECT_TRUE(listener.heard["big"][i] == payloadOf(std::size_t{8} << 20, i + 1)) << i;
  }
  for (unsigned i = 0; i < 2000; i += 97) {
    EXPECT_TRUE(listener.heard["many"][i] == payloadOf(70000, i + 1)) << i;
  }
}

TEST_F(OnABus, ownPostsAreHeardOnceAndThoseOfManyThreadsInTheirOrder) {
  BusPeer peer({QStringLiteral("echo"), inHex("n"), inHex("back")});
  ASSERT_TRUE(peer.waitForLine());
  Listener listener;
  listener.observe("n");
  listener.observe("back");
  constexpr std::size_t kThreads = 4, kPosts = 100;
  std::vector<std::thread> threads;
  for (std::size_t t = 0; t < kThreads; ++t) {
    threads.emplace_back([&listener, t] {
      // Short ones and long ones go different ways, and must not overtake each other.
      for (std::size_t i = 0; i < kPosts; ++i) {
        listener.notifications.post("n", std::to_string(t) + ' ' + std::to_string(1000 + i) + ' ' +
                                             std::string(i % 7 == 0 ? 70000 : 10, 'x'));
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  ASSERT_TRUE(listener.waitUntilHeard("back", kThreads * kPosts));
  EXPECT_TRUE(listener.heard["n"] == listener.heard["back"]);
  std::vector<std::string> sorted = listener.heard["n"];
  std::stable_sort(sorted.begin(), sorted.end(),
                   [](const auto& a, const auto& b) { return a[0] < b[0]; });
  EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.end()));
}

TEST_F(OnABus, theRuleOfANameEndsWithItsLastObserver) {
  Listener listener;
  listener.observe("end");
  const auto post = [&] {
    const std::size_t ends = listener.heard["end"].size();
    EXPECT_EQ(postElsewhere(1, {"n", "end"}), "");
    ASSERT_TRUE(listener.waitUntilHeard("end", ends + 1));
  };
  const std::uint64_t first = listener.observe("n");
  const std::uint64_t second = listener.observe("n");
  post();
  EXPECT_THAT(listener.heard["n"], SizeIs(2));
  EXPECT_EQ(PrivateBus::rulesWith("arg0='n'"), 1);
  listener.notifications.stopObserving(first);
  listener.notifications.stopObserving(first);
  post();
  EXPECT_THAT(listener.heard["n"], SizeIs(3));
  listener.notifications.stopObserving(second);
  EXPECT_TRUE(waitFor([] { return PrivateBus::rulesWith("arg0='n'") == 0; }));
  post();
  EXPECT_THAT(listener.heard["n"], SizeIs(3));
  listener.observe("n");
  post();
  EXPECT_THAT(listener.heard["n"], SizeIs(4));
}

TEST_F(OnABus, hostileSendersAreNotHeardAndStopNothing) {
  Listener listener;
  for (const char* name : {"n", "n.", "other", "", "end"}) listener.observe(name);
  BusPeer hostile({QStringLiteral("hostile"), inHex("n")});
  ASSERT_TRUE(hostile.waitForEnd()) << hostile.errors();
  EXPECT_EQ(postElsewhere(std::size_t{1} << 20, {"end"}), "");
  ASSERT_TRUE(listener.waitUntilHeard("end"));
  EXPECT_THAT(listener.heard["n"], ElementsAre("good"));
  for (const char* name : {"n.", "other", ""}) EXPECT_THAT(listener.heard[name], IsEmpty());
}

TEST_F(OnABus, aBusThatComesBackIsJoinedAgainByAllWhoObserve) {
  BusPeer peer({QStringLiteral("echo"), inHex("out"), inHex("back")});
  ASSERT_TRUE(peer.waitForLine());
  Listener listener;
  listener.observe("out");
  listener.observe("back");
  listener.notifications.post("out", "1");
  ASSERT_TRUE(listener.waitUntilHeard("back"));
  bus_.stop();
  ASSERT_TRUE(waitFor([&] { return peer.errors().find("is gone") != std::string::npos; }));
  listener.notifications.post("out", "2");
  ASSERT_TRUE(listener.waitUntilHeard("out", 2));
  ASSERT_TRUE(bus_.start());
  // The peer posts nothing of itself: it must look for the bus unasked.
  ASSERT_TRUE(waitFor([&] { return peer.errors().find("again") != std::string::npos; }));
  listener.notifications.post("out", "3");
  ASSERT_TRUE(listener.waitUntilHeard("back", 2));
  EXPECT_THAT(listener.heard["back"], ElementsAre("1", "3"));
  EXPECT_THAT(listener.heard["out"], ElementsAre("1", "2", "3"));
  const std::string errors = peer.errors();
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 2) << errors;

  bus_.stop();
  ASSERT_TRUE(bus_.start(QStringLiteral("elsewhere")));
  Listener other;
  other.observe("out");
  listener.notifications.post("out", "4");
  ASSERT_TRUE(other.waitUntilHeard("out"));
}

TEST_F(OnABus, anEndWaitsUntilWhatWasPostedHasLeft) {
  // Files go at once; the short ones at the end are more than a socket holds.
  const auto payload = [](unsigned i) { return payloadOf(i < 50 ? 1 << 20 : 60000, i); };
  Listener listener;
  listener.observe("n");
  {
    BusNotifications sender(queue());
    for (unsigned i = 0; i < 120; ++i) sender.post("n", payload(i));
  }
  ASSERT_TRUE(listener.waitUntilHeard("n", 120));
  for (unsigned i = 0; i < 120; ++i) EXPECT_TRUE(listener.heard["n"][i] == payload(i)) << i;
}

TEST_F(OnABus, aBusThatDoesNotAnswerHoldsNobodyUp) {
  Listener before;
  before.observe("n");
  bus_.hold();
  Listener listener;
  for (const char* name : {"n", "m"}) {
    listener.observe(name);
    before.observe(name);
  }
  for (Listener* each : {&before, &listener}) {
    each->notifications.post("n", "x");
    EXPECT_TRUE(each->waitUntilHeard("n"));
    each->notifications.post("m", std::string(100000, 'x'));
    EXPECT_TRUE(each->waitUntilHeard("m"));
  }
}

}  // namespace
}  // namespace zq::qt
