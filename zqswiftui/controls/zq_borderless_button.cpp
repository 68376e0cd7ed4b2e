// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/controls/zq_borderless_button.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kBeside = 3;
constexpr double kStacked = 10;

double pictureSide(ZQButton::Size size) {
  switch (size) {
    case ZQButton::Size::small:
      return 13;
    case ZQButton::Size::mini:
      return 22;
    case ZQButton::Size::normal:
      break;
  }
  return 17;
}

View pictureOf(const std::string& name, ZQButton::Size size) {
  return Image::named(name).resizable().frame(pictureSide(size), pictureSide(size));
}

struct Borderless {
  View picture;
  std::optional<std::string> label;
  std::string name;  // read out where there is no label
  ZQButton::Size size;
  ZQBorderlessOrientation orientation;
  Action action;
};

View borderless(Context& context, const Borderless& b) {
  std::vector<View> parts{b.picture};
  if (b.label) parts.emplace_back(Text(*b.label).font(fontFor(b.size)));
  const View content =
      b.orientation == ZQBorderlessOrientation::horizontal
          ? View(HStack({.alignment = VerticalAlignment::center, .spacing = kBeside}, parts))
          : View(VStack({.alignment = HorizontalAlignment::center, .spacing = kStacked}, parts));
  Accessibility info;
  if (!b.label && !b.name.empty()) info.label = b.name;
  return hoverOpacity(context, 0.75, 1.0, [&](double opacity) {
    return content.opacity(opacity).onTap(b.action ? b.action : [] {}).accessibility(info);
  });
}

}  // namespace

View ZQBorderlessButton::body(Context& context) const {
  const Parameters& p = parameters_;
  return borderless(context, {Image::symbol(*p.systemImage).font(fontFor(p.size)), textLabel_, "",
                              p.size, p.orientation, *p.action});
}

View ZQBorderlessCustomImageButton::body(Context& context) const {
  const Parameters& p = parameters_;
  return borderless(context, {pictureOf(*p.image, p.size), textLabel_, *p.image, p.size,
                              p.orientation, *p.action});
}

View ZQBorderlessSmallButton::body(Context& context) const {
  const Parameters& p = parameters_;
  constexpr auto kSize = ZQButton::Size::small;
  View picture;
  if (p.systemImage) {
    picture = Image::symbol(*p.systemImage).font(fontFor(kSize));
  } else if (p.image) {
    picture = pictureOf(*p.image, kSize);
  }
  const std::string name = p.systemImage ? std::string() : p.image.value_or("Button");
  return borderless(
      context, {picture, textLabel_, name, kSize, ZQBorderlessOrientation::horizontal, *p.action});
}

View ZQImageButton::body(Context& context) const {
  const Image image = Image::named(image_);
  const View picture =
      parameters_.side
          ? image.resizable().frame({.width = parameters_.side, .height = parameters_.side})
          : View(image);
  return borderless(context, {picture, std::nullopt, name_, ZQButton::Size::normal,
                              ZQBorderlessOrientation::horizontal, *parameters_.action});
}

}  // namespace zq
