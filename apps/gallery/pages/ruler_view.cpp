// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/layout/zq_ruler_view.hpp>

namespace zq::gallery {
namespace {

// [code]
constexpr double kDay = 86400;

// A day needs more than 121 points: 60000 seconds are the longest step.
View strip(View ruler) {
  return ruler.frame({.height = 40})
      .flexFrame({.minWidth = 200})
      .background(Rectangle().fill(Color::primary().opacity(0.05)))
      .clipShape(RoundedRectangle(6));
}

// So long around the same middle, and within the day.
ZQTimeRange within(double middle, double seconds) {
  const double start =
      std::clamp(middle - seconds / 2, 0.0, kDay - seconds);
  return {start, start + seconds};
}

struct PannedRuler {
  View body(Context& context) const {
    auto rest = context.state(ZQTimeRange{36000, 36060});
    auto moved = context.state(0.0);  // seconds, while it is dragged
    const double length = rest->end - rest->start;
    const double middle = (rest->start + rest->end) / 2;
    const ZQTimeRange shown = within(middle - *moved, length);
    const auto ruler = [=](Size size) {
      const auto seconds = [=](const DragValue& drag) {
        return drag.translation().width / size.width * length;
      };
      return ZQRulerView(shown)
          .cursor(Cursor::grab)
          .gesture({.minimumDistance = 1,
              .onChanged =
                  [=](const DragValue& d) { moved.set(seconds(d)); },
              .onEnded =
                  [=](const DragValue&) {
                    rest.set(shown);
                    moved.set(0);
                  },
              .onCancelled = [=] { moved.set(0); }});
    };
    const auto show = [=](const std::string& name, double by, double span) {
      return PushButton(
          name, [=] { rest.set(within(middle + by * length, span)); });
    };
    return VStack(
        {.alignment = HorizontalAlignment::leading, .spacing = 12},
        {strip(GeometryReader(ruler)),
            samples({show("10 s", 0, 10), show("1 min", 0, 60),
                show("10 min", 0, 600), show("1 h", 0, 3600),
                show("1 day", 0, kDay), show("Earlier", -0.25, length),
                show("Later", 0.25, length)})});
  }
};

struct Rulers {
  View body(Context&) const {
    std::vector<View> spans;
    for (const double seconds : {1.0, 10.0, 90.0, 3600.0, kDay}) {
      spans.push_back(strip(ZQRulerView({0, seconds})));
    }
    const double fullZoom = kDay * 84 / 0.05;
    const View two = strip(ZQRulerView({0, 2}));
    return cards({
        card("Drag it, and zoom from ten seconds to a day", PannedRuler()),
        card("A day at full zoom: only ticks near what is seen are made",
            strip(ScrollView(
                ZQRulerView({0, kDay}).frame({.width = fullZoom}),
                ScrollAxes::horizontal))),
        card("One, ten and ninety seconds, an hour, a day",
            VStack({.spacing = 8}, std::move(spans))),
        card("Light and dark", lightAndDark(two)),
        card("Right to left", bothDirections(two)),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::ruler_view() {
  return page<Rulers>("Layout", "ZQRulerView",
      "Ticks and times along a range of seconds, at the shortest step that "
      "leaves room for its labels.");
}

}  // namespace zq::gallery
