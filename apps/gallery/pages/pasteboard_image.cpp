// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/images/zq_pasteboard_image.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::gallery {
namespace {

// [code]
// Colours that lean from corner to corner.
Bytes drawnPicture() {
  constexpr int kWidth = 192, kHeight = 128;
  Pixels pixels{kWidth, kHeight, {}};
  for (int y = 0; y < kHeight; ++y) {
    for (int x = 0; x < kWidth; ++x) {
      for (const int part : {x + 60, 2 * y, 250 - x, 255}) {
        pixels.rgba.push_back(
            static_cast<std::uint8_t>(std::min(part, 255)));
      }
    }
  }
  return Platform::current().imageCodec().encodePng(pixels);
}

struct PasteboardPicture {
  View body(Context& context) const {
    auto taken = context.state(std::optional<ZQImage>());
    const auto framed = [](View view, const std::string& hint) {
      return view.frame(144, 96)
          .background(note(hint))
          .background(
              RoundedRectangle(8).fill(Color::primary().opacity(0.06)))
          .clipShape(RoundedRectangle(8));
    };
    const View handed = *taken ? View(Image(**taken).resizable()) : View();
    const auto copy = [] {
      Platform::current().pasteboard().setImage(drawnPicture());
    };
    const auto copyText = [] {
      Platform::current().pasteboard().setText("A text is no picture.");
    };
    return cards({
        card("Copy a picture anywhere",
            samples({sample("on the pasteboard",
                         framed(ZQPasteboardImage({.maxSize = Size{144, 96},
                                    .tappedCallback =
                                        [taken](const ZQImage& image) {
                                          taken.set(image);
                                        }}),
                             "nothing yet")),
                sample("handed over",
                    framed(handed, *taken ? "" : "click the picture"))})),
        card("Or here", HStack({.spacing = 8},
                            {PushButton("Copy a picture", copy),
                                PushButton("Copy a text", copyText)})),
        card("Without a size it takes the room that there is",
            ZQPasteboardImage()
                .flexFrame({.maxWidth = kInfinity,
                    .minHeight = 48,
                    .maxHeight = 48})
                .background(
                    Rectangle().fill(Color::primary().opacity(0.06)))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::pasteboard_image() {
  GalleryPage made = page<PasteboardPicture>("Images", "Pasteboard image",
      "The picture that was copied last, here or in another program.");
  made.settles = 0.8;
  return made;
}

}  // namespace zq::gallery
