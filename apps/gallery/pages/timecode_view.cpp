// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <cmath>
#include <zqswiftui/layout/zq_mini_timeline.hpp>
#include <zqswiftui/layout/zq_timecode_view.hpp>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/services/clock.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::gallery {
namespace {

// [code]
// Time that passes while it runs.
struct Player : ObservableObject {
  Published<double> time{this, 3723.04};
  Published<bool> running{this, false};

  void turn() {
    running = !running.get();
    timer.stop();
    if (!running.get()) return;
    const auto now = [] { return Platform::current().clock().now(); };
    const double from = time.get() - now();
    timer.loop("player", 1.0 / 30, std::nullopt, false,
        [this, from, now] { time = from + now(); });
  }

 private:
  ZQTimer timer;
};

struct RunningTimecode {
  View body(Context& context) const {
    const auto player =
        *context.stateOf([] { return std::make_shared<Player>(); });
    context.observe(player);
    const double time = player->time.get();
    const View played = ZQMiniTimeline({.totalRange = ZQTimeRange{0, 7200},
                                           .segmentsList = {{{0, time}}},
                                           .cornerRadius = 3})
                            .foregroundColor(Color::secondary())
                            .frame({.height = 8});
    return VStack(
        {.alignment = HorizontalAlignment::leading, .spacing = 12},
        {ZQTimecodeView(time, 36), played,
            HStack({.spacing = 8},
                {PushButton(player->running.get() ? "Pause" : "Run",
                     [player] { player->turn(); }),
                    PushButton("Begin anew", [player] {
                      if (player->running.get()) player->turn();
                      player->time = 0;
                    })})});
  }
};

struct Timecodes {
  View body(Context&) const {
    const View small = ZQTimecodeView(61.5, 24);
    return cards({
        card("Only the digits that change are drawn again",
            RunningTimecode()),
        card("At 16, 24 and 32 points",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {ZQTimecodeView(3723.04, 16), ZQTimecodeView(3723.04, 24),
                    ZQTimecodeView(3723.04)})),
        card("Before zero, and no number",
            samples({ZQTimecodeView(-1.5, 24), ZQTimecodeView(NAN, 24)})),
        card("Light and dark", lightAndDark(small)),
        card("From left to right also where texts run from the right",
            bothDirections(small)),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::timecode_view() {
  return page<Timecodes>("Layout", "ZQTimecodeView",
      "A time in hours, minutes, seconds and hundredths, in digits of one "
      "width.");
}

}  // namespace zq::gallery
