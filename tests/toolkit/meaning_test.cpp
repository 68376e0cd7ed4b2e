// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

// What views say to assistive technology, and what they inherit.

namespace zq {
namespace {

void eachNode(const AccessibilityNode& node,
              const std::function<void(const AccessibilityNode&)>& visit) {
  visit(node);
  for (const AccessibilityNode& child : node.children) eachNode(child, visit);
}
std::map<std::string, std::uint64_t> idsOf(Harness& h) {
  std::map<std::string, std::uint64_t> ids;
  eachNode(h.host().accessibilityTree(), [&](const AccessibilityNode& n) { ids[n.name] = n.id; });
  return ids;
}

TEST(Meaning, labelsRolesAndChildrenCompose) {
  struct Case {
    const char* what;
    View view;
    const char* tree;
  };
  const auto button = [](const char* name) { return View(Button([] {}, Text(name))); };
  const View pair = HStack({Text("a"), Text("b")});
  const Case cases[] = {
      {"one element takes the label", View(Text("x")).accessibilityLabel("y"), "text \"y\"\n"},
      {"the outer label wins", View(Text("x")).accessibilityLabel("y").accessibilityLabel("z"),
       "text \"z\"\n"},
      {"several become a group", pair.accessibilityLabel("both"),
       "group \"both\"\n  text \"a\"\n  text \"b\"\n"},
      {"a slider has no parts", pair.accessibility({.role = Role::slider, .value = "3"}),
       "slider = \"3\"\n"},
      {"a list has", pair.accessibility({.role = Role::list}),
       "list\n  text \"a\"\n  text \"b\"\n"},
      {"nothing inside", View(Color::red()).accessibilityLabel("patch"), "group \"patch\"\n"},
      {"hidden is all of it", VStack({button("in")}).accessibility({.hidden = true}), ""},
      {"a name leaves the hidden out",
       Button([] {}, HStack({Text("save"), Text("now").accessibility({.hidden = true})})),
       "button \"save\"\n"},
      {"a label inside is part of the name",
       Button([] {}, HStack({Text("go"), View(Image::symbol("gear")).accessibilityLabel("cog")})),
       "button \"go cog\"\n"},
      {"a button in a button", Button([] {}, HStack({Text("row"), button("x")})),
       "button \"row x\"\n  button \"x\"\n"},
      {"help is the description", button("a").help("why"), "button \"a\" (why)\n"},
      {"but not over one", button("a").accessibility({.description = "own"}).help("why"),
       "button \"a\" (own)\n"},
      {"a field", TextField("Name", Binding<std::string>::constant("v")).accessibilityLabel("N"),
       "textField \"N\" = \"v\"\n"},
      {"a scroll area", ScrollView(Text("in")), "scrollArea\n  text \"in\"\n"},
      {"checked off", button("a").accessibility({.role = Role::toggle, .checked = false}),
       "toggle \"a\" off\n"},
      {"disabled from above", VStack({button("a")}).disabled(), "button \"a\" disabled\n"},
      {"enabled again is not possible", View(button("a").disabled(false)).disabled(),
       "button \"a\" disabled\n"},
      {"order is that of the tree", ZStack({Text("back"), Text("front")}),
       "text \"back\"\ntext \"front\"\n"},
  };
  for (const Case& c : cases) {
    Harness h(c.view, {200, 100});
    EXPECT_EQ(h.accessibility(), c.tree) << c.what;
  }
}

struct Names : ObservableObject {
  Published<std::vector<std::string>> all{this};
};
struct List {
  std::shared_ptr<Names> names;
  int* pressed;
  View body(Context& context) const {
    return ScrollView(
        VStack({ForEach(context.observe(names).all.get(), [p = pressed](const std::string& name) {
          return Button([p] { ++*p; }, Text(name));
        })}));
  }
};

TEST(Meaning, idsStayWithTheirRowsAndAreNeverGivenAgain) {
  const auto names = std::make_shared<Names>();
  int pressed = 0;
  std::vector<std::string> many;
  many.reserve(401);
  for (int i = 0; i < 400; ++i) many.push_back("row " + std::to_string(i));
  names->all = many;
  Harness h(List{names, &pressed}, {100, 100});
  const auto before = idsOf(h);
  EXPECT_EQ(before.size(), 401u) << "all rows, and what is around them without a name";
  const std::uint64_t version = h.host().accessibilityVersion();
  h.settle();
  EXPECT_EQ(h.host().accessibilityVersion(), version) << "at rest";
  EXPECT_TRUE(h.host().accessibilityPress(before.at("row 399"))) << "far out of sight";
  EXPECT_EQ(pressed, 1);
  EXPECT_TRUE(h.host().accessibilityFocus(before.at("row 300")));
  h.settle();
  EXPECT_TRUE(h.findText("row 300")) << "brought into view";
  std::swap(many[0], many[399]);
  many.erase(many.begin() + 5);
  many.insert(many.begin(), "new");
  names->all = many;
  h.settle();
  EXPECT_GT(h.host().accessibilityVersion(), version);
  const auto after = idsOf(h);
  std::set<std::uint64_t> known;
  for (const auto& [name, id] : before) {
    known.insert(id);
    EXPECT_TRUE(name == "row 5" || after.at(name) == id) << name;
  }
  EXPECT_EQ(known.count(after.at("new")), 0u);
  EXPECT_FALSE(h.host().accessibilityPress(before.at("row 5"))) << "gone";
  EXPECT_EQ(pressed, 1);
}

TEST(Meaning, actionsReachOnlyWhatCanTakeThem) {
  int pressed = 0;
  std::string typed = "old";
  const auto view = [&](bool off) {
    return VStack(
        {View(Button([&] { ++pressed; }, Text("b"))).disabled(off), Text("t"),
         View(TextField("f", Binding<std::string>([&] { return typed; },
                                                  [&](const std::string& s) { typed = s; })))
             .disabled(off)});
  };
  Harness h(view(true));
  ViewHost& host = h.host();
  for (const bool off : {true, false}) {
    h.setRoot(view(off));
    const auto ids = idsOf(h);
    EXPECT_EQ(host.accessibilityPress(ids.at("b")), !off);
    EXPECT_EQ(host.accessibilityFocus(ids.at("b")), !off);
    EXPECT_EQ(host.accessibilitySetValue(ids.at("f"), "new"), !off);
    EXPECT_FALSE(host.accessibilityPress(ids.at("t")));
    EXPECT_FALSE(host.accessibilityFocus(ids.at("t")));
    EXPECT_FALSE(host.accessibilitySetValue(ids.at("b"), "x"));
    EXPECT_FALSE(host.accessibilityPress(0));
    EXPECT_FALSE(host.accessibilityPress(~std::uint64_t{0}));
    EXPECT_EQ(pressed, off ? 0 : 1);
    EXPECT_EQ(typed, off ? "old" : "new");
  }
}

TEST(Meaning, boundsAreWhereThingsShow) {
  Harness h(
      VStack({.spacing = 0}, {View(Color::gray()).frame(10, 40),
                              Button([] {}, Color::red()).frame(20, 10).scale(2).offset(5, 0)})
          .frame({.width = 100, .height = 100, .alignment = Alignment::topLeading()}),
      {100, 100});
  EXPECT_EQ(describe(h.find(Role::button).bounds), "-5,35 40x20");
}

// --- Inheritance ---

struct DepthKey {
  using Value = int;
  static Value defaultValue() { return 0; }
};
struct Show {
  View body(Context& context) const {
    return Text("depth " + std::to_string(context.environment<DepthKey>()));
  }
  bool operator==(const Show&) const = default;
};
struct Who : ObservableObject {
  explicit Who(std::string first) : name(this, std::move(first)) {}
  Published<std::string> name;
};
struct Greeting {
  View body(Context& context) const {
    return Text("hello " + context.environmentObject<Who>().name.get());
  }
  bool operator==(const Greeting&) const = default;
};

TEST(Inheritance, theNearestWinsAndOthersStay) {
  Harness h(VStack(
      {View(Show{}).environment<DepthKey>(1),
       VStack({Show{}, View(Show{}).environment<DepthKey>(3)}).environment<DepthKey>(2), Show{}}));
  EXPECT_EQ(h.accessibility(),
            "text \"depth 1\"\ntext \"depth 2\"\ntext \"depth 3\"\ntext \"depth 0\"\n");
  h.setRoot(VStack({View(Text("big")).font(Font::title()), Text("own").font(Font::caption()),
                    View(Text("dim")).foregroundColor(Color::red()).foregroundColor(Color::blue()),
                    View(Text("two")).lineLimit(1)})
                .font(Font::largeTitle())
                .foregroundColor(Color::teal()));
  EXPECT_EQ(h.findText("big").font, Font::title().resolve(h.platform().textMeasurer()));
  EXPECT_EQ(h.findText("own").font, Font::caption().resolve(h.platform().textMeasurer()));
  EXPECT_EQ(h.findText("big").color(), Color::teal());
  EXPECT_EQ(h.findText("dim").color(), Color::red());
}

TEST(Inheritance, objectsAreThoseOfTheNearestAncestorAndMayBeExchanged) {
  const auto ann = std::make_shared<Who>("Ann"), bob = std::make_shared<Who>("Bob");
  const auto view = [](const std::shared_ptr<Who>& outer, const std::shared_ptr<Who>& inner) {
    return VStack({Greeting{}, View(Greeting{}).environmentObject(inner)}).environmentObject(outer);
  };
  Harness h(view(ann, bob));
  const auto read = [&] { return h.texts().at(0).text + ", " + h.texts().at(1).text; };
  EXPECT_EQ(read(), "hello Ann, hello Bob");
  ann->name = "Anna";
  h.settle();
  EXPECT_EQ(read(), "hello Anna, hello Bob");
  h.setRoot(view(bob, ann));
  EXPECT_EQ(read(), "hello Bob, hello Anna");
  bob->name = "Rob";
  h.settle();
  EXPECT_EQ(read(), "hello Rob, hello Anna");
  const auto asked = h.framesAsked();
  h.setRoot(Text("none"));
  const std::uint64_t then = h.framesAsked();
  EXPECT_GT(then, asked);
  ann->name = bob->name.get();
  EXPECT_EQ(h.framesAsked(), then) << "nobody shows them any more";
  EXPECT_EQ(ann.use_count(), 1);
}

TEST(Inheritance, readersOfTheSizeSeeItsChangesAndTheirEnvironment) {
  std::vector<std::string> sizes;
  const auto reader = GeometryReader([&](Size s) {
    sizes.push_back(describe(Rect::of({}, s)));
    return Show{};
  });
  const auto view = [&](int depth, double width) {
    return View(reader).frame({.width = width}).environment<DepthKey>(depth);
  };
  Harness h(view(1, 50), {100, 40});
  EXPECT_TRUE(h.findText("depth 1"));
  h.setRoot(view(2, 50));
  EXPECT_TRUE(h.findText("depth 2"));
  h.setRoot(view(2, 80));
  EXPECT_EQ(sizes.back(), "0,0 80x40");
  const std::size_t count = sizes.size();
  h.settle();
  h.moveTo({5, 5});
  EXPECT_EQ(sizes.size(), count) << "not asked without a reason";
}

}  // namespace
}  // namespace zq
