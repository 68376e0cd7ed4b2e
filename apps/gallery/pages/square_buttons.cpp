// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/zq_large_square_button.hpp>

namespace zq::gallery {
namespace {

// [code]
View tile(const std::string& title, const std::string& symbol,
    std::optional<Color> color) {
  return ZQLargeSquareButton(title,
      {.systemImage = symbol, .backgroundColor = color, .action = [] {}});
}

View tiles() {
  return samples({tile("New project", "plus", std::nullopt),
      tile("Open", "folder", Color::blue()),
      tile("Photos", "photo", Color::green())});
}

struct SquareButtons {
  View body(Context& context) const {
    auto chosen = context.state(std::string("List"));
    const auto choice = [&](const std::string& title,
                            const std::string& symbol) {
      return ZQLargeSquareSelectableButton(
          title, {.systemImage = symbol,
                     .isSelected = *chosen == title,
                     .action = [chosen, title] { chosen.set(title); }});
    };
    return cards({
        card("Tiles", tiles()),
        card("One of three", samples({choice("List", "list.bullet"),
                                 choice("Grid", "square.grid.2x2"),
                                 choice("Text", "textformat")})),
        card("Disabled", tiles().disabled()),
        card("Light and dark",
            lightAndDark(tile("Open", "folder", Color::blue()))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::square_buttons() {
  return page<SquareButtons>("Controls", "Large square buttons",
      "Tiles with a large symbol above a title; one kind is pressed, "
      "the other selected.");
}

}  // namespace zq::gallery
