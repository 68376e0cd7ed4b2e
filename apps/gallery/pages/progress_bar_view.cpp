// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/zq_progress_bar_view.hpp>

namespace zq::gallery {
namespace {

// [code]
View bar(double percentage, Color color = Color::accent(),
    std::optional<double> height = std::nullopt) {
  return ZQProgressBarView({.foregroundColor = color,
                               .percentage = percentage,
                               .height = height})
      .flexFrame({.maxWidth = 280});
}

struct ProgressBars {
  View body(Context& context) const {
    auto done = context.state(0.25);
    const auto to = [done](double value) {
      return [done, value] { done.set(value); };
    };
    const auto moving = [&](bool animation) {
      return ZQProgressBarView({.percentage = *done,
                                   .showPercentage = true,
                                   .height = 8,
                                   .animation = animation})
          .flexFrame({.maxWidth = 352});
    };
    const auto percents = [](double percentage, bool digit) {
      return ZQProgressBarView({.percentage = percentage,
                                   .showPercentage = true,
                                   .add1Digit = digit})
          .flexFrame({.maxWidth = 280});
    };
    const auto small = [](double percentage) {
      return ZQProgressBarView(
          {.percentage = percentage, .showPercentage = true})
          .frame({.width = 180});
    };
    const auto rows = [](std::vector<View> all) {
      return VStack(
          {.alignment = HorizontalAlignment::leading, .spacing = 12},
          std::move(all));
    };
    return cards({
        card("Moves to each value, or jumps",
            rows({row("animated", moving(true)), row("not", moving(false)),
                HStack({.spacing = 8},
                    {PushButton("0 %", to(0)), PushButton("25 %", to(0.25)),
                        PushButton("70 %", to(0.7)),
                        PushButton("100 %", to(1))})})),
        card("Percentages: never ahead of what is done",
            rows({row("0.425", percents(0.425, false)),
                row("one digit", percents(0.425, true)),
                row("0.9999", percents(0.9999, false)),
                row("1", percents(1, false))})),
        card("Heights",
            rows({row("2", bar(0.6, Color::accent(), 2)),
                row("6, the usual", bar(0.6)),
                row("12", bar(0.6, Color::accent(), 12)),
                row("24", bar(0.6, Color::accent(), 24)),
                row("24, at 2 %", bar(0.02, Color::accent(), 24))})),
        card("Colours",
            rows({row("green", bar(0.8, Color::green())),
                row("orange", bar(0.5, Color::orange())),
                row("on its own tint",
                    ZQProgressBarView(
                        {.foregroundColor = Color::pink(),
                            .backgroundColor = Color::pink().opacity(0.25),
                            .percentage = 0.35})
                        .flexFrame({.maxWidth = 280}))})),
        card("Light and dark", lightAndDark(small(0.6))),
        card("Right to left", bothDirections(small(0.3))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::progress_bar_view() {
  return page<ProgressBars>("Controls", "ZQProgressBarView",
      "How far work has come, in colours, with its percentage.");
}

}  // namespace zq::gallery
