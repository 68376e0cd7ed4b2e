// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/number_field.hpp>
#include <zqswiftui/controls/number_label.hpp>

namespace zq::gallery {
namespace {

// [code]
struct Numbers {
  View body(Context& context) const {
    auto zoom = context.state(1.5);
    auto copies = context.state(2.0);
    const View field =
        View(NumberField({.label = "Zoom",
                 .value = zoom.binding(),
                 .range = {.least = 0.1, .most = 8, .step = 0.1}}))
            .frame({.width = 140, .growsWithText = true});
    const View stepper = Stepper({.label = "Copies",
        .value = copies.binding(),
        .range = {.least = 1, .most = 99, .decimals = 0}});
    const View line =
        View(Rectangle().fill(Color::accent())).frame(40 * *zoom, 6);
    return cards({
        card("NumberField, 0.1 to 8",
            VStack({.alignment = HorizontalAlignment::leading},
                {HStack({Text("Zoom"), field}), line})),
        card("NumberLabel, dragged to the side",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 4},
                {NumberLabel("Zoom",
                     {.value = zoom.binding(),
                         .range = {.least = 0.1, .most = 8, .step = 0.1}}),
                    field})),
        card("Stepper",
            HStack({Text(std::to_string(static_cast<int>(*copies)) +
                         (*copies == 1 ? " copy" : " copies")),
                stepper})),
        card("Light and dark", lightAndDark(field)),
        card("Right to left", bothDirections(field)),
        card("Disabled", field.disabled()),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::numbers() {
  return page<Numbers>("Controls", "Numbers",
      "Typed, or stepped by the arrows beside the field and on the "
      "keyboard.");
}

}  // namespace zq::gallery
