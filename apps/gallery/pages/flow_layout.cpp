// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/layout/flow_layout.hpp>

namespace zq::gallery {
namespace {

// [code]
View flow(Alignment alignment, std::optional<double> spacing) {
  std::vector<View> boxes;
  for (int i = 0; i < 12; ++i) {
    const double width = 36 + 23 * (i * 5 % 7);
    const double height = 20 + 6 * (i * 3 % 4);
    boxes.push_back(Text(std::to_string(i + 1))
                        .frame(width, height)
                        .background(RoundedRectangle(6).fill(
                            Color::teal().opacity(0.35))));
  }
  return LayoutView(
      NewFlowLayout({.alignment = alignment, .spacing = spacing}),
      std::move(boxes))
      .flexFrame({.maxWidth = kInfinity,
          .alignment = {alignment.horizontal, VerticalAlignment::top}});
}

struct FlowLayouts {
  View body(Context& context) const {
    auto narrow = context.state(false);
    const View changing = flow(Alignment::leading(), 8)
                              .frame({.width = *narrow ? 200.0 : 380.0,
                                  .alignment = Alignment::leading()});
    return cards({
        card("Rows wrap as the width changes",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {PushButton(*narrow ? "Wider" : "Narrower",
                     [narrow] {
                       withAnimation(Animation::standard(),
                           [&] { narrow.set(!*narrow); });
                     }),
                    changing})),
        card("Leading, top", flow(Alignment::topLeading(), 8)),
        card("Centre", flow(Alignment::center(), 8)),
        card("Trailing, bottom", flow(Alignment::bottomTrailing(), 8)),
        card("Spacing 2", flow(Alignment::leading(), 2)),
        card("The preferred spacing",
            flow(Alignment::leading(), std::nullopt)),
        card(
            "Right to left", bothDirections(flow(Alignment::leading(), 4))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::flow_layout() {
  return page<FlowLayouts>("Layout", "NewFlowLayout",
      "Children at their own sizes, side by side; a new row where the "
      "next one no longer fits.");
}

}  // namespace zq::gallery
