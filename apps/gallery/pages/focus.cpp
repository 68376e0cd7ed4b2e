// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>

namespace zq::gallery {
namespace {

// [code]
struct Focus {
  View body(Context& context) const {
    auto name = context.state(std::string());
    auto last = context.state(std::string("nothing yet"));
    const auto press = [last](const std::string& what) {
      return [last, what] { last.set(what); };
    };
    const View form =
        samples({TextField("Name", name.binding()).frame({.width = 160}),
            PushButton("Save", press("Save")),
            PushButton("Reset", press("Reset")),
            PushButton("Disabled", press("never")).disabled()});
    const View link = Text("A text that is tapped takes the focus too")
                          .foregroundColor(Color::accent())
                          .onTap(press("the text"));
    const View named = Image::symbol("trash")
                           .font(Font::title2())
                           .onTap(press("the bin"))
                           .accessibilityLabel("Empty the bin");
    return cards({
        card("Tab and Shift+Tab go from one to the next, Space and Enter "
             "press",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 16},
                {form, link, named, note("Pressed: " + *last)})),
        card("A key from anywhere in the window",
            HStack(
                {.spacing = 12}, {PushButton("Back", press("Back"))
                                         .keyboardShortcut(Key::backspace),
                                     note("Backspace presses it.")})),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::focus() {
  return page<Focus>("Toolkit", "Focus and keys",
      "Whatever can be clicked can be reached by Tab and pressed by "
      "Space.");
}

}  // namespace zq::gallery
