// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zqswiftui/controls/icon_buttons.hpp>
#include <zqswiftui/controls/zq_borderless_button.hpp>
#include <zqswiftui/controls/zq_button.hpp>
#include <zqswiftui/controls/zq_large_square_button.hpp>
#include <zqswiftui/controls/zq_plus_minus_buttons.hpp>
#include <zqswiftui/controls/zq_system_image_button.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/animation.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>

namespace zq {
namespace {

using Size = ZQButton::Size;
using Orientation = ZQBorderlessButton::Orientation;

const double kFade = Animation::standard().duration();

double backgroundOpacity(Harness& screen) {
  return screen.drawn().front().opacity;
}

TEST(ZQButton, hasTheHeightAndFontOfItsSize) {
  struct Case {
    Size size;
    double height;
    Font font;
  };
  for (const Case& c :
       {Case{Size::normal, 20, Font::body()}, Case{Size::small, 18, Font::caption()},
        Case{Size::mini, 30, Font::title2()}}) {
    Harness screen(ZQButton("Save", {.size = c.size, .action = nullptr}));
    const Element button = screen.button("Save");
    EXPECT_EQ(button.bounds.height, c.height);
    EXPECT_EQ(button.font, c.font.resolve(screen.platform().textMeasurer()));
    EXPECT_EQ(button.color(), Color::white().opacity(0.8));
  }
}

TEST(ZQButton, isAsWideAsItsContentUnlessAWidthIsGiven) {
  const auto width = [](std::optional<double> given, const char* title) {
    Harness screen(ZQButton(title, {.width = given, .size = Size::normal, .action = nullptr}));
    return screen.button(title).bounds.width;
  };
  EXPECT_EQ(width(120, "Save"), 120);
  EXPECT_GT(width({}, "Save everything"), width({}, "Save"));
  EXPECT_LT(width({}, "Save everything"), 200);
}

TEST(ZQButton, brightensAtOnceAndFadesBackSlowly) {
  const LinearGradient gradient = LinearGradient::of({Color::red(), Color::blue()});
  struct Case {
    std::optional<Color> color;
    std::optional<LinearGradient> gradient;
    double resting, hover;
  };
  const std::vector<Case> cases{
      {{}, {}, 0.1, 0.3}, {Color::teal(), {}, 0.5, 0.75}, {{}, gradient, 0.5, 0.75}};
  for (const Case& c : cases) {
    Harness screen(ZQButton("Save", {.size = Size::normal,
                                     .backgroundColor = c.color,
                                     .backgroundGradient = c.gradient,
                                     .action = nullptr}));
    EXPECT_NEAR(backgroundOpacity(screen), c.resting, 1e-6);
    screen.hover(screen.button("Save"));
    EXPECT_NEAR(backgroundOpacity(screen), c.hover, 1e-6);
    screen.leave();
    screen.advance(kFade / 2);
    EXPECT_GT(backgroundOpacity(screen), c.resting + 0.01);
    screen.advance(kFade);
    EXPECT_NEAR(backgroundOpacity(screen), c.resting, 1e-6);
  }
}

TEST(ZQButton, standsTheSymbolFourPointsBeforeTheTitle) {
  Harness screen(ZQButton("Open", {.icon = "gear", .size = Size::normal, .action = nullptr}));
  const Rect symbol = screen.findSymbol("gear").bounds, title = screen.findText("Open").bounds;
  EXPECT_NEAR(title.x - symbol.maxX(), 4, 1);
  EXPECT_NEAR(symbol.midY(), title.midY(), 1);
}

TEST(ZQSystemImageButton, drawsLargerSymbolsInMiniThanInNormal) {
  const auto height = [](Size size) {
    Harness screen(ZQSystemImageButton("gear", {.size = size, .action = nullptr}));
    return screen.findSymbol("gear").bounds.height;
  };
  EXPECT_GT(height(Size::mini), height(Size::normal));
  EXPECT_GT(height(Size::normal), height(Size::small));
}

TEST(ZQSystemImageButton, comesToRestAtThreeQuartersAfterThePointerHasPassed) {
  Harness screen(
      ZQSystemImageButton({.systemName = "gear", .color = Color::red(), .action = nullptr}));
  const auto opacity = [&] { return screen.findSymbol("gear").opacity; };
  EXPECT_NEAR(opacity(), 0.75, 1e-6);
  EXPECT_EQ(screen.findSymbol("gear").color(), Color::red());
  for (int i = 0; i < 5; ++i) {
    screen.hover(screen.findSymbol("gear"));
    EXPECT_NEAR(opacity(), 1, 1e-6) << "at once";
    screen.leave();
    screen.advance(0.02);
    EXPECT_GT(opacity(), 0.9) << "not at once";
  }
  screen.advance(kFade + 0.1);
  EXPECT_NEAR(opacity(), 0.75, 1e-6);
}

struct Named {
  const char* name;
  const char* symbol;
  std::function<View(std::function<void()>)> make;
};

const std::vector<Named>& family() {
  using Style = ZQPlusMinusButtonStyle;
  using Do = std::function<void()>;
  constexpr Size n = Size::normal;
  static const std::vector<Named> all{
      {"OK", "checkmark.circle", [](Do f) { return ZQOkButton({.size = n, .action = f}); }},
      {"Cancel", "xmark.circle", [](Do f) { return ZQCancelButton({.size = n, .action = f}); }},
      {"Continue", "arrow.right.circle",
       [](Do f) { return ZQContinueButton({.size = n, .action = f}); }},
      {"Delete", "delete.left",
       [](Do f) { return ZQDeleteButton({.fill = false, .size = n, .action = f}); }},
      {"Delete", "delete.left.fill",
       [](Do f) { return ZQDeleteButton({.fill = true, .size = n, .action = f}); }},
      {"Copy", "doc.on.doc", [](Do f) { return ZQCopyButton({.action = f}); }},
      {"Download", "icloud.and.arrow.down", [](Do f) { return ZQDownloadButton({.action = f}); }},
      {"Link", "link", [](Do f) { return ZQLinkButton({.action = f}); }},
      {"Settings", "gear", [](Do f) { return ZQSettingsButton({.action = f}); }},
      {"Add", "plus", [](Do f) { return ZQPlusButton({.style = Style::flat, .action = f}); }},
      {"Add", "plus.circle",
       [](Do f) { return ZQPlusButton({.style = Style::circle, .action = f}); }},
      {"Remove", "minus.circle.fill",
       [](Do f) { return ZQMinusButton({.style = Style::circleFill, .action = f}); }},
      {"Menu", "line.3.horizontal", [](Do f) { return ZQHamburgerButton({.action = f}); }},
      {"Play", "play.fill",
       [](Do f) { return ZQPlayPauseButton({.isPlaying = false, .action = f}); }},
      {"Pause", "pause.fill",
       [](Do f) { return ZQPlayPauseButton({.isPlaying = true, .action = f}); }},
      {"Save", "checkmark.circle",
       [](Do f) { return ZQOkButton("Save", {.size = n, .action = f}); }},
      {"Save", "plus",
       [](Do f) { return ZQPlusButton({.label = "Save", .style = Style::flat, .action = f}); }},
      {"Title", "gear",
       [](Do f) { return ZQButton("Title", {.icon = "gear", .size = n, .action = f}); }},
      {"Label", "gear",
       [](Do f) {
         return ZQBorderlessButton(
             "Label",
             {.systemImage = "gear", .size = n, .orientation = Orientation::vertical, .action = f});
       }},
      {"Small", "gear",
       [](Do f) { return ZQBorderlessSmallButton("Small", {.systemImage = "gear", .action = f}); }},
      {"Large", "gear",
       [](Do f) { return ZQLargeSquareButton("Large", {.systemImage = "gear", .action = f}); }},
  };
  return all;
}

TEST(ButtonFamily, showsItsSymbolAndItsNameAndAnswersToPointerAndKeys) {
  for (const Named& member : family()) {
    int presses = 0;
    Harness screen(member.make([&] { ++presses; }));
    ASSERT_TRUE(screen.findSymbol(member.symbol)) << member.symbol;
    const Element button = screen.button(member.name);
    ASSERT_TRUE(button) << member.name << "\n" << screen.accessibility();
    screen.tab();
    EXPECT_EQ(screen.focused().name, member.name);
    screen.key(Key::space);
    screen.key(Key::enter);
    EXPECT_EQ(presses, 2) << member.name;
    screen.click(button);
    EXPECT_EQ(presses, 3) << member.name;
  }
}

TEST(ButtonFamily, aNullActionDoesNothing) {
  for (const Named& member : family()) {
    Harness screen(member.make(nullptr));
    screen.click(screen.button(member.name));
    EXPECT_TRUE(screen.button(member.name));
  }
}

TEST(ButtonFamily, labelsStandRightOfTheSymbolAndCountAsTheButton) {
  int presses = 0;
  Harness screen(ZQCancelButton("Stop", {.size = Size::mini, .action = [&] { ++presses; }}));
  EXPECT_GT(screen.findText("Stop").bounds.x, screen.findSymbol("xmark.circle").bounds.maxX());
  screen.click(screen.findText("Stop"));
  EXPECT_EQ(presses, 1);
}

TEST(ZQBorderlessButton, arrangesLabelAndSymbolByOrientation) {
  const auto make = [](Orientation orientation) {
    return ZQBorderlessButton(
        "Export",
        {.icon = "link", .size = Size::small, .orientation = orientation, .action = nullptr});
  };
  Harness row(make(Orientation::horizontal)), column(make(Orientation::vertical));
  const auto parts = [](Harness& s) {
    return std::pair(s.findSymbol("link").bounds, s.findText("Export").bounds);
  };
  const auto [symbol, label] = parts(row);
  EXPECT_NEAR(label.x - symbol.maxX(), 3, 1);
  EXPECT_NEAR(label.midY(), symbol.midY(), 1);
  const auto [above, below] = parts(column);
  EXPECT_NEAR(below.y - above.maxY(), 10, 1);
  EXPECT_NEAR(below.midX(), above.midX(), 1);

  row.hover(row.button("Export"));
  EXPECT_NEAR(row.findText("Export").opacity, 1, 1e-6);
  row.leave();
  row.advance(kFade + 0.1);
  EXPECT_NEAR(row.findText("Export").opacity, 0.75, 1e-6);
}

TEST(ZQBorderlessButton, aMissingPictureLeavesTheNameToTheScreenReader) {
  const auto custom =
      ZQBorderlessCustomImageButton(std::nullopt, {.image = "logo",
                                                   .size = Size::mini,
                                                   .orientation = {Orientation::vertical},
                                                   .action = nullptr});
  Harness screen(
      VStack({custom, ZQImageButton("seal", {.accessibleName = "About", .action = nullptr}),
              ZQBorderlessSmallButton({}, {.image = "stamp", .action = nullptr})}));
  EXPECT_EQ(screen.button("logo").bounds.size(), (zq::Size{30, 30}));
  EXPECT_TRUE(screen.button("About"));
  EXPECT_TRUE(screen.button("stamp"));
}

TEST(ZQLargeSquareSelectableButton, tellsWhetherItIsSelected) {
  int presses = 0;
  const auto make = [&](bool selected) {
    return ZQLargeSquareSelectableButton(
        "Dark", {.systemImage = "gear", .isSelected = selected, .action = [&] { ++presses; }});
  };
  Harness screen(make(false));
  EXPECT_EQ(screen.find(Role::toggle, "Dark").checked, false);
  const auto plain = screen.drawn().size();
  screen.setRoot(make(true));
  EXPECT_EQ(screen.find(Role::toggle, "Dark").checked, true);
  EXPECT_GT(screen.drawn().size(), plain) << "a border can be seen";
  screen.click(screen.find(Role::toggle, "Dark"));
  EXPECT_EQ(presses, 1);
}

}  // namespace
}  // namespace zq
