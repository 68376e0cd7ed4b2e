// ZQSwiftUI, MIT licence; see LICENSE.
#include <zqswiftui/layout/zq_mini_timeline.hpp>

#include "media.hpp"
#include "scene.hpp"

// A timeline of which one segment changes, or all.
namespace bench {
namespace {

using Segments = std::vector<zq::ZQTimeRange>;
struct Cut {
  zq::ZQTimeRange total;
  Segments segments;
  bool operator==(const Cut&) const = default;
};

struct Timeline {
  std::shared_ptr<Shown<Cut>> shown;
  zq::View body(zq::Context& context) const {
    const Cut cut = context.observe(shown).value.get();
    return zq::ZQMiniTimeline({.totalRange = cut.total,
                               .segmentsList = cut.segments,
                               .cornerRadius = kTimelineRadius})
        .frame({.height = kTimelineHeight})
        .flexFrame({.maxHeight = zq::kInfinity, .alignment = zq::Alignment::top()});
  }
};

}  // namespace

void timeline(const Arguments& arguments) {
  const int n = arguments.n();
  Cut cut{{0, static_cast<double>(n)}, {}};
  for (int i = 0; i < n; ++i) cut.segments.push_back({double(i), i + 0.5});
  const auto shown = std::make_shared<Shown<Cut>>(cut);
  Window window(Timeline{shown});
  window.frame();
  const auto edited = [&](const char* item, const auto& edit) {
    const Series series = repeated([&](int r) {
      const auto before = window.painted();
      const Timer timer;
      edit(r);
      shown->value = cut;
      window.frame();
      const double ms = timer.ms();
      check(window.painted() > before, item);
      return ms;
    });
    window.checkComplete(item);
    report(item, n, series);
  };
  edited("M2", [&](int r) { cut.segments[cut.segments.size() / 2].end += r % 2 ? 0.25 : -0.25; });
  edited("M2-zoom", [&](int r) { cut.total.end = n * (r % 2 ? 1 : 0.8); });
  if (!arguments.png().empty()) window.image().save(QString::fromStdString(arguments.png()));
}

}  // namespace bench
