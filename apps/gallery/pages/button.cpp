// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/zq_button.hpp>

namespace zq::gallery {
namespace {

// [code]
View button(const std::string& title, ZQButton::Size size,
    std::optional<Color> color) {
  return ZQButton(title, {.icon = "arrow.up",
                             .size = size,
                             .backgroundColor = color,
                             .action = [] {}});
}

View sizes(std::optional<Color> color) {
  return samples(
      {sample("normal", button("Export", ZQButton::Size::normal, color)),
          sample("small", button("Export", ZQButton::Size::small, color)),
          sample("mini", button("Export", ZQButton::Size::mini, color))});
}

View colors() {
  std::vector<View> all;
  for (const Color& color : {Color::blue(), Color::indigo(),
           Color::purple(), Color::pink(), Color::red(), Color::gray()}) {
    all.push_back(sample(color.description(),
        button("Export", ZQButton::Size::normal, color)));
  }
  return samples(std::move(all));
}

View gradients() {
  const auto gradient = [](Color from, Color to) {
    return LinearGradient::of(
        {from, to}, UnitPoint::leading(), UnitPoint::trailing());
  };
  return samples(
      {ZQButton("Sunrise", {.width = 120,
                               .size = ZQButton::Size::normal,
                               .backgroundGradient =
                                   gradient(Color::purple(), Color::red()),
                               .action = [] {}}),
          ZQButton("Sea", {.width = 120,
                              .size = ZQButton::Size::normal,
                              .backgroundGradient =
                                  gradient(Color::blue(), Color::indigo()),
                              .action = [] {}})});
}

struct Buttons {
  View body(Context& context) const {
    auto presses = context.state(0);
    const View counting = ZQButton("Press me",
        {.width = 140,
            .size = ZQButton::Size::mini,
            .backgroundColor = Color::blue(),
            .action = [presses] { presses.set(*presses + 1); }});
    return cards({
        card("Press it",
            onDark(HStack({.spacing = 16},
                {counting, Text(std::to_string(*presses) + " presses")}))),
        card("Sizes, with a colour and without",
            onDark(VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 16},
                {sizes(Color::blue()), sizes(std::nullopt)}))),
        card("Colours", onDark(colors())),
        card("Gradients and a fixed width", onDark(gradients())),
        card("Disabled",
            onDark(button("Export", ZQButton::Size::normal, Color::blue())
                       .disabled())),
        card("Light and dark", lightAndDark(sizes(Color::indigo()))),
        card("Right to left",
            bothDirections(onDark(button(
                "Export", ZQButton::Size::normal, Color::purple())))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::button() {
  return page<Buttons>("Controls", "ZQButton",
      "A titled capsule in three sizes. It brightens at once under the "
      "pointer and fades back.");
}

}  // namespace zq::gallery
