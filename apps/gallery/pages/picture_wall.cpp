// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <apps/gallery/pictures.hpp>
#include <zqswiftui/images/zq_local_url_image.hpp>
#include <zqswiftui/layout/flow_layout.hpp>

namespace zq::gallery {
namespace {

// [code]
// Decoded in the background to the size that it is shown in.
struct Thumbnail {
  Url file;
  View body(Context&) const {
    return ZQLocalURLImageView(
        file, {.decodeSize = DecodeSize{.points = 96}})
        .frame(96, 96)
        .background(
            RoundedRectangle(4).fill(Color::primary().opacity(0.06)))
        .help(file.name());
  }
  bool operator==(const Thumbnail&) const = default;
};

// Where no folder is given.
ZQImage ripples(int number) {
  const int side = 96;
  Pixels pixels{side, side, {}};
  for (int i = 0; i < side * side; ++i) {
    const int x = i % side - 12 * (number % 8), y = i / side - 24;
    const auto wave =
        static_cast<std::uint8_t>((x * x + y * y) / (24 + number) % 256);
    const auto slow = static_cast<std::uint8_t>(40 + 9 * number);
    pixels.rgba.insert(pixels.rgba.end(), {wave, slow, 160, 255});
  }
  return *ZQImage::fromPixels(std::move(pixels));
}

View wall(std::vector<View> tiles) {
  return ScrollView(
      LayoutView(
          NewFlowLayout({.alignment = Alignment::leading(), .spacing = 4}),
          std::move(tiles)))
      .frame({.height = 640});
}

struct PictureWall {
  View body(Context& context) const {
    const auto pictures = context.environment<PicturesKey>();
    if (!pictures) {
      std::vector<View> own;
      own.reserve(24);
      for (int i = 0; i < 24; ++i) own.push_back(Image(ripples(i)));
      return cards({card("Made by the page itself", wall(std::move(own))),
          note("zq-gallery --pictures FOLDER shows those of a folder.")});
    }
    const std::string heading = (pictures->cut ? "The first " : "") +
                                std::to_string(pictures->files.size()) +
                                " pictures";
    return cards(
        {card(heading, wall({ForEach(pictures->files, [](const Url& file) {
          return Thumbnail{file};
        })}))});
  }
};
// [/code]

}  // namespace

GalleryPage pages::picture_wall() {
  GalleryPage wall = page<PictureWall>("Images", "Picture wall",
      "Pictures of files, read and decoded in the background; those in "
      "sight come first.");
  wall.settles = 1;
  return wall;
}

}  // namespace zq::gallery
