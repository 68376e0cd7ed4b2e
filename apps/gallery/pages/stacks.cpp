// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>

namespace zq::gallery {
namespace {

// [code]
View box(
    const std::string& name, double width, double height, Color color) {
  return Text(name)
      .frame({.width = width, .height = height, .growsWithText = true})
      .background(RoundedRectangle(6).fill(color.opacity(0.35)));
}

std::vector<View> boxes() {
  return {box("1", 40, 24, Color::blue()),
      box("2", 64, 48, Color::purple()), box("3", 48, 36, Color::pink())};
}

struct Stacks {
  View body(Context&) const {
    const View rows = samples(
        {sample(
             "top", HStack({.alignment = VerticalAlignment::top}, boxes())),
            sample("center",
                HStack({.alignment = VerticalAlignment::center}, boxes())),
            sample(
                "bottom", HStack({.alignment = VerticalAlignment::bottom},
                              boxes()))});
    const View columns = samples(
        {sample("leading",
             VStack({.alignment = HorizontalAlignment::leading}, boxes())),
            sample(
                "center", VStack({.alignment = HorizontalAlignment::center},
                              boxes())),
            sample("trailing",
                VStack({.alignment = HorizontalAlignment::trailing},
                    boxes()))});
    const View layers =
        ZStack({Circle().fill(Color::yellow()).frame(72, 72),
            Circle().fill(Color::orange()).frame(48, 48),
            Image::symbol("sun.max").foregroundColor(Color::black())});
    const View spread = HStack({box("first", 64, 28, Color::teal()),
        Spacer(), box("middle", 64, 28, Color::teal()), Spacer(),
        box("last", 64, 28, Color::teal())});
    return cards({
        card("HStack", rows),
        card("VStack", columns),
        card("ZStack", layers),
        card("Spacer", spread),
        card("What is left goes to who can stretch",
            HStack({Text("Name"),
                RoundedRectangle(6)
                    .fill(Color::teal().opacity(0.4))
                    .frame({.height = 24}),
                Text("end")})),
        card("Right to left", bothDirections(HStack(boxes()))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::stacks() {
  return page<Stacks>("Toolkit", "Stacks",
      "Children side by side, one below the other, or one on the "
      "other.");
}

}  // namespace zq::gallery
