// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <zqswiftui/controls/icon_buttons.hpp>
#include <zqswiftui/controls/menu.hpp>
#include <zqswiftui/controls/number_field.hpp>
#include <zqswiftui/controls/picker.hpp>
#include <zqswiftui/controls/switch.hpp>
#include <zqswiftui/controls/zq_borderless_button.hpp>
#include <zqswiftui/controls/zq_button.hpp>
#include <zqswiftui/controls/zq_capsuled_text.hpp>
#include <zqswiftui/controls/zq_large_square_button.hpp>
#include <zqswiftui/layout/zq_tags_view.hpp>
#include <zqswiftui/layout/zq_tokens_view.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

const std::function<void()> kNothing = [] {};

View button(ZQButton::Size size) {
  return ZQButton("Export", {.icon = "arrow.up", .size = size, .action = kNothing});
}

std::vector<std::pair<std::string, View>> controlsWithTexts() {
  const auto number = Binding<double>::constant(1920);
  const auto first = Binding<std::size_t>::constant(0);
  return {
      {"small", button(ZQButton::Size::small)},
      {"normal", button(ZQButton::Size::normal)},
      {"mini", button(ZQButton::Size::mini)},
      {"wide",
       ZQButton("Export as", {.width = 90, .size = ZQButton::Size::normal, .action = kNothing})},
      {"cancel", ZQCancelButton("Cancel", {.size = ZQButton::Size::normal, .action = kNothing})},
      {"borderless", ZQBorderlessSmallButton("Add", {.systemImage = "plus", .action = kNothing})},
      {"square", ZQLargeSquareButton("Pictures", {.systemImage = "star", .action = kNothing})},
      {"number", NumberField({.label = "Width", .value = number})},
      {"stepper", Stepper({.label = "Width", .value = number})},
      {"picker", Picker({.label = "Kind", .choices = {"PNG", "JPEG"}, .selection = first})},
      {"menu", MenuBar({{"File", {{.title = "Save", .action = kNothing}}}})},
      {"switch", Switch("Alpha", Binding<bool>::constant(true))},
      {"tags", ZQTagsView(std::vector<std::string>{"alpha", "beta"}, Color::teal())},
      {"tokens", ZQTokensView(Binding<std::vector<std::string>>::constant({"a", "b"}))},
      {"capsule", ZQCapsuledText({.text = "alpha", .backgroundColor = Color::teal()})}};
}

void expectInside(const Element& part, const Rect& all) {
  EXPECT_GE(part.bounds.x, all.x - 1e-9);
  EXPECT_GE(part.bounds.y, all.y - 1e-9);
  EXPECT_LE(part.bounds.maxX(), all.maxX() + 1e-9);
  EXPECT_LE(part.bounds.maxY(), all.maxY() + 1e-9);
}

TEST(TextScale, noControlIsTooSmallForItsTextAndSymbols) {
  for (const auto& [name, control] : controlsWithTexts()) {
    for (const double scale : {0.5, 1.0, 2.0, 4.0}) {
      SCOPED_TRACE(name + " at " + std::to_string(scale));
      Harness h(control.id("control"), {1000, 500});
      h.setAppearance({.textScale = scale});
      const Rect all = h.findId("control").bounds;
      for (const Element& text : h.texts()) expectInside(text, all);
      for (const Element& symbol : h.symbols()) expectInside(symbol, all);
      for (const DrawnCommand& drawn : h.drawn()) {
        const auto* text = std::get_if<DrawText>(&drawn.command);
        EXPECT_TRUE(!text || text->singleLine) << "cut off: " << text->content->text;
      }
    }
  }
}

TEST(TextScale, linesOfListsGrowSoThatNoneMeetsTheNext) {
  Harness h(Picker({.label = "Kind",
                    .choices = {"PNG", "JPEG"},
                    .selection = Binding<std::size_t>::constant(0)}),
            {600, 400});
  const auto between = [&](double scale) {
    h.setAppearance({.textScale = scale});
    h.click(h.button("Kind"));
    const double lines = h.button("JPEG").bounds.y - h.button("PNG").bounds.y;
    EXPECT_LE(h.findSymbol("checkmark").bounds.height, lines);
    h.key(Key::escape);
    return lines;
  };
  EXPECT_EQ(between(1), 24);
  EXPECT_EQ(between(2), 48);
}

}  // namespace
}  // namespace zq
