// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/zq_labeled_spinner.hpp>

namespace zq::gallery {
namespace {

// [code]
struct LabeledSpinner {
  View body(Context&) const {
    std::vector<View> counts, sides, colors;
    for (const int n : {3, 5, 8, 12, 24}) {
      counts.push_back(sample(
          std::to_string(n), ZQLabeledSpinner({.label = "", .n = n})));
    }
    for (const int side : {12, 16, 24, 32, 48, 64}) {
      sides.push_back(sample(std::to_string(side),
          ZQLabeledSpinner({.label = "", .side = double(side)})));
    }
    for (const Color& color : {Color::gray(), Color::blue(),
             Color::purple(), Color::red(), Color::brown()}) {
      colors.push_back(ZQLabeledSpinner(
          {.label = color.description(), .color = color, .side = 24}));
    }
    const auto wrapped = [](double width) {
      return ZQLabeledSpinner(
          {.label = "Looking for pictures in the folder",
              .color = Color::secondary(),
              .width = width});
    };
    const View both = ZQLabeledSpinner(
        {.label = "Exporting…", .color = Color::blue(), .side = 24});
    return cards({
        card("Elements", samples(counts)),
        card("Sides", samples(sides)),
        card("Colours and labels", HStack({.spacing = 24}, colors)),
        card("Widths of 140 and 300",
            HStack({.spacing = 24}, {wrapped(140), wrapped(300)})),
        card("Light and dark", lightAndDark(both)),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::labeled_spinner() {
  return page<LabeledSpinner>("Controls", "Labelled spinner",
      "Work of unknown length, and what is going on.");
}

}  // namespace zq::gallery
