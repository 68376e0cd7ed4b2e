// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/hover_opacity.hpp>
#include <zqswiftui/controls/zq_button.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kEndInset = 8;     // keeps the title out of the round ends
constexpr double kImageMargin = 3;  // above and below a picture

}  // namespace

ZQButton::ZQButton(std::string title, Parameters parameters)
    : title_(std::move(title)), parameters_(std::move(parameters)) {}

Font fontOf(ZQButton::Size size) {
  switch (size) {
    case ZQButton::Size::small:
      return Font::caption();
    case ZQButton::Size::mini:
      return Font::title2();
    case ZQButton::Size::normal:
      break;
  }
  return Font::body();
}

double heightOf(ZQButton::Size size) {
  switch (size) {
    case ZQButton::Size::small:
      return 18;
    case ZQButton::Size::mini:
      return 30;
    case ZQButton::Size::normal:
      break;
  }
  return 20;
}

View ZQButton::content() const {
  std::vector<View> row;
  if (parameters_.icon) {
    row.push_back(Image::symbol(*parameters_.icon));
  } else if (parameters_.image) {
    const double side = heightOf(parameters_.size) - 2 * kImageMargin;
    row.push_back(Image::named(*parameters_.image)
                      .resizable()
                      .frame({.width = side, .height = side, .growsWithText = true}));
  }
  row.push_back(Text(title_).lineLimit(1));
  return HStack({.alignment = VerticalAlignment::center, .spacing = 4}, std::move(row))
      .font(fontOf(parameters_.size))
      .foregroundColor(Color::white().opacity(0.8))
      .padding(EdgeInsets::symmetric(kEndInset, 0))
      .frame({.width = parameters_.width,
              .height = heightOf(parameters_.size),
              .growsWithText = true});
}

View ZQButton::background() const {
  const Capsule capsule(CornerStyle::continuous);
  if (parameters_.backgroundGradient) return capsule.fill(*parameters_.backgroundGradient);
  return capsule.fill(parameters_.backgroundColor.value_or(Color::gray()));
}

View ZQButton::body(Context& context) const {
  const double resting = isColored() ? 0.5 : 0.1;
  const double hover = isColored() ? 0.75 : 0.3;
  const auto opacity = context.state(resting);
  return content()
      .background(background().opacity(*opacity))
      .onTap([action = parameters_.action.get()] {
        if (action) action();
      })
      .onHover(brightenUnderPointer(opacity, resting, hover));
}

}  // namespace zq
