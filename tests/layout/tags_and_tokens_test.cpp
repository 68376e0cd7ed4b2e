// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zqswiftui/layout/zq_tags_view.hpp>
#include <zqswiftui/layout/zq_tokens_view.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/scroll_view.hpp>

namespace zq {
namespace {

using testing::ElementsAre;
using List = std::vector<std::string>;

TEST(ZQTagsView, showsEachTagInOrderOnItsColour) {
  Harness screen(ZQTagsView({"alpha", "beta", "alpha"}, Color::teal()), {400, 100});
  List shown;
  for (const Element& text : screen.texts()) shown.push_back(text.text);
  EXPECT_THAT(shown, ElementsAre("alpha", "beta", "alpha"));
  EXPECT_EQ(screen.findText("beta").font,
            Font::caption().resolve(screen.platform().textMeasurer()));
  EXPECT_THAT(screen.displayList(), testing::HasSubstr("teal"));
}

TEST(ZQTagsView, keepsTwoPointsBetweenTagsAndRows) {
  Harness screen(ZQTagsView({"aaaa", "bbbb", "cccc"}, Color::teal()), {90, 100});
  const Rect a = screen.findText("aaaa").bounds, b = screen.findText("bbbb").bounds,
             c = screen.findText("cccc").bounds;
  EXPECT_EQ(a.y, b.y);
  EXPECT_EQ(a.x, c.x) << "the next row begins where the first one did";
  EXPECT_EQ(c.y - a.y, a.height + 2 + 2 + 2);  // paddings of both rows, and the space between
}

TEST(ZQTagsView, oneNewTagAmongTenThousandTouchesOnlyItself) {
  auto tags = std::make_shared<List>();
  for (int i = 0; i < 10000; ++i) tags->push_back("tag" + std::to_string(i));
  const auto shown = [](std::shared_ptr<const List> list) {
    return ScrollView(View(ZQTagsView(std::move(list), Color::teal())));
  };
  Harness screen(shown(tags), {400, 300});
  const WorkCounts before = screen.counts();
  screen.setRoot(shown(tags));
  EXPECT_EQ(screen.counts().bodies, before.bodies) << "the same list is not looked at again";

  auto more = std::make_shared<List>(*tags);
  more->insert(more->begin() + 1, "new");
  screen.setRoot(shown(more));
  EXPECT_TRUE(screen.findText("new"));
  EXPECT_LT(screen.counts().textsMeasured - before.textsMeasured, 200u);
  EXPECT_LT(screen.counts().nodesCreated - before.nodesCreated, 2000u);
}

// A window with one tokens view, and the list that it edits.
struct Desk {
  explicit Desk(List list, List separators = {",", ";"})
      : tokens(std::make_shared<List>(std::move(list))),
        screen(ZQTokensView(binding(), std::move(separators))) {}
  Binding<List> binding() {
    return Binding<List>([list = tokens] { return *list; },
                         [list = tokens](const List& v) { *list = v; });
  }
  std::string shown() { return screen.host().textFields().at(0).text; }
  void edit(const std::string& text) {
    screen.host().fieldEdited(screen.host().textFields().at(0).id, text);
    screen.settle();
  }
  std::shared_ptr<List> tokens;
  Harness screen;
};

TEST(ZQTokensView, writesWhatWasTypedHalfASecondAfterTheLastKey) {
  struct Case {
    List tokens;
    List separators;
    std::string begins;
    std::string edited;
    List written;
  };
  const std::vector<Case> cases{
      {{"a", "b"}, {",", ";"}, "a,b", "a, b,", {"a", " b", ""}},
      {{"a", "b"}, {",", ";"}, "a,b", "", {""}},
      {{"a", "b"}, {",", ";"}, "a,b", "a;b,c", {"a;b", "c"}},
      {{"a", "b"}, {";"}, "a,b", "a,b,c", {"a,b,c"}},
      {{}, {","}, "", "x", {"x"}},
      {{"a,b"}, {","}, "a,b", "a,b!", {"a", "b!"}},
      {{"x"}, {"--"}, "x", "---a--", {"", "-a", ""}},
      {{"a", "b"}, {""}, "a,b", "a,c", {"a,c"}},
  };
  for (const Case& c : cases) {
    Desk desk(c.tokens, c.separators);
    EXPECT_EQ(desk.shown(), c.begins);
    desk.edit(c.edited);
    EXPECT_EQ(desk.shown(), c.edited) << "shown at once";
    desk.screen.advance(0.49);
    EXPECT_EQ(*desk.tokens, c.tokens);
    desk.screen.advance(0.02);
    EXPECT_EQ(*desk.tokens, c.written) << c.edited;
  }
}

TEST(ZQTokensView, aTextThatComesBackToWhatItWasWritesNothing) {
  Desk desk({"a", "b"}, {";"});
  desk.edit("a,bc");
  desk.edit("a,b");
  desk.screen.advance(1);
  EXPECT_THAT(*desk.tokens, ElementsAre("a", "b"));
}

TEST(ZQTokensView, doesNotTakeUpWhatOthersWriteToTheList) {
  Desk desk({"a"});
  *desk.tokens = {"z"};
  desk.screen.setRoot(ZQTokensView(desk.binding()));
  EXPECT_EQ(desk.shown(), "a");
}

TEST(ZQTokensView, theLastWordsArriveThoughTheViewHasGone) {
  Desk desk({"a"});
  desk.edit("a,b");
  desk.screen.setRoot(View());
  desk.screen.advance(0.6);
  EXPECT_THAT(*desk.tokens, ElementsAre("a", "b"));
}

TEST(ZQTokensViewDeathTest, stopsAtTheFirstChangeWhereThereAreNoSeparators) {
  EXPECT_DEATH(
      {
        Desk desk({"a"}, {});
        desk.edit("ab");
        desk.screen.advance(0.6);
      },
      "ZQTokensView: separators is empty");
}

}  // namespace
}  // namespace zq
