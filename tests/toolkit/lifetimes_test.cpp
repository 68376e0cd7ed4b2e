// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

// Windows that go while something of theirs is under way: it ends, or finds nobody to tell. What
// a view held is let go of; the sanitizers see what is touched too late.

namespace zq {
namespace {

struct Model : ObservableObject {
  Published<std::string> text{this, "first"};
};

Task<void> load(std::string kind, State<std::string> into, std::shared_ptr<int> held) {
  if (kind == "delay") co_await afterDelay(1);
  if (kind == "back and forth") {
    co_await onBackground();
    co_await afterDelay(0.5);
    co_await onBackground(true);
  }
  if (kind == "callback") {
    const int number = co_await callback<int>([](std::function<void(int)> done) {
      Platform::current().mainQueue().postDelayed(1, [done] { done(7); });
    });
    static_cast<void>(number);
  }
  co_await onMain();
  ++*held;
  into.set("loaded");
}

// Loads when it appears. The task goes on for as long as the view holds its token, or to its end
// where nobody does.
struct Loader {
  std::string kind;
  bool keepsToken;
  std::shared_ptr<int> held;
  View body(Context& context) const {
    auto text = context.state<std::string>("loading");
    auto token = context.stateOf([] { return std::make_shared<Subscription>(); });
    const auto begin = [=, *this] {
      if (keepsToken) {
        *token.get() = start(load(kind, text, held));
      } else {
        detach(load(kind, text, held));
      }
    };
    return Text(*text).onAppear(begin);
  }
};

class Lifetimes : public testing::TestWithParam<BackgroundMode> {
 protected:
  HeadlessPlatform platform{GetParam()};
};
INSTANTIATE_TEST_SUITE_P(Modes, Lifetimes,
                         testing::Values(BackgroundMode::deterministic, BackgroundMode::threads));

TEST_P(Lifetimes, aTaskInFlightEndsWithItsTokenOrFindsNobody) {
  for (const std::string kind : {"delay", "back and forth", "callback"}) {
    for (const bool keepsToken : {true, false}) {
      SCOPED_TRACE(kind + (keepsToken ? " with a token" : " on its own"));
      const auto held = std::make_shared<int>(0);
      {
        Harness h(Loader{kind, keepsToken, held}, {100, 40});
        EXPECT_TRUE(h.findText("loading"));
        h.advance(2);
        EXPECT_TRUE(h.findText("loaded")) << "while the window stands";
        EXPECT_EQ(*held, 1);
      }
      {
        Harness h(Loader{kind, keepsToken, held}, {100, 40});
        h.advance(0.25);
      }
      platform.advance(3);
      EXPECT_EQ(*held, keepsToken ? 1 : 2);
      EXPECT_EQ(held.use_count(), 1) << "all of it is let go of";
    }
  }
}

TEST_P(Lifetimes, aViewThatGoesTakesItsTaskWithIt) {
  const auto held = std::make_shared<int>(0);
  Harness h(Loader{"back and forth", true, held}, {100, 40});
  h.advance(0.25);
  h.setRoot(Text("other"));
  h.advance(3);
  EXPECT_EQ(*held, 0);
  EXPECT_EQ(held.use_count(), 1);
}

TEST_P(Lifetimes, aPlatformMayEndWithItsWindowAndAllThatWaits) {
  const auto held = std::make_shared<int>(0);
  {
    Harness h(VStack({Loader{"delay", true, held}, Loader{"delay", false, held},
                      Loader{"back and forth", false, held}, Loader{"callback", false, held}}));
    h.advance(0.1);
  }
  platform.quit();
  EXPECT_EQ(*held, 0);
}

struct Ticking {
  std::shared_ptr<int> ticks;
  View body(Context& context) const {
    auto count = context.state(0);
    auto timer = context.stateOf([] { return std::make_shared<ZQTimer>(); });
    return Text("ticks " + std::to_string(*count)).onAppear([=, *this] {
      timer.get()->loop("tick", 0.5, std::nullopt, false, [count, all = ticks] {
        ++*all;
        count.set(*count + 1);
      });
    });
  }
};

TEST_P(Lifetimes, aTimerOfAViewStopsWithIt) {
  const auto ticks = std::make_shared<int>(0);
  {
    Harness h(Ticking{ticks}, {100, 40});
    h.advance(1.2);
    EXPECT_TRUE(h.findText("ticks 2"));
  }
  platform.advance(5);
  EXPECT_EQ(*ticks, 2);
  EXPECT_EQ(ticks.use_count(), 1);
}

struct Busy {
  std::shared_ptr<Model> model;
  std::shared_ptr<std::optional<State<int>>> step;
  View body(Context& context) const {
    *step = context.state(0);
    const int n = ***step;
    auto open = context.state(true);
    std::vector<int> numbers(300);
    for (std::size_t i = 0; i < numbers.size(); ++i) numbers[i] = static_cast<int>(i) * (n + 1);
    const View nested = View(Text("anchor")).popover(open.binding(), TextField("field", {}));
    return VStack({Text(context.observe(model).text.get()).opacity(n % 2 ? 0.2 : 1).offset(n, 0),
                   nested.popover(open.binding(), nested), ProgressView(),
                   ScrollView(
                       VStack({ForEach(numbers, [](int i) { return Text(std::to_string(i)); })}))
                       .frame({.height = 60})})
        .onHover([m = model](bool) { m->text = "hover"; })
        .onDrop({{"t"}, [m = model](bool) { m->text = "drag"; }, {}})
        .onDisappear([m = model] { m->text = "gone"; });
  }
};

TEST_P(Lifetimes, aBusyWindowMayGoAtAnyMoment) {
  const auto model = std::make_shared<Model>();
  for (int moment = 0; moment < 8; ++moment) {
    SCOPED_TRACE(moment);
    const auto step = std::make_shared<std::optional<State<int>>>();
    std::optional<State<int>> late;
    {
      Harness h(Busy{model, step}, {200, 200});
      late = *step;
      withAnimation(Animation::linear(1), [&] { late->set(3); });
      h.moveTo({100, 150});
      h.press({100, 150});
      if (moment > 0) h.advance(0.1 * moment);
      if (moment > 2) h.dragOver({100, 150}, {{}, {"t"}});
      if (moment > 3) h.wheel({100, 180}, 0, 100);
      if (moment > 4) h.tab();
      if (moment > 5) model->text = "not yet shown";
      if (moment > 6) withAnimation(Animation::linear(1), [&] { late->set(5); });
    }
    EXPECT_EQ(model->text.get(), "gone") << "its farewell is the last that it says";
    late->set(9);
    model->text = "nobody listens";
    platform.advance(2);
    EXPECT_EQ(late->get(), 9);
  }
  EXPECT_EQ(model.use_count(), 1);
}

TEST_P(Lifetimes, aWindowMayBeEndedByATimerWhileAnotherShowsTheSameModel) {
  const auto model = std::make_shared<Model>();
  const auto step = std::make_shared<std::optional<State<int>>>();
  Harness other(Busy{model, std::make_shared<std::optional<State<int>>>()}, {200, 200});
  auto first = std::make_unique<Harness>(Busy{model, step}, Size{200, 200});
  platform.mainQueue().postDelayed(0.5, [&] {
    model->text = "at the end";
    first.reset();
  });
  other.advance(1);
  EXPECT_FALSE(first);
  EXPECT_TRUE(other.findText("gone")) << "the farewell of the first is heard in the other";
}

}  // namespace
}  // namespace zq
