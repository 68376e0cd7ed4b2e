// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>

namespace zq::gallery {
namespace {

// [code]
struct Animations {
  View body(Context& context) const {
    auto moved = context.state(false);
    auto large = context.state(false);
    const auto run = [moved](Animation animation) {
      return [moved, animation] {
        withAnimation(animation, [&] { moved.set(!*moved); });
      };
    };
    const View ball = Circle()
                          .fill(Color::pink())
                          .frame(32, 32)
                          .offset(*moved ? 240 : 0, 0);
    const View track =
        ball.frame({.width = 280,
                       .height = 44,
                       .alignment = Alignment::leading()})
            .background(Capsule().fill(Color::primary().opacity(0.06)));
    const View tile = RoundedRectangle(12)
                          .fill(Color::indigo())
                          .frame(64, 64)
                          .scale(*large ? 1.0 : 0.5)
                          .opacity(*large ? 1.0 : 0.4);
    return cards({
        card("One change, four ways to get there",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {track, samples({PushButton("Standard",
                                     run(Animation::standard())),
                            PushButton(
                                "Linear, 1 s", run(Animation::linear(1))),
                            PushButton("Ease out, 1 s",
                                run(Animation::easeOut(1))),
                            PushButton("Jump",
                                [moved] { moved.set(!*moved); })})})),
        card("Scale and opacity",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {tile,
                    PushButton(*large ? "Smaller" : "Larger",
                        [large] {
                          withAnimation(Animation::standard(),
                              [&] { large.set(!*large); });
                        }),
                    note("Where the desktop asks for reduced motion, both "
                         "jump.")})),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::animation() {
  return page<Animations>("Toolkit", "Animation",
      "Values that change inside withAnimation move from what is shown "
      "now to the new one.");
}

}  // namespace zq::gallery
