// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

// What changes over time: lists, values on their way, and views that go while something of
// theirs is still under way.

namespace zq {
namespace {

struct Model : ObservableObject {
  Published<std::vector<std::string>> names{this};
};

// Each row counts its own presses, so a state that went to another row shows.
struct Row {
  std::string name;
  View body(Context& context) const {
    auto count = context.state(0);
    return Button([count] { count.set(*count + 1); }, Text(name + std::to_string(*count)));
  }
  bool operator==(const Row&) const = default;
};

struct Rows {
  std::shared_ptr<Model> model;
  View body(Context& context) const {
    return VStack({.spacing = 0}, {ForEach(context.observe(model).names.get(),
                                           [](const std::string& name) { return Row{name}; })});
  }
};

std::string readable(Harness& h) {
  std::string all;
  for (const Element& e : h.texts()) all += (all.empty() ? "" : " ") + e.text;
  return all;
}

TEST(ForEach, statesFollowTheirKeys) {
  struct Case {
    const char* what;
    std::vector<std::string> next;
    const char* shown;
  };
  const Case cases[] = {
      {"reversed", {"d", "c", "b", "a"}, "d3 c2 b1 a0"},
      {"inserted", {"x", "a", "b", "y", "c", "d"}, "x0 a0 b1 y0 c2 d3"},
      {"removed", {"b", "d"}, "b1 d3"},
      {"rotated with a change", {"d", "x", "b", "c"}, "d3 x0 b1 c2"},
      {"twins by occurrence", {"c", "b", "c", "a"}, "c2 b1 c0 a0"},
      {"none", {}, ""},
      {"the same", {"a", "b", "c", "d"}, "a0 b1 c2 d3"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const auto model = std::make_shared<Model>();
    model->names = {"a", "b", "c", "d"};
    Harness h(Rows{model});
    for (const std::string name : {"b0", "c0", "c1", "d0", "d1", "d2"}) h.click(h.button(name));
    ASSERT_EQ(readable(h), "a0 b1 c2 d3");
    model->names = c.next;
    h.settle();
    EXPECT_EQ(readable(h), c.shown);
  }
}

struct Person {
  std::string name;
  int number;
  int id() const { return number; }
};

template <auto key>
struct People {
  std::shared_ptr<Model> model;
  View body(Context& context) const {
    std::vector<Person> people;
    for (const std::string& name : context.observe(model).names.get()) {
      people.push_back({name, name[0]});
    }
    return VStack({.spacing = 0},
                  {ForEach(people, key, [](const Person& p) { return Row{p.name}; })});
  }
};

template <auto key>
std::string reversedAfterAClick() {
  const auto model = std::make_shared<Model>();
  model->names = {"a", "b"};
  Harness h(People<key>{model});
  h.click(h.button("b0"));
  model->names = {"b", "a"};
  h.settle();
  return readable(h);
}

TEST(ForEach, aFieldOrAMemberFunctionMayBeTheKey) {
  EXPECT_EQ(reversedAfterAClick<&Person::number>(), "b1 a0");
  EXPECT_EQ(reversedAfterAClick<&Person::id>(), "b1 a0");
}

TEST(ForEach, twinsKeepTheirOccurrence) {
  const auto model = std::make_shared<Model>();
  model->names = {"a", "b", "a", "a"};
  Harness h(Rows{model});
  h.click(h.texts()[3]);
  ASSERT_EQ(readable(h), "a0 b0 a0 a1");
  model->names = {"x", "a", "a", "b", "a"};
  h.settle();
  EXPECT_EQ(readable(h), "x0 a0 a0 b0 a1");
}

TEST(ForEach, focusFollowsItsRow) {
  const auto model = std::make_shared<Model>();
  model->names = {"a", "b", "c"};
  Harness h(Rows{model});
  h.tab();
  h.tab();
  ASSERT_EQ(h.focused().name, "b0");
  model->names = {"c", "x", "b"};
  h.settle();
  EXPECT_EQ(h.focused().name, "b0");
  model->names = {"c"};
  h.settle();
  EXPECT_FALSE(h.focused());
}

// Rows of children at their ideal sizes, as wide as the window.
struct Wrapping : Layout {
  Size sizeThatFits(const ProposedSize& p, const Subviews& children) const override {
    return {p.width.value_or(400), place(p.width.value_or(400), children).back().y + 16};
  }
  void placeSubviews(const Rect& b, const ProposedSize&, const Subviews& children) const override {
    const std::vector<Point> points = place(b.width, children);
    children.placeIdeal(std::span(points).first(children.size()));
  }
  bool equals(const Layout&) const override { return true; }
  static std::vector<Point> place(double width, const Subviews& children) {
    std::vector<Point> points;
    Point at;
    for (const Size& s : children.idealSizes()) {
      if (at.x > 0 && at.x + s.width > width) at = {0, at.y + 16};
      points.push_back(at);
      at.x += s.width;
    }
    points.push_back(at);
    return points;
  }
};

struct Words {
  std::shared_ptr<Model> model;
  View body(Context& context) const {
    return ScrollView(
        LayoutView(Wrapping{}, {ForEach(context.observe(model).names.get(),
                                        [](const std::string& name) { return Text(name); })}));
  }
};

TEST(ForEach, oneTextOfTenThousandCostsOneText) {
  const auto model = std::make_shared<Model>();
  std::vector<std::string> names;
  for (int i = 10000; i < 20000; ++i) names.push_back(std::to_string(i));
  model->names = names;
  Harness h(Words{model}, {400, 320});
  const WorkCounts before = h.counts();
  EXPECT_LT(before.piecesRecorded, 400u) << "only what can be seen";
  model->names.edit([](std::vector<std::string>& n) { n[15] = "abcde"; });
  h.settle();
  const WorkCounts after = h.counts();
  EXPECT_EQ(after.bodies - before.bodies, 1u);
  EXPECT_EQ(after.textsMeasured - before.textsMeasured, 1u);
  EXPECT_LE(after.piecesRecorded - before.piecesRecorded, 1u);
  EXPECT_EQ(describe(h.damage().bounds()), describe(h.findText("abcde").bounds));
  model->names.edit([](std::vector<std::string>& n) { n[15] = "a longer one"; });
  h.settle();
  EXPECT_EQ(h.damage().bounds().y, 16) << "the rows above did not move";
  EXPECT_EQ(h.counts().textsMeasured - after.textsMeasured, 1u);
}

// --- Motion ---

struct Mover {
  std::shared_ptr<std::optional<State<int>>> at = std::make_shared<std::optional<State<int>>>();
  View body(Context& context) const {
    *at = context.state(0);
    const double d = static_cast<double>(***at);
    return Rectangle()
        .frame(10, 10)
        .opacity(1 - d / 100)
        .offset(d, 0)
        .frame({.width = 200, .height = 10, .alignment = Alignment::leading()});
  }
};

struct Shown {
  double x;
  double opacity;
};
Shown shown(Harness& h) {
  const auto all = h.drawn();
  return all.empty() ? Shown{-1, 0} : Shown{all[0].bounds.x, all[0].opacity};
}

TEST(Motion, movesFromWhatIsShownOrJumps) {
  const Mover mover;
  Harness h(mover, {200, 10});
  const State<int> at = **mover.at;
  const auto go = [&](int x) { withAnimation(Animation::linear(1), [&] { at.set(x); }); };
  go(80);
  h.settle();
  EXPECT_EQ(shown(h).x, 0);
  h.advance(0.5);
  EXPECT_NEAR(shown(h).x, 40, 1e-6);
  EXPECT_NEAR(shown(h).opacity, 0.6, 1e-6);
  EXPECT_TRUE(h.host().animating());
  go(0);
  h.settle();
  EXPECT_NEAR(shown(h).x, 40, 1e-6) << "turns round where it is";
  h.advance(0.5);
  EXPECT_NEAR(shown(h).x, 20, 1e-6);
  at.set(50);
  h.settle();
  EXPECT_EQ(shown(h).x, 50) << "a plain change jumps and ends it";
  h.advance(0.1);
  EXPECT_FALSE(h.host().animating());
  const auto frames = h.counts().frames;
  h.advance(10);
  EXPECT_EQ(h.counts().frames, frames) << "at rest";
  h.setAppearance({.reducedMotion = true});
  go(80);
  h.settle();
  EXPECT_EQ(shown(h).x, 80);
  EXPECT_FALSE(h.host().animating());
}

TEST(Motion, placesMoveAndAHiddenWindowRestsOnly) {
  const auto model = std::make_shared<Model>();
  model->names = {"a"};
  Harness h(VStack({Rows{model}}).frame({.height = 100, .alignment = Alignment::topLeading()}),
            {100, 100});
  withAnimation(Animation::linear(1), [&] { model->names = {"x", "a"}; });
  h.settle();
  EXPECT_EQ(h.findText("a0").bounds.y, 0);
  h.advance(0.5);
  EXPECT_NEAR(h.findText("a0").bounds.y, 8, 1e-6);
  h.setVisible(false);
  const auto frames = h.counts().frames;
  h.advance(5);
  EXPECT_EQ(h.counts().frames, frames);
  h.setVisible(true);
  h.advance(0.1);
  EXPECT_EQ(h.findText("a0").bounds.y, 16);
}

// --- Ends ---

TEST(Life, appearChangeAndDisappearAreToldOnceAndOutsideOfBodies) {
  std::string log;
  const auto view = [&](int value) {
    return View(Text(std::to_string(value)))
        .onAppear([&] { log += "appear "; })
        .onDisappear([&] { log += "gone "; })
        .onChange<int>(value, [&](const int& v) { log += std::to_string(v) + ' '; });
  };
  {
    Harness h(view(1));
    h.setRoot(view(1));
    h.setRoot(view(2));
    h.setRoot(Text("other"));
    EXPECT_EQ(log, "appear 2 gone ");
    h.setRoot(view(3));
  }
  EXPECT_EQ(log, "appear 2 gone appear gone ");
}

TEST(Life, aCallbackMayEndItsOwnView) {
  struct Vanishing {
    View body(Context& context) const {
      auto gone = context.state(false);
      const auto vanish = [gone] { gone.set(true); };
      if (*gone) return Text("gone");
      DragGesture drag;
      drag.minimumDistance = 0;
      drag.onChanged = [vanish](const DragValue&) { vanish(); };
      return Rectangle()
          .frame(50, 50)
          .onTap(vanish)
          .onHover([vanish](bool) { vanish(); })
          .gesture(drag)
          .onDrop({{"t"}, [vanish](bool) { vanish(); }, {}});
    }
  };
  const std::function<void(Harness&)> acts[] = {[](Harness& h) {
                                                  h.moveTo({50, 50});
                                                },
                                                [](Harness& h) {
                                                  h.click({50, 50});
                                                },
                                                [](Harness& h) {
                                                  h.drag({50, 50}, {60, 50});
                                                },
                                                [](Harness& h) {
                                                  h.drop({50, 50}, {.types = {"t"}});
                                                },
                                                [](Harness& h) { h.tab(), h.key(Key::space); }};
  for (const auto& act : acts) {
    Harness h(Vanishing{}, {100, 100});
    act(h);
    EXPECT_TRUE(h.findText("gone"));
    Harness replaced(View(Rectangle().frame(50, 50).onHover([&](bool) { h.host().setRoot({}); })));
  }
}

TEST(Life, aCallbackMayReplaceTheWholeScreen) {
  std::unique_ptr<Harness> h;
  const auto replace = [&] { h->host().setRoot(Text("next")); };
  DragGesture drag;
  drag.minimumDistance = 0;
  drag.onChanged = [&](const DragValue&) { replace(); };
  const View views[] = {
      Rectangle().onHover([&](bool) { replace(); }).onHover([](bool) {}),
      Rectangle().onTap(replace), Rectangle().gesture(drag).onTap([] {}),
      Rectangle().onDrop({{"t"}, [&](bool) { replace(); }, {}}),
      TextField("", Binding<std::string>({}, [&](const std::string&) { replace(); }))};
  for (const View& view : views) {
    h.reset();
    h = std::make_unique<Harness>(view, Size{100, 20});
    h->click({50, 10});
    h->type("x");
    h->drop({50, 10}, {.types = {"t"}});
    EXPECT_TRUE(h->findText("next"));
  }
}

TEST(Life, aHostMayGoWithTimersAndMotionInFlight) {
  HeadlessPlatform platform;
  const Mover mover;
  const auto model = std::make_shared<Model>();
  std::optional<State<int>> at;
  {
    Harness h(VStack({mover, Rows{model}, ProgressView()}));
    at = **mover.at;
    platform.mainQueue().postDelayed(1, [&] { at->set(7); });
    platform.mainQueue().postDelayed(1, [&] { model->names = {"late"}; });
    withAnimation(Animation::linear(3), [&] { at->set(50); });
    h.advance(0.1);
  }
  platform.advance(5);
  EXPECT_EQ(at->get(), 7);
}

}  // namespace
}  // namespace zq
