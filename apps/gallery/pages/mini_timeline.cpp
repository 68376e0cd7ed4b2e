// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/layout/zq_mini_timeline.hpp>
#include <zqswiftui/layout/zq_ruler_view.hpp>

namespace zq::gallery {
namespace {

// [code]
View timeline(std::vector<ZQTimeRange> segments, double height = 12,
    double radius = 4) {
  return ZQMiniTimeline({.totalRange = ZQTimeRange{0, 60},
                            .segmentsList = std::move(segments),
                            .cornerRadius = radius})
      .frame({.height = height});
}

// Loaded piece by piece, as a film from a server.
struct Loading {
  View body(Context& context) const {
    auto pieces = context.state(4);
    std::vector<ZQTimeRange> loaded;
    for (int i = 0; i < *pieces; ++i) {
      const double start = i * 23 % 60;
      loaded.push_back({start, start + 5});
    }
    const auto to = [pieces](int count) {
      return [pieces, count] { pieces.set(count); };
    };
    return VStack(
        {.alignment = HorizontalAlignment::leading, .spacing = 12},
        {timeline(std::move(loaded)).foregroundColor(Color::teal()),
            HStack({.spacing = 8},
                {PushButton("One more", to(*pieces % 12 + 1)),
                    PushButton("None", to(0))})});
  }
};

std::vector<ZQTimeRange> manySegments() {
  std::vector<ZQTimeRange> all;
  for (int i = 0; i < 1000; ++i) {
    const int piece = i / 40;
    const double start = 2.4 * piece + 0.04 * (i % 40);
    all.push_back({start, start + 0.04});
  }
  return all;
}

struct Timelines {
  View body(Context&) const {
    const std::vector<ZQTimeRange> some{{2, 13}, {18, 20}, {29, 49}};
    const auto under = [&](double height, double radius) {
      return timeline(some, height, radius)
          .foregroundColor(Color::indigo());
    };
    const View ruled = VStack({.spacing = 4},
        {ZQRulerView({0, 60}).frame({.height = 24}).clipped(),
            under(12, 4)});
    return cards({
        card("What has been loaded", Loading()),
        card("Under a ruler of the same range", ruled),
        card("Height 6, 12 and 24; radius 3, 0 and 8",
            VStack({.spacing = 12},
                {under(6, 3), under(12, 0), under(24, 8)})),
        card("A thousand segments, forty to a piece",
            timeline(manySegments(), 16, 0)
                .foregroundColor(Color::orange())),
        card("Light and dark", lightAndDark(timeline(some))),
        card("Right to left", bothDirections(timeline(some))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::mini_timeline() {
  return page<Timelines>("Layout", "ZQMiniTimeline",
      "A thin bar that shows which parts of a time are covered.");
}

}  // namespace zq::gallery
