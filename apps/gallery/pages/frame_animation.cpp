// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/images/zq_an_image.hpp>

namespace zq::gallery {
namespace {

// [code]
// Its frames are resources: orbit00000.svg to orbit00029.svg.
struct FrameAnimation {
  View body(Context& context) const {
    auto shown = context.state(true);
    const auto still = [](bool reduced) {
      return ZQAnImageView("orbit")
          .frame(96, 96)
          .environment<ReducedMotionKey>(reduced);
    };
    const std::vector<View> ten(10, ZQAnImageView("orbit").frame(40, 40));
    const View toggled =
        *shown ? View(ZQAnImageView("orbit").frame(96, 96))
               : View(note("Its timer is gone.")).frame(96, 96);
    return cards({
        card("Thirty frames a second, stretched to the room",
            samples({sample(
                         "96 by 96", ZQAnImageView("orbit").frame(96, 96)),
                sample("192 by 96", ZQAnImageView("orbit").frame(192, 96)),
                sample("32 by 32", ZQAnImageView("orbit").frame(32, 32))})),
        card("Ten of one prefix: each frame is decoded once",
            HStack({.spacing = 12}, ten)),
        card("Begins anew with its view",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {toggled, PushButton(*shown ? "Take away" : "Bring back",
                              [shown] { shown.set(!*shown); })})),
        card("Reduced motion lets the first frame stand still",
            samples(
                {sample("off", still(false)), sample("on", still(true))})),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::frame_animation() {
  GalleryPage made = page<FrameAnimation>("Images", "Frame animation",
      "Numbered pictures played in an endless loop.");
  made.settles = 1.2;
  return made;
}

}  // namespace zq::gallery
