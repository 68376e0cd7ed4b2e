// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>
#include <zqswiftui/layout/selection_list.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

using Names = std::vector<std::string>;

// What a host keeps, and what it was told.
struct Host : ObservableObject {
  Published<Names> names{this};
  Published<std::optional<std::string>> selected{this};
  std::string log;
  bool moves = true;

  std::string taken() { return std::exchange(log, {}); }
  std::string shown() const { return selected.get().value_or("none"); }
};

struct NameRow {
  std::string name;
  View body(Context&) const { return Text(name); }
  bool operator==(const NameRow&) const = default;
};

struct HostList {
  std::shared_ptr<Host> host;

  std::function<void(std::size_t)> note(const char* what) const {
    return [host = host, names = host->names.snapshot(), what](std::size_t i) {
      host->log += what + (" " + (*names)[i]) + ". ";
    };
  }
  View body(Context& context) const {
    context.observe(host);
    const auto name = [names = host->names.snapshot()](std::size_t i) { return (*names)[i]; };
    SelectionList::Parameters list{
        .count = host->names.get().size(),
        .rowHeight = 20,
        .key = name,
        .row = [name](std::size_t i) { return NameRow{name(i)}; },
        .selection = Published<std::optional<std::string>>::binding(host, &Host::selected),
        .label = name,
        .onActivate = note("open"),
        .onDelete = note("delete"),
        .menu =
            [rename = note("rename")](std::size_t i) {
              return std::vector<MenuItem>{{.title = "Rename", .action = [=] { rename(i); }}};
            }};
    if (host->moves) {
      list.onMove = [host = host](std::size_t from, std::size_t to) {
        host->log += std::to_string(from) + ">" + std::to_string(to) + " ";
        host->names.edit([&](Names& names) {
          const std::string moved = names[from];
          names.erase(names.begin() + static_cast<std::ptrdiff_t>(from));
          names.insert(names.begin() + static_cast<std::ptrdiff_t>(to), moved);
        });
      };
    }
    return SelectionList(list).accessibilityLabel("Names");
  }
};

class SelectionListTest : public testing::Test {
 protected:
  SelectionListTest() { host->names = Names{"Ada", "Bela", "Carla", "Charles", "Dora"}; }
  static Names many(std::size_t count) {
    Names names;
    for (std::size_t i = 0; i < count; ++i) names.push_back("row " + std::to_string(i));
    return names;
  }
  // 100 points high, of five rows.
  std::unique_ptr<Harness> screen() {
    return std::make_unique<Harness>(HostList{host}, Size{200, 100});
  }
  std::string after(Harness& h, std::initializer_list<Key> keys, Modifiers modifiers = {}) {
    for (const Key key : keys) h.key(key, modifiers);
    return host->shown();
  }
  std::shared_ptr<Host> host = std::make_shared<Host>();
};

constexpr Modifiers kAlt{.alt = true};

TEST_F(SelectionListTest, keysMoveTheSelectionAndBringItInSight) {
  host->names = many(100);
  const auto h = screen();
  EXPECT_FALSE(h->key(Key::down)) << "it has no focus";
  h->tab();
  EXPECT_EQ(after(*h, {Key::down}), "row 0") << "nothing was selected";
  EXPECT_EQ(after(*h, {Key::up}), "row 0");
  EXPECT_EQ(after(*h, {Key::pageDown, Key::pageDown}), "row 8") << "a row stays in sight";
  EXPECT_EQ(h->findText("row 8").visible.maxY(), h->findText("row 8").bounds.maxY());
  EXPECT_EQ(after(*h, {Key::end}), "row 99");
  EXPECT_TRUE(h->findText("row 99"));
  EXPECT_EQ(after(*h, {Key::down, Key::pageUp}), "row 95");
  EXPECT_EQ(after(*h, {Key::home, Key::pageUp}), "row 0");
  h->wheel({100, 50}, 0, 800);
  EXPECT_FALSE(h->findText("row 0"));
  EXPECT_EQ(after(*h, {Key::home}), "row 0");
  EXPECT_TRUE(h->findText("row 0")) << "it was selected before, and is shown again";
  host->selected = std::nullopt;
  EXPECT_EQ(after(*h, {Key::up}), "row 99");
  EXPECT_FALSE(h->tab()) << "the list is one stop";
}

TEST_F(SelectionListTest, aSelectedRowThatIsGoneLeavesItsPlace) {
  host->selected = "Carla";
  const auto h = screen();
  h->tab();
  host->names.edit([](Names& names) { names.erase(names.begin() + 2); });
  h->settle();
  EXPECT_FALSE(h->key(Key::enter)) << "there is nothing to open";
  EXPECT_EQ(after(*h, {Key::down}), "Charles") << "what stands there now";
  host->names = Names{"Ada"};
  h->settle();
  EXPECT_EQ(after(*h, {Key::down}), "Ada");
  host->names = Names{};
  h->settle();
  EXPECT_FALSE(h->key(Key::down));
  EXPECT_FALSE(h->type("a"));
  EXPECT_EQ(host->taken(), "");
}

TEST_F(SelectionListTest, lettersGoToTheNextRowThatBeginsSo) {
  const auto h = screen();
  h->tab();
  const auto typed = [&](const char* text) {
    h->type(text);
    return host->shown();
  };
  EXPECT_EQ(typed("c"), "Carla");
  EXPECT_EQ(typed("H"), "Charles") << "the beginning is longer now";
  h->advance(1.1);
  EXPECT_EQ(typed("c"), "Carla") << "and begins anew after a second, past the end";
  h->advance(1.1);
  EXPECT_EQ(typed("c"), "Charles");
  h->advance(1.1);
  EXPECT_EQ(typed("x"), "Charles");
  EXPECT_FALSE(h->key(Key::space, kAlt));
  EXPECT_FALSE(h->host().key({Key::character, "a", {.control = true}}));
}

TEST_F(SelectionListTest, pressesSelectAtOnceAndTwoActivate) {
  const auto h = screen();
  h->press(h->findText("Bela"));
  EXPECT_EQ(host->shown(), "Bela");
  EXPECT_EQ(h->focused().name, "Names");
  h->release();
  EXPECT_EQ(host->taken(), "");
  h->doubleClick(h->findText("Dora"));
  EXPECT_EQ(host->taken(), "open Dora. ");
  EXPECT_EQ(after(*h, {Key::enter, Key::deleteForward, Key::backspace}), "Dora");
  EXPECT_EQ(host->taken(), "open Dora. delete Dora. delete Dora. ");
}

TEST_F(SelectionListTest, aDragMovesARowWhereItsLineShows) {
  const auto h = screen();
  h->press({100, 30});
  h->moveTo({100, 33});
  EXPECT_FALSE(h->findId("insertion line"));
  h->moveTo({100, 78});
  EXPECT_EQ(h->findId("insertion line").bounds.midY(), 80);
  h->key(Key::escape);
  EXPECT_FALSE(h->findId("insertion line"));
  h->moveTo({100, 70});
  h->release();
  EXPECT_EQ(host->taken(), "") << "it was called off";

  h->drag({100, 30}, {100, 78});
  EXPECT_EQ(host->taken(), "1>3 ");
  EXPECT_EQ(host->names.get(), (Names{"Ada", "Carla", "Charles", "Bela", "Dora"}));
  EXPECT_EQ(host->shown(), "Bela");
  h->drag({100, 70}, {100, -500});
  EXPECT_EQ(host->taken(), "3>0 ");
  h->drag({100, 50}, {100, 62});
  EXPECT_EQ(host->taken(), "") << "behind itself is where it is";

  EXPECT_EQ(after(*h, {Key::down, Key::down, Key::up}, kAlt), "Carla");
  EXPECT_EQ(host->taken(), "2>3 3>4 4>3 ");
  host->moves = false;
  host->selected = "Bela";
  h->drag({100, 30}, {100, 78});
  EXPECT_FALSE(h->key(Key::down, kAlt));
  EXPECT_EQ(host->taken(), "");
}

TEST_F(SelectionListTest, aDragAtAnEndScrollsAndOutlivesOtherRows) {
  host->names = many(60);
  const auto h = screen();
  h->press({100, 30});
  h->moveTo({100, 96});
  h->advance(1);
  EXPECT_FALSE(h->findText("row 1")) << "scrolled away";
  EXPECT_TRUE(h->findId("insertion line").visible.height > 0);
  h->advance(60);
  const auto asked = h->framesAsked();
  h->advance(10);
  EXPECT_EQ(h->framesAsked(), asked) << "at the end it rests";
  host->names = many(3);  // fewer than where it points to
  h->settle();
  h->release();
  EXPECT_EQ(host->taken(), "1>2 ");

  host->names = many(60);
  h->settle();
  h->press({100, 30});
  h->moveTo({100, 70});
  host->names = Names{"other", "rows"};
  h->settle();
  h->release();
  EXPECT_EQ(host->taken(), "") << "what was dragged is gone";
}

TEST_F(SelectionListTest, theMenuIsThatOfTheRowUnderThePointerOrSelected) {
  for (const LayoutDirection direction :
       {LayoutDirection::leftToRight, LayoutDirection::rightToLeft}) {
    const auto h = screen();
    h->setAppearance({.layoutDirection = direction});
    const bool rightToLeft = direction == LayoutDirection::rightToLeft;
    EXPECT_EQ(h->findText("Ada").bounds.x > 100, rightToLeft);
    h->host().pointerDown({100, 50}, PointerButton::secondary);
    h->settle();
    EXPECT_EQ(host->shown(), "Carla");
    const Rect line = h->button("Rename").bounds;
    EXPECT_GT(line.maxX(), rightToLeft ? 4 : 100);
    EXPECT_LT(line.x, rightToLeft ? 100 : 196);
    h->click(h->button("Rename"));
    EXPECT_EQ(host->taken(), "rename Carla. ");
    EXPECT_EQ(h->focused().name, "Names");
    h->key(Key::down);
    h->key(Key::menu);
    h->key(Key::down);
    h->key(Key::enter);
    EXPECT_EQ(host->taken(), "rename Charles. ");
  }
}

TEST_F(SelectionListTest, isAListOfItemsToAssistiveTechnology) {
  host->names = Names{"Ada", "Bela"};
  host->selected = "Bela";
  const auto h = screen();
  h->tab();
  EXPECT_EQ(h->accessibility(),
            "list \"Names\" = \"Bela\" focused\n"
            "  listItem \"Ada\"\n"
            "  listItem \"Bela\" selected\n");
  const auto version = h->host().accessibilityVersion();
  EXPECT_TRUE(h->host().accessibilityPress(h->find(Role::listItem, "Ada").id));
  h->settle();
  EXPECT_EQ(h->find(Role::listItem, "Ada").selected, true);
  EXPECT_EQ(h->find(Role::listItem, "Bela").selected, false);
  EXPECT_GT(h->host().accessibilityVersion(), version);
}

TEST_F(SelectionListTest, aKeyOrThePointerCostsAHandfulOfBodies) {
  host->names = many(20'000);
  const auto h = screen();
  EXPECT_LT(h->counts().bodies, 40U);
  h->tab();
  h->key(Key::down);
  const auto cost = [&](const std::function<void()>& act) {
    const auto before = h->counts();
    act();
    EXPECT_EQ(h->counts().nodesCreated, before.nodesCreated);
    return h->counts().bodies - before.bodies;
  };
  EXPECT_LE(cost([&] { h->key(Key::down); }), 6U);
  EXPECT_LE(cost([&] { h->moveTo({100, 50}); }), 2U);
  EXPECT_LE(cost([&] { h->moveTo({100, 90}); }), 4U);
  h->key(Key::end);
  EXPECT_EQ(host->shown(), "row 19999");
  EXPECT_LE(cost([&] { h->key(Key::up); }), 6U);
}

}  // namespace
}  // namespace zq
