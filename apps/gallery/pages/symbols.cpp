// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/layout/flow_layout.hpp>
#include <zqswiftui/platform/toolkit/symbols/symbols.hpp>

namespace zq::gallery {
namespace {

// [code]
View named(const std::string& name) {
  return VStack(
      {.spacing = 8}, {Image::symbol(name).font(Font::title()),
                          Text(name)
                              .font(Font::caption())
                              .foregroundColor(Color::secondary())
                              .multilineTextAlignment(TextAlignment::center)
                              .lineLimit(2)})
      .frame({.width = 96,
          .height = 72,
          .alignment = Alignment::top(),
          .growsWithText = true});
}

View sheet() {
  return LayoutView(
      NewFlowLayout({.alignment = Alignment::topLeading(), .spacing = 8}),
      {ForEach(symbolNames(),
          [](const std::string& name) { return named(name); })});
}

struct Symbols {
  View body(Context&) const {
    const auto star = [](Font font) {
      return Image::symbol("star.fill").font(font);
    };
    const View sizes = samples({sample("caption", star(Font::caption())),
        sample("body", star(Font::body())),
        sample("title2", star(Font::title2())),
        sample("largeTitle", star(Font::largeTitle())),
        sample("48 points", star(Font::system(48)))});
    std::vector<View> forms;
    for (const char* name :
        {"bell", "bell.slash", "bell.fill", "bell.circle",
            "bell.circle.fill", "bell.square", "bell.square.fill"}) {
      forms.push_back(named(name));
    }
    return cards({
        card("Sizes follow the font",
            sizes.foregroundColor(Color::purple())),
        card("Forms of one name", samples(std::move(forms))),
        card("Light and dark",
            lightAndDark(
                HStack({star(Font::title()).foregroundColor(Color::red()),
                    Image::symbol("gear").font(Font::title())}))),
        card("All names", sheet()),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::symbols() {
  return page<Symbols>("Toolkit", "Symbols",
      "Our own drawings, by name, in the size of a font.");
}

}  // namespace zq::gallery
