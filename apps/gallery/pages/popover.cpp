// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>

namespace zq::gallery {
namespace {

// [code]
struct Popovers {
  View body(Context& context) const {
    auto shown = context.state(false);
    auto choice = context.state(std::string("Medium"));
    std::vector<View> rows;
    for (const char* name : {"Small", "Medium", "Large"}) {
      rows.push_back(Button(
          [choice, shown, name] {
            choice.set(name);
            shown.set(false);
          },
          HStack({.spacing = 8},
              {Image::symbol("checkmark").opacity(*choice == name ? 1 : 0),
                  Text(name)})));
    }
    const View menu =
        VStack({.alignment = HorizontalAlignment::leading, .spacing = 8},
            std::move(rows))
            .padding(12);
    const View opener = PushButton("Size: " + *choice, [shown] {
      shown.set(true);
    }).popover(shown.binding(), menu);
    return cards({
        card("A bubble beside its view",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {opener,
                    note("Escape, or a click elsewhere, closes it.")})),
        card("A help text",
            Text("Rest the pointer here").help("Shown after a moment")),
        card("Light and dark",
            lightAndDark(note("The bubble follows the window's colours."))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::popover() {
  return page<Popovers>("Toolkit", "Popover and help",
      "Content in a bubble, and texts that appear when the pointer "
      "rests.");
}

}  // namespace zq::gallery
