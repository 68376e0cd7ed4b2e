// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zqswiftui/controls/zq_cancel_continue_lower_bar.hpp>
#include <zqswiftui/controls/zq_capsuled_text.hpp>
#include <zqswiftui/controls/zq_favorite_button.hpp>
#include <zqswiftui/controls/zq_tooltip_question_mark.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

using testing::ElementsAre;

TEST(ZQFavoriteButton, turnsTheBindingOverAndShowsIt) {
  bool favorite = false;  // nothing that a view could observe
  std::vector<bool> told;
  const Binding<bool> binding([&] { return favorite; }, [&](const bool& v) { favorite = v; });
  Harness screen(
      ZQFavoriteButton({.isFavorite = binding, .callback = [&](bool v) { told.push_back(v); }}));
  EXPECT_TRUE(screen.findSymbol("star"));
  EXPECT_EQ(screen.find(Role::toggle, "Favourite").checked, false);

  screen.click(screen.find(Role::toggle, "Favourite"));
  EXPECT_TRUE(favorite);
  EXPECT_TRUE(screen.findSymbol("star.fill"));
  EXPECT_EQ(screen.findSymbol("star.fill").color(), Color::yellow());
  EXPECT_EQ(screen.find(Role::toggle, "Favourite").checked, true);

  screen.key(Key::space);
  EXPECT_TRUE(screen.findSymbol("star"));
  EXPECT_THAT(told, ElementsAre(true, false));
}

TEST(ZQTooltipQuestionMark, showsItsTextInAPopoverUntilItIsSentAway) {
  Harness screen(ZQTooltipQuestionMark("All that is in the folder."));
  EXPECT_FALSE(screen.findText("All that is in the folder."));
  screen.click(screen.button("Help"));
  EXPECT_TRUE(screen.findText("All that is in the folder."));
  screen.key(Key::escape);
  EXPECT_FALSE(screen.findText("All that is in the folder."));

  screen.click(screen.button("Help"));
  EXPECT_TRUE(screen.findText("All that is in the folder."));
  screen.click(Point{2, 2});
  EXPECT_FALSE(screen.findText("All that is in the folder."));
}

TEST(ZQTooltipQuestionMark, showsItsTextToAPointerThatRestsOnIt) {
  Harness screen(ZQTooltipQuestionMark({.color = Color::blue(), .text = "More."}));
  screen.hover(screen.findSymbol("questionmark.circle"));
  EXPECT_EQ(screen.help(), "More.");
  screen.leave();
  EXPECT_EQ(screen.help(), "");
}

TEST(ZQCancelContinueLowerBar, answersToEscapeAndReturnAndToThePointer) {
  std::string heard;
  Harness screen(ZQCancelContinueLowerBar(
      {.onCancel = [&] { heard += 'c'; }, .onContinue = [&] { heard += 'g'; }}));
  screen.key(Key::escape);
  screen.key(Key::enter);
  screen.click(screen.button("Continue"));
  screen.click(screen.button("Cancel"));
  EXPECT_EQ(heard, "cggc");
  EXPECT_LT(screen.button("Cancel").bounds.maxX(), 100);
  EXPECT_GT(screen.button("Continue").bounds.x, 300) << "at the far end";
}

TEST(ZQCancelContinueLowerBar, hasNoContinueWhereNothingWouldFollow) {
  Harness screen(ZQCancelContinueLowerBar({.onCancel = nullptr}));
  EXPECT_FALSE(screen.button("Continue"));
  EXPECT_FALSE(screen.key(Key::enter));
  screen.click(screen.button("Cancel"));
}

TEST(ZQCapsuledText, isReadableOnItsBackgroundInLightAndInDark) {
  struct Case {
    Color background;
    Color inLight, inDark;
  };
  const Color black = Color::black(), white = Color::white();
  const std::vector<Case> cases{
      {black.opacity(0.8), white, white},   {Color::hex(0xffee88), black, black},
      {Color::hex(0x223366), white, white}, {Color::yellow(), black, black},
      {Color::clear(), black, white},  // the window shows through
      {white.opacity(0.1), black, white},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(readableTextColor(c.background, ColorScheme::light), c.inLight)
        << c.background.description();
    EXPECT_EQ(readableTextColor(c.background, ColorScheme::dark), c.inDark)
        << c.background.description();
  }

  Harness screen(ZQCapsuledText({.text = "tag", .backgroundColor = Color::clear()}));
  EXPECT_EQ(screen.findText("tag").color(), black);
  AppearanceValues dark;
  dark.colorScheme = ColorScheme::dark;
  screen.setAppearance(dark);
  EXPECT_EQ(screen.findText("tag").color(), white);
}

TEST(ZQCapsuledText, standsInBodyOnDarkWhereNothingIsSaid) {
  Harness screen(ZQCapsuledText({.text = "tag"}));
  EXPECT_EQ(screen.findText("tag").font, Font::body().resolve(screen.platform().textMeasurer()));
  EXPECT_THAT(screen.displayList(), testing::HasSubstr("black 0.8"));
}

}  // namespace
}  // namespace zq
