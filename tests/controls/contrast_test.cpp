// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <tests/toolkit/contrast.hpp>
#include <zqswiftui/controls/icon_buttons.hpp>
#include <zqswiftui/controls/list_line.hpp>
#include <zqswiftui/controls/menu.hpp>
#include <zqswiftui/controls/number_field.hpp>
#include <zqswiftui/controls/number_label.hpp>
#include <zqswiftui/controls/picker.hpp>
#include <zqswiftui/controls/push_button.hpp>
#include <zqswiftui/controls/switch.hpp>
#include <zqswiftui/controls/zq_borderless_button.hpp>
#include <zqswiftui/controls/zq_button.hpp>
#include <zqswiftui/controls/zq_cancel_continue_lower_bar.hpp>
#include <zqswiftui/controls/zq_capsuled_text.hpp>
#include <zqswiftui/controls/zq_favorite_button.hpp>
#include <zqswiftui/controls/zq_labeled_spinner.hpp>
#include <zqswiftui/controls/zq_large_square_button.hpp>
#include <zqswiftui/controls/zq_plus_minus_buttons.hpp>
#include <zqswiftui/controls/zq_progress_bar_view.hpp>
#include <zqswiftui/controls/zq_tooltip_question_mark.hpp>
#include <zqswiftui/layout/selection_list.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

using contrasts::expectReadable;

View rows() {
  const auto name = [](std::size_t i) { return "row " + std::to_string(i); };
  return SelectionList(
      {.count = std::size_t{4},
       .rowHeight = 24,
       .key = name,
       .row =
           [name](std::size_t i) {
             return HStack(
                 {Text(name(i)), View(Text("second")).foregroundColor(Color::secondary())});
           },
       .selection = Binding<std::optional<std::string>>::constant("row 1")});
}

std::vector<std::pair<std::string, View>> controls() {
  const std::function<void()> nothing = [] {};
  const auto first = Binding<std::size_t>::constant(0);
  std::vector<View> inks{Text("primary"), Image::symbol("star")};
  for (const Color& ink : {Color::secondary(), Color::accent(), Color::gray(), Color::red(),
                           Color::blue(), Color::purple(), Color::brown()}) {
    inks.push_back(View(Text(ink.description())).foregroundColor(ink));
  }
  const View both = VStack(inks);
  return {
      {"window", both},
      {"card", both.background(Color::primary().opacity(0.04))},
      {"lit", HStack({listLine({.title = "lit", .checked = true, .lit = true}),
                      View(Text("secondary"))
                          .foregroundColor(Color::secondary())
                          .background(lineGround(LineGround::chosen))})},
      {"list", rows()},
      {"picker", Picker({.label = "Kind", .choices = {"PNG", "JPEG"}, .selection = first})},
      {"menu", MenuBar({{"File",
                         {{.title = "Save",
                           .action = nothing,
                           .shortcut = Shortcut::control("s"),
                           .checked = true}}}})},
      {"number", VStack({NumberLabel("Width", {.value = Binding<double>::constant(2)}),
                         NumberField({.label = "Width", .value = Binding<double>::constant(2)})})},
      {"push buttons", HStack({PushButton("Copy", {.symbol = "doc.on.doc", .action = nullptr}),
                               PushButton("Save", {.action = nullptr, .prominent = true})})},
      {"switch", Switch("Alpha", Binding<bool>::constant(true))},
      {"borderless", ZQBorderlessSmallButton("Add", {.systemImage = "plus", .action = nothing})},
      {"square", ZQLargeSquareButton("Pictures", {.systemImage = "star", .action = nothing})},
      {"progress", ZQProgressBarView({.percentage = 0.4, .showPercentage = true})},
      {"spinner", ZQLabeledSpinner({.label = "Loading"})}};
}

// Buttons whose symbols and labels take the foreground colour, at rest at three quarters of it.
View buttons() {
  constexpr auto kSize = ZQButton::Size::normal;
  constexpr auto kBeside = ZQBorderlessButton::Orientation::horizontal;
  const std::function<void()> nothing = [] {};
  return VStack(
      {HStack({ZQOkButton("OK", {.size = kSize, .action = nothing}),
               ZQCancelButton({.size = kSize}), ZQContinueButton({.size = kSize}), ZQCopyButton({}),
               ZQDeleteButton({.fill = true, .size = kSize, .action = nothing})}),
       HStack({ZQDownloadButton({.action = nothing}), ZQLinkButton({.action = nothing}),
               ZQSettingsButton("Settings", {}), ZQHamburgerButton({.action = nothing}),
               ZQPlayPauseButton({.isPlaying = true, .action = nothing})}),
       HStack(
           {ZQPlusButton(
                {.label = "Add", .style = ZQPlusMinusButtonStyle::circle, .action = nothing}),
            ZQMinusButton({.style = ZQPlusMinusButtonStyle::flat, .action = nothing}),
            ZQTooltipQuestionMark("help"),
            ZQBorderlessButton(
                "Export",
                {.icon = "arrow.up", .size = kSize, .orientation = kBeside, .action = nothing})}),
       ZQCancelContinueLowerBar({.onCancel = nothing, .onContinue = nothing})});
}

// Their colours are part of what they are: white at 0.8 on a capsule that lets the window through,
// and a star that is yellow. On a dark ground, for which they are made, both can be read.
View madeForDarkGrounds() {
  return VStack({ZQButton("plain", {.size = ZQButton::Size::normal, .action = nullptr}),
                 ZQButton("blue", {.icon = "star",
                                   .size = ZQButton::Size::normal,
                                   .backgroundColor = Color::blue(),
                                   .action = nullptr}),
                 ZQFavoriteButton({.isFavorite = Binding<bool>::constant(true)})});
}

TEST(Contrast, ofTextsAndSymbolsIsEnoughInBothSchemes) {
  for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
    auto all = controls();
    all.emplace_back("buttons", buttons());
    if (scheme == ColorScheme::dark) all.emplace_back("for dark grounds", madeForDarkGrounds());
    for (const auto& [name, control] : all) {
      SCOPED_TRACE(name + (scheme == ColorScheme::dark ? ", dark" : ", light"));
      Harness h(control, {300, 200});
      h.setAppearance({.colorScheme = scheme});
      expectReadable(h, scheme);
      h.tab();
      h.key(Key::space);  // what opens is open now
      h.key(Key::down);
      if (const Element row = h.find(Role::listItem, "row 2 second")) h.hover(row);
      expectReadable(h, scheme);
    }
  }
}

TEST(Contrast, isEnoughOnEveryNamedColourThatACallerGives) {
  using Name = Color::Name;
  const std::function<void()> nothing = [] {};
  for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
    for (auto name = static_cast<int>(Name::black); name <= static_cast<int>(Name::brown); ++name) {
      const Color color = Color::named(static_cast<Name>(name));
      SCOPED_TRACE(color.description() + (scheme == ColorScheme::dark ? ", dark" : ", light"));
      const View square = ZQLargeSquareButton(
          "square", {.systemImage = "star", .backgroundColor = color, .action = nothing});
      const View selectable = ZQLargeSquareSelectableButton(
          "choice",
          {.systemImage = "moon", .isSelected = true, .backgroundColor = color, .action = nothing});
      Harness h(VStack({ZQCapsuledText({.text = "capsule", .backgroundColor = color}), square,
                        selectable}),
                {200, 300});
      h.setAppearance({.colorScheme = scheme});
      expectReadable(h, scheme);
      for (const char* const lit : {"square", "choice"}) {
        h.hover(h.findText(lit));
        expectReadable(h, scheme);
      }
    }
  }
}

}  // namespace
}  // namespace zq
