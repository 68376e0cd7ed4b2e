// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/controls/zq_button.hpp>
#include <zqswiftui/platform/toolkit/animation.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kSpacing = 4;
constexpr double kEnds = 10;  // between the capsule's ends and what is in it

double heightFor(ZQButtonSize size) {
  switch (size) {
    case ZQButtonSize::small:
      return 18;
    case ZQButtonSize::mini:
      return 30;
    case ZQButtonSize::normal:
      break;
  }
  return 20;
}

}  // namespace

Font fontFor(ZQButtonSize size) {
  switch (size) {
    case ZQButtonSize::small:
      return Font::caption();
    case ZQButtonSize::mini:
      return Font::title2();
    case ZQButtonSize::normal:
      break;
  }
  return Font::body();
}

View hoverOpacity(Context& context, double resting, double hovered,
                  const std::function<View(double)>& draw) {
  const auto inside = context.state(false);
  return draw(*inside ? hovered : resting).onHover([inside](bool now) {
    if (now) return inside.set(true);
    withAnimation(Animation::standard(), [&] { inside.set(false); });
  });
}

View ZQButton::body(Context& context) const {
  const Parameters& p = parameters_;
  const bool plain = !p.backgroundColor && !p.backgroundGradient;
  const Font font = fontFor(p.size);
  const Color white = Color::white().opacity(0.8);
  std::vector<View> row;
  if (p.icon) row.emplace_back(Image::symbol(*p.icon).font(font).foregroundColor(white));
  if (p.image) {
    const double side = heightFor(p.size) - 4;
    row.emplace_back(Image::named(*p.image).resizable().frame(side, side));
  }
  row.emplace_back(Text(title_).font(font).foregroundColor(white).lineLimit(1));
  const View content = HStack({.alignment = VerticalAlignment::center, .spacing = kSpacing}, row)
                           .padding(EdgeInsets::symmetric(p.width ? 0 : kEnds, 0))
                           .frame({.width = p.width, .height = heightFor(p.size)});
  const ShapeView capsule =
      p.backgroundGradient
          ? Capsule(CornerStyle::continuous).fill(*p.backgroundGradient)
          : Capsule(CornerStyle::continuous).fill(p.backgroundColor.value_or(Color::gray()));
  return hoverOpacity(context, plain ? 0.1 : 0.5, plain ? 0.3 : 0.75, [&](double opacity) {
    return content.background(capsule.opacity(opacity)).onTap(*p.action ? *p.action : [] {});
  });
}

}  // namespace zq
