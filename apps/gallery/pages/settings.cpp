// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/gallery/gallery_page.hpp>
#include <apps/gallery/gallery_style.hpp>
#include <zqswiftui/platform/base/number_text.hpp>
#include <zqswiftui/settings/project_json.hpp>
#include <zqswiftui/settings/zq_config.hpp>

namespace zq::gallery {
namespace {

// [code]
ZQUICProject cardProject() {
  ZQUICProject project;
  project.setGroupList({{.name = "Card",
      .itemList = {{.key = "Corner radius", .doubleValue = 12},
          {.key = "width", .doubleValue = 200},
          {.key = "title",
              .type = ZQUICRecordType::string,
              .stringValue = "Governed by settings"},
          {.key = "framed", .type = ZQUICRecordType::bool_}}}});
  return project;
}

// What is drawn asks the store by name, wherever it stands.
struct GovernedCard {
  std::shared_ptr<ZQConfig> config;
  View body(Context& context) const {
    const ZQConfig& settings = context.observe(config);
    const double radius = settings.doubleValue("Card", "cornerRadius");
    const RoundedRectangle outline(radius);
    const bool framed = settings.boolValue("Card", "framed");
    return Text(settings.stringValue("Card", "title"))
        .frame(settings.doubleValue("Card", "width", Min{40}), 96)
        .background(outline.fill(Color::teal().opacity(0.3)))
        .overlay(outline.stroke(framed ? Color::teal() : Color::clear()));
  }
};

// An editor changes the project and hands it over; here both are one
// program.
void edit(const std::shared_ptr<ZQConfig>& config,
    const std::function<void(std::vector<ZQUICItem>&)>& change) {
  ZQUICProject project = *config->project();
  project.editGroupList([&](auto& groups) { change(groups[0].itemList); });
  config->handleNotification(
      encodeProject(project, JsonStyle::compact).value());
}

View stepper(const std::shared_ptr<ZQConfig>& config, std::size_t item) {
  const auto add = [config, item](double by) {
    return [config, item, by] {
      edit(config, [&](auto& items) { items[item].doubleValue += by; });
    };
  };
  const double value =
      config->project()->groupList()[0].itemList[item].doubleValue;
  return HStack(
      {.spacing = 12}, {PushButton("−4", add(-4)), PushButton("+4", add(4)),
                           Text(standardText(value))});
}

struct SettingsRoad {
  View body(Context& context) const {
    auto store = context.stateOf(
        [] { return std::make_shared<ZQConfig>(cardProject()); });
    const std::shared_ptr<ZQConfig>& config = *store;
    context.observe(config);
    return cards({
        card("Edited",
            VStack({.alignment = HorizontalAlignment::leading},
                {row("Corner radius", stepper(config, 0)),
                    row("Width", stepper(config, 1)),
                    row("Framed", PushButton("Switch",
                                      [config] {
                                        edit(config, [](auto& items) {
                                          items[3].boolValue =
                                              !items[3].boolValue;
                                        });
                                      }))})),
        card("Drawn", GovernedCard{config}),
        card("Frozen into source for a release",
            Text(config->zqcCode())
                .font(Font::custom("DejaVu Sans Mono", 11))),
    });
  }
};
// [/code]

}  // namespace

GalleryPage pages::settings() {
  return page<SettingsRoad>("Values", "ZQConfig",
      "Settings read by name, live: each edit of the project draws again "
      "what asked for it.");
}

}  // namespace zq::gallery
