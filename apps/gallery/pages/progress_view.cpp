// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>

namespace zq::gallery {
namespace {

// [code]
struct Progress {
  View body(Context& context) const {
    auto done = context.state(0.25);
    const auto bar = [](const std::string& name, View view) {
      return row(name, view.frame({.width = 220}));
    };
    const auto to = [done](double value) {
      return [done, value] {
        withAnimation(Animation::easeInOut(0.6), [&] { done.set(value); });
      };
    };
    const View all =
        VStack({.alignment = HorizontalAlignment::leading, .spacing = 12},
            {bar("nothing", ProgressView(0)),
                bar("a third", ProgressView(1.0 / 3)),
                bar("all", ProgressView(1)),
                bar("more than all", ProgressView(7))});
    return cards({
        card("Moves", VStack({.alignment = HorizontalAlignment::leading,
                                 .spacing = 12},
                          {ProgressView(*done).frame({.width = 352}),
                              HStack({PushButton("Begin", to(0)),
                                  PushButton("Half", to(0.5)),
                                  PushButton("End", to(1))})})),
        card("Fractions", all),
        card("Of unknown length",
            HStack({.spacing = 12}, {ProgressView(), Text("Loading…")})),
        card("Light and dark", lightAndDark(ProgressView(0.6))),
        card("Right to left", bothDirections(ProgressView(0.3))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::progress_view() {
  return page<Progress>("Toolkit", "ProgressView",
      "A bar that fills to a fraction, or a spinner.");
}

}  // namespace zq::gallery
