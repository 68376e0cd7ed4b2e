// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/layout/split_view.hpp>

namespace zq::gallery {
namespace {

// [code]
View pane(const std::string& name, const Color& color) {
  return Text(name)
      .flexFrame({.maxWidth = kInfinity, .maxHeight = kInfinity})
      .background(View(color).opacity(0.15));
}

struct Split {
  View body(Context& context) const {
    auto width = context.state(160.0);
    const View split =
        View(SplitView({.leading = pane("Sidebar", Color::teal()),
            .trailing = pane("Page", Color::indigo()),
            .leadingWidth = width.binding(),
            .leastLeading = 80,
            .leastTrailing = 60}));
    return cards({
        card("Drag the line, or move it by the arrow keys",
            split.frame(464, 160)),
        card("Right to left",
            split.frame(464, 80).environment<LayoutDirectionKey>(
                LayoutDirection::rightToLeft)),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::split_view() {
  return page<Split>("Layout", "SplitView",
      "Two views side by side, as wide as the user wants them.");
}

}  // namespace zq::gallery
