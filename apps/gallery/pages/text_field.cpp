// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>

namespace zq::gallery {
namespace {

// [code]
struct TextFields {
  View body(Context& context) const {
    auto name = context.state(std::string());
    auto city = context.state(std::string("Zürich"));
    auto sent = context.state(std::string("nothing yet"));
    const View name_ =
        TextField("Name", name.binding()).onSubmit([name, sent] {
          sent.set(*name);
        });
    const Binding<std::string> upper([city] { return *city; },
        [city](const std::string& text) { city.set(text.substr(0, 12)); });
    return cards({
        card("Each keystroke reaches its binding",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {row("Name", name_), row("Value", Text("“" + *name + "”")),
                    row("Sent by Return", Text(*sent))})),
        card("The owner may hold back: twelve bytes at most",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {row("City", TextField("City", upper)),
                    row("Value", Text(*city))})),
        card("Disabled",
            TextField("Nobody types here", Binding<std::string>())
                .disabled()),
        card("Light and dark",
            lightAndDark(TextField("City", city.binding()))),
        card("Right to left",
            bothDirections(TextField("City", city.binding()))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::text_field() {
  return page<TextFields>("Toolkit", "TextField",
      "One line that the user edits, with the desktop's own editor.");
}

}  // namespace zq::gallery
