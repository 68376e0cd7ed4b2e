// ZQSwiftUI, MIT licence; see LICENSE.
#include <utility>
#include <zqswiftui/controls/hover_opacity.hpp>
#include <zqswiftui/controls/zq_borderless_button.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

using Orientation = ZQBorderlessButton::Orientation;

View squarePicture(const std::string& name, ZQButton::Size size) {
  const double side = heightOf(size);
  return Image::named(name).resizable().frame(
      {.width = side, .height = side, .growsWithText = true});
}

// What stands in a borderless button, and how: the members differ in the picture alone.
struct Borderless {
  View picture;  // may be empty
  std::optional<std::string> label;
  ZQButton::Size size;
  Orientation orientation;
  std::function<void()> action;
};

View arranged(const Borderless& b) {
  std::vector<View> parts;
  if (!b.picture.empty()) parts.push_back(b.picture);
  if (b.label) parts.push_back(Text(*b.label).font(fontOf(b.size)));
  if (b.orientation == Orientation::vertical) return VStack({.spacing = 10}, std::move(parts));
  return HStack({.spacing = 3}, std::move(parts));
}

View borderlessBody(const Borderless& b, Context& context) {
  const auto opacity = context.state(kRestingOpacity);
  return arranged(b)
      .opacity(*opacity)
      .onTap([action = b.action] {
        if (action) action();
      })
      .onHover(brightenUnderPointer(opacity));
}

}  // namespace

ZQBorderlessButton::ZQBorderlessButton(std::optional<std::string> label, Parameters parameters)
    : textLabel_(std::move(label)), parameters_(std::move(parameters)) {}

ZQBorderlessButton::ZQBorderlessButton(std::optional<std::string> label,
                                       const SystemImageParameters& p)
    : ZQBorderlessButton(std::move(label),
                         Parameters{p.systemImage, p.size, p.orientation, p.action}) {}

ZQBorderlessCustomImageButton::ZQBorderlessCustomImageButton(std::optional<std::string> label,
                                                             Parameters parameters)
    : textLabel_(std::move(label)), parameters_(std::move(parameters)) {}

ZQBorderlessSmallButton::ZQBorderlessSmallButton(std::optional<std::string> label,
                                                 Parameters parameters)
    : textLabel_(std::move(label)), parameters_(std::move(parameters)) {}

ZQImageButton::ZQImageButton(std::string image, Parameters parameters)
    : image_(std::move(image)), parameters_(std::move(parameters)) {}

View ZQBorderlessButton::body(Context& context) const {
  const auto& p = parameters_;
  const View symbol = Image::symbol(p.icon).font(fontOf(p.size));
  return borderlessBody({symbol, textLabel_, p.size, p.orientation, p.action}, context);
}

View ZQBorderlessCustomImageButton::body(Context& context) const {
  const auto& p = parameters_;
  const View button = borderlessBody(
      {squarePicture(p.image, p.size), textLabel_, p.size, p.orientation, p.action}, context);
  return textLabel_ ? button : button.accessibilityLabel(p.image);
}

View ZQBorderlessSmallButton::body(Context& context) const {
  constexpr auto kSize = ZQButton::Size::small;
  const auto& p = parameters_;
  View picture;
  if (p.systemImage) {
    picture = Image::symbol(*p.systemImage).font(fontOf(kSize));
  } else if (p.image) {
    picture = squarePicture(*p.image, kSize);
  }
  const View button =
      borderlessBody({picture, textLabel_, kSize, Orientation::horizontal, p.action}, context);
  const bool named = textLabel_ || p.systemImage || !p.image;
  return named ? button : button.accessibilityLabel(*p.image);
}

View ZQImageButton::body(Context& context) const {
  const auto& p = parameters_;
  return borderlessBody({squarePicture(image_, p.size), std::nullopt, p.size,
                         Orientation::horizontal, p.action},
                        context)
      .accessibilityLabel(p.accessibleName.empty() ? image_ : p.accessibleName);
}

}  // namespace zq
