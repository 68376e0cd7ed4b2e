// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/picker.hpp>
#include <zqswiftui/controls/push_button.hpp>
#include <zqswiftui/controls/switch.hpp>

namespace zq::gallery {
namespace {

// [code]
struct Choices {
  View body(Context& context) const {
    auto follows = context.state(true);
    auto type = context.state(std::size_t{1});
    const View switches =
        VStack({.alignment = HorizontalAlignment::trailing},
            {Switch("Follow edits", follows.binding()),
                Switch("The same once more", follows.binding())});
    const View picker = Picker({.label = "Type",
        .choices = {"number", "text", "switch", "point"},
        .selection = type.binding()});
    const auto turn = [follows] { follows.set(!*follows); };
    const View buttons = HStack({.spacing = 8},
        {PushButton("Later", {.action = turn}),
            PushButton("Copy", {.symbol = "doc.on.doc", .action = turn}),
            PushButton("Save", {.action = turn, .prominent = true})});
    return cards({
        card("Switch", switches),
        card("Picker", HStack({Text("Type"), picker})),
        card("PushButton", buttons),
        card("Light and dark",
            lightAndDark(HStack({.spacing = 16},
                {Switch("", follows.binding()), picker, buttons}))),
        card("Disabled",
            HStack({.spacing = 16},
                {Switch("Off limits", follows.binding()), picker})
                .disabled()),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::choices() {
  return page<Choices>("Controls", "Switches, pickers and push buttons",
      "On or off, one of several texts, and what is pressed in forms.");
}

}  // namespace zq::gallery
