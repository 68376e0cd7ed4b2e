// ZQSwiftUI, MIT licence; see LICENSE.
#include <app_settings.hpp>
#include <split_settings_canvas.hpp>
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/settings/zq_config.hpp>
#include <zqswiftui/zqswiftui.hpp>

int main(int argc, char**) {
  ZQ_REQUIRE(argc == 1, "the consumer takes no arguments");
  const zq::ZQConfig store(zq::ZQUICProject(zq::Url::file(CONSUMER_SETTINGS)));
  const consumer::AppSettings settings(store);
  ZQ_REQUIRE(settings.Canvas_maxZoom() == 4.0, "the settings are those of the project");
  ZQ_REQUIRE(settings.Canvas_Title() == "A canvas", "the settings are those of the project");
  ZQ_REQUIRE(consumer::SplitSettings_Canvas(store).Canvas_maxZoom() == 4.0,
             "a group by itself has the same settings");
}
