// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/controls/zq_large_square_button.hpp>
#include <zqswiftui/platform/toolkit/image.hpp>
#include <zqswiftui/platform/toolkit/shapes.hpp>
#include <zqswiftui/platform/toolkit/stacks.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>

namespace zq {
namespace {

constexpr double kCorner = 12;
constexpr double kInset = 8;
constexpr double kSymbolPart = 0.3;  // of the side

struct Tile {
  std::string title;
  std::string symbol;
  double side;
  std::optional<Color> color;
  bool framed;
  Action action;
};

View tile(Context& context, const Tile& t) {
  const View content = VStack({.alignment = HorizontalAlignment::center, .spacing = kInset},
                              {Image::symbol(t.symbol)
                                   .font(Font::system(t.side * kSymbolPart))
                                   .foregroundColor(t.color),
                               Text(t.title)
                                   .font(Font::caption())
                                   .multilineTextAlignment(TextAlignment::center)
                                   .lineLimit(2)})
                           .padding(kInset)
                           .frame(t.side, t.side);
  const RoundedRectangle ground(kCorner, CornerStyle::continuous);
  const View frame =
      t.framed
          ? View(ground.stroke(t.color.value_or(Color::accent()), {.lineWidth = 2, .dash = {}}))
          : View();
  return hoverOpacity(context, 0.1, 0.3, [&](double opacity) {
    return content.background(ground.fill(Color::gray()).opacity(opacity))
        .overlay(frame)
        .onTap(t.action ? t.action : [] {});
  });
}

}  // namespace

View ZQLargeSquareButton::body(Context& context) const {
  const Parameters& p = parameters_;
  return tile(context, {title_, *p.systemImage, p.side, p.color, false, *p.action});
}

View ZQLargeSquareSelectableButton::body(Context& context) const {
  const Parameters& p = parameters_;
  const bool on = p.isSelected->get();
  const auto press = [binding = *p.isSelected, callback = p.callback] {
    const bool now = !binding.get();
    binding.set(now);
    if (callback) callback(now);
  };
  Accessibility info;
  info.role = Role::toggle;
  info.checked = on;
  return tile(context, {title_, *p.systemImage, p.side, on ? std::optional(p.color) : std::nullopt,
                        on, press})
      .accessibility(info);
}

}  // namespace zq
