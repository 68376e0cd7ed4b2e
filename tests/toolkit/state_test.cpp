// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

// A number that a button raises; its state is what the tests look for.
struct Counter {
  std::string name;
  View body(Context& context) const {
    auto count = context.state(0);
    return Button([count] { count.set(*count + 1); }, Text(name + " " + std::to_string(*count)));
  }
  bool operator==(const Counter&) const = default;
};

struct Switch {
  std::function<View(bool)> content;
  View body(Context& context) const {
    auto on = context.state(false);
    return VStack({Button([on] { on.set(!*on); }, Text("switch")), content(*on)});
  }
};

TEST(State, staysWithItsPlaceAndGoesWithTypePlaceOrId) {
  struct Row {
    const char* what;
    std::function<View(bool)> content;
    bool kept;
  };
  const Row rows[] = {
      {"another value", [](bool on) { return Counter{on ? "b" : "a"}; }, true},
      {"another modifier's value",
       [](bool on) { return View(Counter{on ? "b" : "a"}).padding(on ? 3 : 4); }, true},
      {"another neighbour",
       [](bool on) {
         return HStack({on ? View(Text("x")) : View(Color::red()), Counter{on ? "b" : "a"}});
       },
       true},
      {"a neighbour that goes",
       [](bool on) {
         return HStack({on ? View() : View(Text("x")), Counter{on ? "b" : "a"}});
       },
       true},
      {"one modifier more",
       [](bool on) {
         return on ? View(Counter{"b"}).padding(3).opacity(0.5) : View(Counter{"a"}).padding(3);
       },
       false},
      {"another id", [](bool on) { return View(Counter{on ? "b" : "a"}).id(on ? "2" : "1"); },
       false},
      {"the same id", [](bool on) { return View(Counter{on ? "b" : "a"}).id("1"); }, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    Harness h(Switch{row.content});
    h.click(h.button("a 0"));
    h.click(h.button("a 1"));
    h.click(h.button("switch"));
    EXPECT_TRUE(h.button(row.kept ? "b 2" : "b 0")) << h.accessibility();
  }
}

TEST(State, anEqualValueAsksForNoFrameAndRunsNoBody) {
  std::optional<State<int>> state;
  struct Owner {
    std::optional<State<int>>* out;
    View body(Context& context) const {
      *out = context.state(7);
      return Text(std::to_string(***out));
    }
  };
  Harness h(Owner{&state});
  const auto bodies = h.counts().bodies, asked = h.framesAsked();
  state->set(7);
  EXPECT_EQ(h.framesAsked(), asked);
  state->set(8);
  state->set(9);
  EXPECT_EQ(h.framesAsked(), asked + 1) << "many changes, one frame";
  h.settle();
  EXPECT_EQ(h.framesAsked(), asked + 1) << "the frame itself asks for no other";
  EXPECT_EQ(h.counts().bodies, bodies + 1);
  EXPECT_TRUE(h.findText("9"));
}

// Bodies that break the contract, each in its way once the flag turns.
struct Model : ObservableObject {
  Published<int> step{this, 0};
  Published<std::string> name{this, "none"};
};

struct Breaker {
  std::shared_ptr<Model> model;
  std::string how;
  View body(Context& context) const {
    const int step = context.observe(model).step.get();
    if (how == "order" && step == 1) {
      context.state(std::string());
      context.state(1);
      return {};
    }
    auto number = context.state(1);
    if (how == "fewer" && step == 1) return {};
    context.state(std::string());
    if (how == "more" && step == 1) context.state(2.0);
    if (how == "write" && step == 1) number.set(2);
    return Text("fine");
  }
};

struct LateState {
  bool late;
  View body(Context& context) const {
    if (late) context.state(1);
    return Text("fine");
  }
};

TEST(StateDeathTest, aBodyThatBreaksTheContractStopsTheProgramWithItsName) {
  const auto run = [](const std::string& how) {
    const auto model = std::make_shared<Model>();
    Harness h(Breaker{model, how});
    model->step = 1;
    h.settle();
  };
  EXPECT_DEATH(run("order"), "Breaker: a body asked for its states in another order");
  EXPECT_DEATH(run("fewer"), "Breaker: a body asked for fewer states");
  EXPECT_DEATH(run("more"), "Breaker: a body asked for more states");
  EXPECT_DEATH(run("write"), "State: written while a body runs");
  EXPECT_DEATH(
      {
        Harness h(LateState{false});
        h.setRoot(LateState{true});
      },
      "LateState: a body asked for more states");
}

struct Reader {
  std::shared_ptr<Model> model;
  std::atomic<int>* bodies;
  View body(Context& context) const {
    ++*bodies;
    return Text(context.observe(model).name.get());
  }
  bool operator==(const Reader&) const = default;
};

TEST(Observation, anEqualAssignmentEvaluatesObserversAndPaintsNothing) {
  const auto model = std::make_shared<Model>();
  std::atomic<int> bodies{0};
  Harness h(VStack({Reader{model, &bodies}, Counter{"other"}}));
  const auto all = h.counts().bodies;
  model->name = "none";
  h.settle();
  EXPECT_EQ(h.counts().bodies, all + 1);
  EXPECT_EQ(bodies, 2);
  EXPECT_TRUE(h.damage().empty());
  model->name = "new";
  h.settle();
  EXPECT_TRUE(h.findText("new"));
  EXPECT_FALSE(h.damage().empty());
}

TEST(Observation, endsWhenTheBodyNoLongerAsks) {
  struct Sometimes {
    std::shared_ptr<Model> which;
    std::shared_ptr<Model> shown;
    View body(Context& context) const {
      if (context.observe(which).step.get() == 0) context.observe(shown);
      return Text(shown->name.get());
    }
  };
  const auto which = std::make_shared<Model>(), shown = std::make_shared<Model>();
  Harness h(Sometimes{which, shown});
  shown->name = "heard";
  h.settle();
  EXPECT_TRUE(h.findText("heard"));
  which->step = 1;
  h.settle();
  const auto asked = h.framesAsked();
  shown->name = "unheard";
  EXPECT_EQ(h.framesAsked(), asked);
  EXPECT_TRUE(h.findText("heard"));
}

TEST(Observation, aParentAndItsChildOfOneObjectAreEachEvaluatedOnce) {
  static int parents = 0, children = 0;
  struct Child {
    std::shared_ptr<Model> model;
    View body(Context& context) const {
      ++children;
      return Text(context.observe(model).name.get());
    }
  };
  struct Parent {
    std::shared_ptr<Model> model;
    View body(Context& context) const {
      ++parents;
      context.observe(model);
      return Child{model};
    }
  };
  const auto model = std::make_shared<Model>();
  Harness h(Parent{model});
  model->name = "x";
  h.settle();
  EXPECT_EQ(parents, 2);
  EXPECT_EQ(children, 2);
}

struct DensityKey {
  using Value = int;
  static Value defaultValue() { return 1; }
};

struct DensityText {
  View body(Context& context) const {
    return Text("density " + std::to_string(context.environment<DensityKey>()));
  }
  bool operator==(const DensityText&) const = default;
};

TEST(Environment, reachesAnEqualComponentBelowAndNobodyElse) {
  Harness h(Switch{[](bool on) {
    return VStack({View(DensityText{}).environment<DensityKey>(on ? 3 : 2), DensityText{}});
  }});
  EXPECT_TRUE(h.findText("density 2"));
  EXPECT_TRUE(h.findText("density 1"));
  const auto bodies = h.counts().bodies;
  h.click(h.button("switch"));
  EXPECT_TRUE(h.findText("density 3"));
  EXPECT_EQ(h.counts().bodies, bodies + 2) << "the owner and the reader below";
}

TEST(Environment, objectsAreObserved) {
  struct Greeting {
    View body(Context& context) const {
      return Text("hello " + context.environmentObject<Model>().name.get());
    }
  };
  const auto model = std::make_shared<Model>();
  Harness h(View(Greeting{}).environmentObject(model));
  model->name = "you";
  h.settle();
  EXPECT_TRUE(h.findText("hello you"));
  EXPECT_DEATH(Harness(Greeting{}), "no ancestor set an environment object");
}

TEST(Bindings, mapAndPublishedHoldTheirOwner) {
  auto model = std::make_shared<Model>();
  const Binding<int> number =
      Published<std::string>::binding(model, &Model::name)
          .map<int>([](const std::string& s) { return static_cast<int>(s.size()); },
                    [](const int& n) { return std::string(static_cast<std::size_t>(n), 'z'); });
  const std::weak_ptr<Model> alive = model;
  model.reset();
  number.set(3);
  EXPECT_EQ(number.get(), 3);
  EXPECT_EQ(alive.lock()->name.get(), "zzz");
  const Binding<int> none;
  none.set(3);
  EXPECT_EQ(none.get(), 0);
}

TEST(ThreadsPublishing, eightThreadsChangeAnObservedObjectWhileFramesRun) {
  HeadlessPlatform platform(BackgroundMode::threads);
  const auto model = std::make_shared<Model>();
  std::atomic<int> bodies{0};
  {
    Harness h(VStack({Reader{model, &bodies}, Reader{model, &bodies}}));
    std::atomic<int> running{8};
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t) {
      threads.emplace_back([&, t] {
        for (int i = 0; i < 300; ++i) {
          model->name = std::string(static_cast<std::size_t>(i % 7), static_cast<char>('a' + t));
          model->step.edit([](int& n) { ++n; });
        }
        --running;
      });
    }
    // Views come and go meanwhile, so subscriptions begin and end under fire.
    for (int i = 0; running > 0; ++i) {
      h.host().setRoot(i % 2 ? View(Reader{model, &bodies})
                             : View(VStack({Reader{model, &bodies}, Text("x")})));
      h.host().frame();
    }
    for (std::thread& thread : threads) thread.join();
    model->name = "last";
    h.settle();
    EXPECT_TRUE(h.findText("last"));
    EXPECT_EQ(model->step.get(), 8 * 300);
    const auto asked = h.framesAsked();
    h.advance(1);
    EXPECT_EQ(h.framesAsked(), asked);
  }
  model->name = "heard by nobody";
}

// Says nothing until it is told to, from deep inside.
struct Silent {
  std::shared_ptr<State<bool>>* speaks;
  View body(Context& context) const {
    auto state = context.state(false);
    *speaks = std::make_shared<State<bool>>(state);
    const View said = *state ? View(Text("now")) : View();
    return said.padding(4).onAppear([] {}).id("silent");
  }
};

TEST(State, whatShowedNothingInAStackMayComeToShowSomething) {
  std::shared_ptr<State<bool>> speaks;
  struct Outer {
    std::shared_ptr<State<bool>>* speaks;
    View body(Context&) const { return Silent{speaks}; }
  };
  Harness h(VStack({Text("above"), Outer{&speaks}, Text("below")}));
  const double below = h.findText("below").bounds.y;
  for (int i = 0; i < 2; ++i) {
    speaks->set(true);
    h.settle();
    EXPECT_TRUE(h.findText("now"));
    EXPECT_GT(h.findText("below").bounds.y, below);
    speaks->set(false);
    h.settle();
    EXPECT_FALSE(h.findText("now"));
    EXPECT_EQ(h.findText("below").bounds.y, below);
  }
}

}  // namespace
}  // namespace zq
