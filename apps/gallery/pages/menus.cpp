// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/menu.hpp>

namespace zq::gallery {
namespace {

// [code]
struct Menus {
  View body(Context& context) const {
    auto last = context.state(std::string("nothing yet"));
    auto wraps = context.state(true);
    const auto tell = [last](const std::string& what) {
      return [last, what] { last.set(what); };
    };
    const View bar = MenuBar({
        {"File", {{.title = "New",
                      .action = tell("New"),
                      .shortcut = Shortcut::control("n")},
                     {.title = "Save",
                         .action = tell("Save"),
                         .shortcut = Shortcut::control("s")},
                     MenuItem::separator(),
                     {.title = "Revert", .enabled = false}}},
        {"View", {{.title = "Wrap lines",
                     .action = [wraps] { wraps.set(!*wraps); },
                     .checked = *wraps}}},
    });
    const View row = ContextMenu(Text("Press the other button here")
                                     .padding(16)
                                     .background(RoundedRectangle(8).fill(
                                         Color::teal().opacity(0.2))),
        {{.title = "Rename", .action = tell("Rename")},
            {.title = "Delete", .action = tell("Delete")}});
    return cards({
        card("MenuBar", VStack({.alignment = HorizontalAlignment::leading},
                            {bar, HStack({Text("Chosen:"), Text(*last)})})),
        card("ContextMenu", row),
        card("Right to left", bothDirections(bar)),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::menus() {
  return page<Menus>("Controls", "Menus",
      "Side by side, or of one view; their shortcuts work while they are "
      "closed.");
}

}  // namespace zq::gallery
