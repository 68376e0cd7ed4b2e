// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
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

constexpr double kLeastContrast = 4.5;  // of texts, WCAG 2.2, success criterion 1.4.3
constexpr double kDisabled = 0.5;       // what shows no stronger is disabled, or not there

struct Light {
  double red, green, blue;
};

Light over(const RGBA& front, double opacity, const Light& behind) {
  const double alpha = static_cast<double>(front.alpha) * opacity;
  const auto mixed = [alpha](float a, double b) {
    return alpha * static_cast<double>(a) + (1 - alpha) * b;
  };
  return {mixed(front.red, behind.red), mixed(front.green, behind.green),
          mixed(front.blue, behind.blue)};
}

// Relative luminance and contrast ratio as WCAG 2.2 defines them, in its glossary.
double luminance(const Light& light) {
  const auto linear = [](double c) {
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(light.red) + 0.7152 * linear(light.green) + 0.0722 * linear(light.blue);
}

double contrast(const Light& a, const Light& b) {
  const auto [less, more] = std::minmax({luminance(a), luminance(b)});
  return (more + 0.05) / (less + 0.05);
}

// What fills an area, or writes on it; strokes are neither.
const Color* colorOf(const DrawCommand& command, bool& writes) {
  const auto plain = [](const Paint& paint) { return std::get_if<Color>(&paint); };
  writes = true;
  if (const auto* text = std::get_if<DrawText>(&command)) return &text->color;
  if (const auto* symbol = std::get_if<DrawSymbol>(&command)) return &symbol->color;
  writes = false;
  if (const auto* fill = std::get_if<FillRect>(&command)) return plain(fill->paint);
  if (const auto* fill = std::get_if<FillRoundedRect>(&command)) return plain(fill->paint);
  if (const auto* fill = std::get_if<FillPath>(&command)) return plain(fill->paint);
  return nullptr;
}

std::string nameOf(const DrawCommand& command) {
  const auto* text = std::get_if<DrawText>(&command);
  return text ? text->content->text : std::get<DrawSymbol>(command).name;
}

// Lays what is drawn one over the other in the middle of each text and symbol.
void expectReadable(Harness& h, ColorScheme scheme) {
  const std::vector<DrawnCommand> all = h.drawn();
  for (std::size_t i = 0; i < all.size(); ++i) {
    bool writes = false;
    const Color* ink = colorOf(all[i].command, writes);
    if (!ink || !writes || all[i].visible.empty() || all[i].opacity < kDisabled) continue;
    const Point middle{all[i].bounds.midX(), all[i].bounds.midY()};
    Light ground = over(Color::background().resolve(scheme), 1, {});
    for (std::size_t behind = 0; behind < i; ++behind) {
      bool text = false;
      const Color* fill = colorOf(all[behind].command, text);
      if (!fill || text || !all[behind].visible.contains(middle)) continue;
      ground = over(fill->resolve(scheme), all[behind].opacity, ground);
    }
    const Light seen = over(ink->resolve(scheme), all[i].opacity, ground);
    EXPECT_GE(contrast(seen, ground), kLeastContrast) << nameOf(all[i].command);
  }
}

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
  const View both = VStack({Text("primary"), Image::symbol("star"),
                            View(Text("secondary")).foregroundColor(Color::secondary()),
                            View(Text("gray")).foregroundColor(Color::gray())});
  return {
      {"window", both},
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
