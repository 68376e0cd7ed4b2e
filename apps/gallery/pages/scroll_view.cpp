// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>

namespace zq::gallery {
namespace {

// [code]
struct Row {
  int number = 0;
  bool operator==(const Row&) const = default;
  View body(Context&) const {
    return HStack({.spacing = 12},
        {Text(std::to_string(number)).frame({.width = 56}),
            RoundedRectangle(4)
                .fill(Color::indigo().opacity(0.2 + 0.05 * (number % 12)))
                .frame({.height = 18})})
        .padding(EdgeInsets::symmetric(8, 3));
  }
};

View tall(int count) {
  std::vector<Row> rows;
  for (int i = 1; i <= count; ++i) rows.push_back({i});
  return ScrollView(
      VStack({.spacing = 0},
          {ForEach(rows, &Row::number, [](const Row& r) { return r; })}))
      .frame({.height = 200});
}

View wide() {
  std::vector<View> tiles;
  tiles.reserve(24);
  for (int i = 0; i < 24; ++i) {
    tiles.push_back(Text(std::to_string(i + 1))
                        .frame(72, 56)
                        .background(RoundedRectangle(8).fill(
                            Color::teal().opacity(0.35))));
  }
  return ScrollView(HStack(std::move(tiles)), ScrollAxes::horizontal)
      .frame({.height = 68});
}

struct ScrollViews {
  View body(Context&) const {
    return cards({
        card("A thousand rows, of which only those in sight are made",
            tall(1000)),
        card("Sideways", wide()),
        card("Right to left", bothDirections(wide())),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::scroll_view() {
  return page<ScrollViews>("Toolkit", "ScrollView",
      "A window onto content that may be larger: wheel, arrow and page "
      "keys.");
}

}  // namespace zq::gallery
