// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>

namespace zq::gallery {
namespace {

// [code]
// A value of one's own that views inherit.
struct DensityKey {
  using Value = double;
  static Value defaultValue() { return 8; }
};

struct Person {
  std::string name;
  View body(Context& context) const {
    return HStack({.spacing = 8},
        {Image::symbol("person.circle").font(Font::title2()), Text(name),
            Spacer(), Image::symbol("chevron.right")})
        .padding(context.environment<DensityKey>())
        .background(
            RoundedRectangle(6).fill(Color::primary().opacity(0.06)));
  }
};

View people() {
  return VStack(
      {.spacing = 4}, {Person{"Ada"}, Person{"Grace"}, Person{"Edsger"}});
}

struct Surroundings {
  View body(Context&) const {
    const View wideOrNarrow = GeometryReader([](Size size) {
      const std::string width =
          std::to_string(static_cast<int>(size.width));
      return Text((size.width > 200 ? "Wide: " : "Narrow: ") + width)
          .frame(size.width, size.height)
          .background(RoundedRectangle(6).fill(Color::teal().opacity(0.3)));
    });
    return cards({
        card("Light and dark", lightAndDark(people())),
        card("Left to right and right to left", bothDirections(people())),
        card("A key of one's own",
            HStack({.alignment = VerticalAlignment::top, .spacing = 12},
                {people().environment<DensityKey>(2),
                    people().environment<DensityKey>(14)})),
        card("Font and colour for everything inside",
            people()
                .font(Font::caption())
                .foregroundColor(Color::purple())),
        card("GeometryReader knows its room",
            HStack({.spacing = 12},
                {wideOrNarrow.frame({.width = 120, .growsWithText = true}),
                    wideOrNarrow})
                .frame({.height = 36, .growsWithText = true})),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::surroundings() {
  return page<Surroundings>("Toolkit", "Surroundings",
      "What views inherit: light and dark, direction, fonts, and "
      "values of one's own.");
}

}  // namespace zq::gallery
