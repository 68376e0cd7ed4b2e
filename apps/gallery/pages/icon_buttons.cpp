// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/controls/icon_buttons.hpp>
#include <zqswiftui/controls/zq_system_image_button.hpp>

namespace zq::gallery {
namespace {

// [code]
constexpr ZQButton::Size kNormal = ZQButton::Size::normal;

View family(std::optional<Color> color) {
  const std::function<void()> press = [] {};
  return samples({
      sample("ok",
          ZQOkButton({.size = kNormal, .color = color, .action = press})),
      sample("cancel",
          ZQCancelButton(
              {.color = color, .size = kNormal, .action = press})),
      sample("continue",
          ZQContinueButton(
              {.color = color, .size = kNormal, .action = press})),
      sample("delete", ZQDeleteButton({.color = color,
                           .fill = false,
                           .size = kNormal,
                           .action = press})),
      sample("delete, filled", ZQDeleteButton({.color = color,
                                   .fill = true,
                                   .size = kNormal,
                                   .action = press})),
      sample("copy", ZQCopyButton({.color = color, .action = press})),
      sample(
          "download", ZQDownloadButton({.action = press, .color = color})),
      sample("link", ZQLinkButton({.action = press, .color = color})),
      sample(
          "settings", ZQSettingsButton({.color = color, .action = press})),
  });
}

View sizes() {
  const std::function<void()> press = [] {};
  const auto gear = [&](ZQButton::Size size) {
    return ZQSystemImageButton(
        "gear", {.color = Color::blue(), .size = size, .action = press});
  };
  return samples({sample("small", gear(ZQButton::Size::small)),
      sample("normal", gear(ZQButton::Size::normal)),
      sample("mini", gear(ZQButton::Size::mini))});
}

View labelled() {
  const std::function<void()> press = [] {};
  return samples(
      {ZQOkButton("Save",
           {.size = kNormal, .color = Color::blue(), .action = press}),
          ZQCancelButton("Discard",
              {.color = Color::red(), .size = kNormal, .action = press}),
          ZQContinueButton("Next",
              {.color = std::nullopt, .size = kNormal, .action = press}),
          ZQSettingsButton(
              "Settings", {.color = std::nullopt, .action = press})});
}

struct IconButtons {
  View body(Context& context) const {
    auto last = context.state(std::string("nothing yet"));
    const auto named = [&](const std::string& symbol) {
      return ZQSystemImageButton(
          symbol, {.color = Color::blue(),
                      .size = ZQButton::Size::mini,
                      .action = [last, symbol] { last.set(symbol); }});
    };
    return cards({
        card("Press one",
            HStack({.spacing = 16},
                {named("star.fill"), named("heart.fill"),
                    named("bell.fill"), Text("Pressed: " + *last)})),
        card("The family", family(std::nullopt)),
        card("In a colour", family(Color::purple())),
        card("Sizes", sizes()),
        card("With a label", labelled()),
        card("Disabled", labelled().disabled()),
        card("Light and dark", lightAndDark(labelled())),
        card("Right to left", bothDirections(labelled())),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::icon_buttons() {
  return page<IconButtons>("Controls", "Icon buttons",
      "Symbols without a border, at three quarters of their opacity "
      "until the pointer comes.");
}

}  // namespace zq::gallery
