// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/hover_opacity.hpp>
#include <zqswiftui/controls/zq_capsuled_text.hpp>
#include <zqswiftui/controls/zq_large_square_button.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/environment.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kSquareSide = 96;
constexpr double kSquareRadius = 10;

View face(const std::string& title, const std::string& symbol) {
  return VStack({.spacing = 8}, {Image::symbol(symbol).font(Font::largeTitle()),
                                 Text(title)
                                     .font(Font::caption())
                                     .multilineTextAlignment(TextAlignment::center)
                                     .lineLimit(2)})
      .padding(6)
      .frame({.width = kSquareSide, .height = kSquareSide, .growsWithText = true});
}

// Whatever is drawn over the face must lie inside of what is pressed, or it would take the click.
View square(const ZQLargeSquareButton::Parameters& p, View face, Context& context) {
  const double resting = p.backgroundColor ? 0.5 : 0.1;
  const double hover = p.backgroundColor ? 0.75 : 0.3;
  const auto opacity = context.state(resting);
  if (p.backgroundColor) {
    const ColorScheme scheme = context.environment<ColorSchemeKey>();
    face = face.foregroundColor(readableTextColor(p.backgroundColor->opacity(*opacity), scheme));
  }
  return face
      .background(RoundedRectangle(kSquareRadius)
                      .fill(p.backgroundColor.value_or(Color::gray()))
                      .opacity(*opacity))
      .onTap([action = p.action.get()] {
        if (action) action();
      })
      .onHover(brightenUnderPointer(opacity, resting, hover));
}

}  // namespace

ZQLargeSquareButton::ZQLargeSquareButton(std::string title, Parameters parameters)
    : title_(std::move(title)), parameters_(std::move(parameters)) {}

ZQLargeSquareSelectableButton::ZQLargeSquareSelectableButton(std::string title,
                                                             Parameters parameters)
    : title_(std::move(title)), parameters_(std::move(parameters)) {}

View ZQLargeSquareButton::body(Context& context) const {
  return square(parameters_, face(title_, parameters_.systemImage), context);
}

View ZQLargeSquareSelectableButton::body(Context& context) const {
  const auto& p = parameters_;
  const View border =
      p.isSelected
          ? RoundedRectangle(kSquareRadius).stroke(Color::accent(), {.lineWidth = 2, .dash = {}})
          : View();
  Accessibility info;
  info.role = Role::toggle;
  info.checked = p.isSelected;
  return square({.systemImage = p.systemImage,
                 .backgroundColor = p.backgroundColor,
                 .action = p.action},
                face(title_, p.systemImage).overlay(border), context)
      .accessibility(info);
}

}  // namespace zq
