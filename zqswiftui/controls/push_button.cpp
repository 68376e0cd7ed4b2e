// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/list_line.hpp>
#include <zqswiftui/controls/push_button.hpp>
#include <zqswiftui/platform/toolkit/button.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kHeight = 28;
constexpr double kPushRadius = 6;
constexpr double kSides = 12;

Color groundOf(bool prominent, bool hovered) {
  if (prominent) return prominentGround(hovered);
  return Color::primary().opacity(hovered ? 0.14 : 0.08);
}

}  // namespace

PushButton::PushButton(std::string title, Parameters parameters)
    : title_(std::move(title)), parameters_(std::move(parameters)) {}

View PushButton::body(Context& context) const {
  auto hovered = context.state(false);
  std::vector<View> parts;
  if (!parameters_.symbol.empty()) parts.push_back(Image::symbol(parameters_.symbol));
  parts.push_back(Text(title_).lineLimit(1));
  const bool prominent = parameters_.prominent;
  const View label =
      HStack({.spacing = 6}, std::move(parts))
          .foregroundColor(prominent ? Color::white() : Color::primary())
          .padding(EdgeInsets::symmetric(kSides, 0))
          .frame({.height = kHeight, .growsWithText = true})
          .background(RoundedRectangle(kPushRadius).fill(groundOf(prominent, *hovered)));
  return Button(parameters_.action, label)
      .accessibilityLabel(title_)
      .onHover([hovered](bool inside) { hovered.set(inside); })
      .opacity(context.environment<EnabledKey>() ? 1 : kDisabledOpacity);
}

}  // namespace zq
