// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>

namespace zq::gallery {
namespace {

// [code]
struct Texts {
  View body(Context&) const {
    const auto style = [](const std::string& name, Font font) {
      return row(name, Text("The quick brown fox").font(font));
    };
    const std::string sentence =
        "A text takes the room of its lines, wraps where less is offered, "
        "and ends with an "
        "ellipsis where even that does not fit.";
    const View styles = VStack(
        {.alignment = HorizontalAlignment::leading, .spacing = 8},
        {style("largeTitle", Font::largeTitle()),
            style("title", Font::title()), style("title2", Font::title2()),
            style("title3", Font::title3()),
            style("headline", Font::headline()),
            style("body", Font::body()), style("callout", Font::callout()),
            style("caption", Font::caption()),
            style("bold", Font::body().bold()),
            style("italic", Font::body().italic()),
            style("monospaced", Font::body().monospaced())});
    const View aligned = HStack(
        {.alignment = VerticalAlignment::top, .spacing = 16},
        {Text(sentence).multilineTextAlignment(TextAlignment::leading),
            Text(sentence).multilineTextAlignment(TextAlignment::center),
            Text(sentence).multilineTextAlignment(
                TextAlignment::trailing)});
    return cards({
        card("Styles", styles),
        card("Alignment", aligned),
        card("At most two lines",
            Text(sentence + " " + sentence).lineLimit(2)),
        card("Shortened in the middle",
            Text("holiday-in-the-mountains-2024-final.jpg")
                .lineLimit(1)
                .truncationInTheMiddle()
                .frame({.width = 180, .alignment = Alignment::leading()})),
        card("Colours",
            samples({Text("primary"),
                Text("secondary").foregroundColor(Color::secondary()),
                Text("accent").foregroundColor(Color::accent()),
                Text("red").foregroundColor(Color::red())})),
        card("Light and dark", lightAndDark(Text(sentence))),
        card("Right to left", bothDirections(Text("Привет, مرحبا, hello"))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::text() {
  return page<Texts>(
      "Toolkit", "Text", "Styles, alignment, wrapping and shortening.");
}

}  // namespace zq::gallery
