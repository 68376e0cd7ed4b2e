// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/zq_cancel_continue_lower_bar.hpp>
#include <zqswiftui/controls/zq_tooltip_question_mark.hpp>

namespace zq::gallery {
namespace {

// [code]
struct HelpAndBars {
  View body(Context& context) const {
    auto answer = context.state(std::string("none"));
    const View setting = HStack({.spacing = 8},
        {Text("Snap to frames"),
            ZQTooltipQuestionMark({.color = Color::blue(),
                .text = "Positions move to the nearest whole frame."})});
    const View bar = ZQCancelContinueLowerBar(
        {.onCancel = [answer] { answer.set("cancelled"); },
            .onContinue = [answer] { answer.set("continued"); }});
    const View cancelOnly = ZQCancelContinueLowerBar({.onCancel = [] {}});
    return cards({
        card("ZQTooltipQuestionMark",
            VStack({.alignment = HorizontalAlignment::leading},
                {setting, note("Rest on the mark, or press it.")})),
        card("ZQCancelContinueLowerBar",
            VStack(
                {.alignment = HorizontalAlignment::leading, .spacing = 12},
                {bar, note("Answer: " + *answer)})),
        card("Cancel alone", cancelOnly),
        card("Light and dark", lightAndDark(setting)),
        card("Right to left", bothDirections(setting)),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::help_and_bars() {
  return page<HelpAndBars>("Controls", "Help and bars",
      "A question mark that explains, and the bar at the foot of a "
      "panel.");
}

}  // namespace zq::gallery
