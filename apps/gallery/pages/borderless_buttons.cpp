// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/zq_borderless_button.hpp>

namespace zq::gallery {
namespace {

// [code]
using Orientation = ZQBorderlessButton::Orientation;

View button(ZQButton::Size size, Orientation orientation) {
  return ZQBorderlessButton("Export", {.systemImage = "square.and.arrow.up",
                                          .size = size,
                                          .orientation = orientation,
                                          .action = [] {}});
}

View sizes(Orientation orientation) {
  return samples(
      {sample("small", button(ZQButton::Size::small, orientation)),
          sample("normal", button(ZQButton::Size::normal, orientation)),
          sample("mini", button(ZQButton::Size::mini, orientation))});
}

View smallOnes() {
  return samples({ZQBorderlessSmallButton(
                      "Rename", {.systemImage = "pencil", .action = [] {}}),
      ZQBorderlessSmallButton(
          "Remove", {.systemImage = "trash", .action = [] {}}),
      ZQBorderlessSmallButton("Label alone", {.action = [] {}})});
}

View onColour() {
  const auto kind = Orientation::horizontal;
  return HStack({.spacing = 16}, {button(ZQButton::Size::small, kind),
                                     button(ZQButton::Size::normal, kind),
                                     button(ZQButton::Size::mini, kind)})
      .foregroundColor(Color::white())
      .padding(12)
      .background(RoundedRectangle(8).fill(Color::hex(0x3b3aa8)));
}

struct BorderlessButtons {
  View body(Context&) const {
    return cards({
        card("Side by side", sizes(Orientation::horizontal)),
        card("Stacked", sizes(Orientation::vertical)),
        card("Small", smallOnes()),
        card("White on a colour", onColour()),
        card("Disabled", smallOnes().disabled()),
        card("Light and dark", lightAndDark(button(ZQButton::Size::normal,
                                   Orientation::vertical))),
        card("Right to left", bothDirections(smallOnes())),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::borderless_buttons() {
  return page<BorderlessButtons>("Controls", "Borderless buttons",
      "A symbol with a label beside or below it; the whole brightens "
      "under the pointer.");
}

}  // namespace zq::gallery
