// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/icon_buttons.hpp>
#include <zqswiftui/controls/zq_favorite_button.hpp>
#include <zqswiftui/controls/zq_plus_minus_buttons.hpp>

namespace zq::gallery {
namespace {

// [code]
using Style = ZQPlusMinusButtonStyle;

struct SwitchingButtons {
  View body(Context& context) const {
    auto playing = context.state(false);
    auto favorite = context.state(true);
    auto menu = context.state(false);
    auto count = context.state(3);
    const auto add = [count](int by) {
      return [count, by] { count.set(*count + by); };
    };
    const auto stepper = [&](Style style) {
      return HStack({.spacing = 12},
          {ZQMinusButton(
               {.style = style, .color = Color::blue(), .action = add(-1)}),
              Text(std::to_string(*count)).frame({.width = 32}),
              ZQPlusButton({.style = style,
                  .color = Color::blue(),
                  .action = add(1)})});
    };
    const View stars =
        samples({sample("bound to one value",
                     ZQFavoriteButton({.isFavorite = favorite.binding()})),
            sample("and again, in purple",
                ZQFavoriteButton({.isFavorite = favorite.binding(),
                    .color = Color::purple()}))});
    return cards({
        card("ZQPlayPauseButton",
            HStack({.spacing = 12},
                {ZQPlayPauseButton({.isPlaying = *playing,
                     .size = ZQButton::Size::mini,
                     .action = [playing] { playing.set(!*playing); }}),
                    Text(*playing ? "Playing" : "Paused")})),
        card("ZQFavoriteButton", stars),
        card("ZQPlusButton and ZQMinusButton",
            samples({sample("flat", stepper(Style::flat)),
                sample("circle", stepper(Style::circle)),
                sample("circleFill", stepper(Style::circleFill))})),
        card(
            "ZQPlusButton with a label", ZQPlusButton({.label = "Add a row",
                                             .style = Style::circleFill,
                                             .action = add(1)})),
        card("ZQHamburgerButton",
            ZQHamburgerButton({.size = ZQButton::Size::mini,
                                  .action = [menu] { menu.set(true); }})
                .popover(menu.binding(), Text("A menu").padding(16))),
        card("Light and dark", lightAndDark(stars)),
        card("Disabled", stepper(Style::circle).disabled()),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::switching_buttons() {
  return page<SwitchingButtons>("Controls", "Buttons that switch",
      "Play and pause, favourite, plus and minus, hamburger: each "
      "bound to a value.");
}

}  // namespace zq::gallery
