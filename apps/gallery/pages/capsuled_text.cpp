// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/zq_capsuled_text.hpp>

namespace zq::gallery {
namespace {

// [code]
View capsule(const std::string& text, Color color) {
  return ZQCapsuledText(
      {.text = text, .font = Font::caption(), .backgroundColor = color});
}

View capsuleColors() {
  std::vector<View> all;
  for (const Color& color :
      {Color::red(), Color::orange(), Color::yellow(), Color::green(),
          Color::teal(), Color::blue(), Color::purple(), Color::gray()}) {
    all.push_back(capsule(color.description(), color));
  }
  return samples(std::move(all));
}

struct CapsuledTexts {
  View body(Context&) const {
    return cards({
        card("Colours",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {capsuleColors(), note("The text is black or white, "
                                       "whichever reads better.")})),
        card("Fonts", samples({ZQCapsuledText({.text = "caption",
                                   .font = Font::caption()}),
                          ZQCapsuledText({.text = "body"}),
                          ZQCapsuledText({.text = "title 2",
                              .font = Font::title2()})})),
        card("Padding",
            samples({sample(
                         "2", ZQCapsuledText({.text = "4K", .padding = 2})),
                sample("4", ZQCapsuledText({.text = "4K", .padding = 4})),
                sample(
                    "12", ZQCapsuledText({.text = "4K", .padding = 12}))})),
        card("Light and dark", lightAndDark(capsuleColors())),
        card("Right to left",
            bothDirections(capsule("مرحبا", Color::teal()))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::capsuled_text() {
  return page<CapsuledTexts>("Controls", "ZQCapsuledText",
      "A short text on a capsule: a badge, a tag, a state.");
}

}  // namespace zq::gallery
