// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <tests/base/temp_folder.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/headless/harness.hpp>
#include <zqswiftui/platform/toolkit/context.hpp>
#include <zqswiftui/platform/toolkit/text.hpp>
#include <zqswiftui/settings/zq_config.hpp>

namespace zq {
namespace {

using testing::HasSubstr;

constexpr const char* broadcastName = "vendel.zquic.broadcast.comexamplepaint";

std::string zoomJson(const std::string& zoom) {
  return R"({"defaultIntValue":7,"groupList":[{"name":"Canvas","itemList":[
    {"key":"Max zoom","doubleValue":)" +
         zoom + R"(,"intValue":3,"stringValue":"fit",
     "boolValue":false,"pointValue":{"x":1,"y":2}}]}]})";
}

class Config : public testing::Test {
 protected:
  Config() {
    platform.bundle().setIdentifier("com.Example.Paint");
    platform.bundle().addResource("ZQConfigurator.zquic", file);
    write(zoomJson("4"));
  }
  void write(const std::string& json) { ASSERT_TRUE(replaceFile(file, json).ok()); }
  void post(const std::string& json) {
    platform.notifications().post(broadcastName, json);
    platform.runUntilIdle();
  }
  static double zoom(const ZQConfig& config) { return config.doubleValue("Canvas", "maxZoom"); }

  HeadlessPlatform platform;
  TempFolder folder;
  std::string file = folder.path() + "/ZQConfigurator.zquic";
};

TEST_F(Config, anAccessorAnswersTheItemOrElseTheNextBestValue) {
  const ZQConfig config("ZQConfigurator", false);
  EXPECT_EQ(config.appBundleId(), "com.example.paint");
  EXPECT_EQ(config.doubleValue("Canvas", "maxZoom", Default{9}), 4);
  EXPECT_EQ(config.intValue("Canvas", "maxZoom"), 3);
  EXPECT_EQ(config.stringValue("Canvas", "maxZoom"), "fit");
  EXPECT_FALSE(config.boolValue("Canvas", "maxZoom"));
  EXPECT_EQ(config.pointSizeValue("Canvas", "maxZoom"), (ZQUICPointSize{1, 2}));

  EXPECT_EQ(config.doubleValue("Canvas", "none"), 64);
  EXPECT_EQ(config.doubleValue("Canvas", "none", Default{1}), 1);
  EXPECT_EQ(config.intValue("Canvas", "none"), 7);
  EXPECT_EQ(config.intValue("Canvas", "none", Default{-1}), -1);
  EXPECT_TRUE(config.boolValue("Canvas", "none"));
  EXPECT_FALSE(config.boolValue("Canvas", "none", Default{false}));
  EXPECT_EQ(config.stringValue("Canvas", "none", Default{"text"}), "text");
  EXPECT_EQ(config.pointSizeValue("none", "none", Default(ZQUICPointSize{3, 4})),
            (ZQUICPointSize{3, 4}));

  EXPECT_EQ(config.doubleValue("Canvas", "maxZoom", Min{4.5}), 4.5);
  EXPECT_EQ(config.doubleValue("Canvas", "maxZoom", Min{-4}), 4);
  EXPECT_EQ(config.doubleValue("Canvas", "none", Min{2.5}), 2.5);
  EXPECT_EQ(config.intValue("Canvas", "maxZoom", Min{5}), 5);
  EXPECT_EQ(config.intValue("Canvas", "none", Min{5}), 5);
}

TEST_F(Config, withoutAFileEveryAccessorFallsBack) {
  const ZQConfig missing("Other", true);
  EXPECT_EQ(missing.project(), std::nullopt);
  EXPECT_EQ(missing.projectFileUrl(), std::nullopt);
  EXPECT_EQ(missing.doubleValue("a", "b"), 64);
  EXPECT_EQ(missing.intValue("a", "b"), 0);
  EXPECT_TRUE(missing.boolValue("a", "b"));
  EXPECT_EQ(missing.stringValue("a", "b"), "");
  EXPECT_EQ(missing.zqcCode(), "");
  post(zoomJson("5"));
  EXPECT_EQ(missing.project(), std::nullopt);

  write("not a project");
  const ZQConfig corrupt("ZQConfigurator", false);
  ASSERT_TRUE(corrupt.project());
  EXPECT_EQ(corrupt.project()->name, "New App");
  EXPECT_EQ(zoom(corrupt), 64);
  EXPECT_THAT(corrupt.zqcCode(), HasSubstr("extension ZQConfig"));
}

TEST_F(Config, aBroadcastReplacesTheProjectAndRedrawsOnlyWhoObserves) {
  const auto config = std::make_shared<ZQConfig>("ZQConfigurator", true);
  struct Zoom {
    std::shared_ptr<ZQConfig> config;
    View body(Context& context) const {
      return Text(std::to_string(static_cast<int>(zoom(context.observe(config)))));
    }
  };
  Harness screen(Zoom{config}, {100, 40});
  EXPECT_TRUE(screen.findText("4"));
  post(zoomJson("5"));
  screen.settle();
  EXPECT_TRUE(screen.findText("5"));
  EXPECT_EQ(zoom(*config), 5);

  platform.notifications().post("vendel.zquic.broadcast.comexample", zoomJson("6"));
  platform.notifications().post("vendel.zquic.broadcast.comexamplepainter", zoomJson("6"));
  platform.runUntilIdle();
  EXPECT_EQ(zoom(*config), 5);
}

TEST_F(Config, aPayloadThatIsNoProjectLeavesNoneUntilTheNextGoodOne) {
  ZQConfig config("ZQConfigurator", true);
  post("{");
  EXPECT_EQ(config.project(), std::nullopt);
  EXPECT_EQ(zoom(config), 64);
  EXPECT_EQ(config.intValue("Canvas", "none"), 0);
  post(zoomJson("8"));
  EXPECT_EQ(zoom(config), 8);
  config.handleNotification(std::nullopt);
  EXPECT_EQ(zoom(config), 8);
}

TEST_F(Config, aReleaseBuildHearsNothing) {
  const ZQConfig config("ZQConfigurator", false);
  post(zoomJson("5"));
  write(zoomJson("6"));
  platform.advance(2);
  EXPECT_EQ(zoom(config), 4);
}

TEST_F(Config, aStoreThatGoesIsToldNothingMore) {
  int told = 0;
  {
    ZQConfig config("ZQConfigurator", true);
    const Subscription token = config.willChange.connect([&] { ++told; });
    config.notifyUpdate();
    EXPECT_EQ(told, 0);
    platform.runUntilIdle();
    EXPECT_EQ(told, 1);
    config.notifyUpdate();
    platform.notifications().post(broadcastName, zoomJson("5"));
  }
  platform.advance(2);
  EXPECT_EQ(told, 1);
}

TEST_F(Config, aFileEditedByHandIsTakenUnlessABroadcastIsNewer) {
  ZQConfig config("ZQConfigurator", true);
  int told = 0;
  const Subscription token = config.willChange.connect([&] { ++told; });
  platform.advance(1);
  EXPECT_EQ(told, 0);
  write(zoomJson("5.5"));
  platform.advance(0.5);
  EXPECT_EQ(zoom(config), 5.5);
  EXPECT_EQ(told, 1);

  testing::internal::CaptureStderr();
  write("{\n  \"groupList\": oops\n}");
  platform.advance(0.5);
  EXPECT_THAT(testing::internal::GetCapturedStderr(),
              HasSubstr("ZQConfigurator.zquic:2:16: expected a value"));
  EXPECT_EQ(zoom(config), 5.5);

  std::filesystem::remove(file);
  platform.advance(0.5);
  write(zoomJson("6"));
  platform.advance(0.5);
  EXPECT_EQ(zoom(config), 6);

  platform.clock().setWallTime(std::chrono::system_clock::now() + std::chrono::hours(1));
  post(zoomJson("7"));
  write(zoomJson("6.5"));
  platform.advance(0.5);
  EXPECT_EQ(zoom(config), 7);
}

TEST_F(Config, aSlotLooksAgainOnlyWhenTheProjectIsAnotherOne) {
  ZQConfig config("ZQConfigurator", true);
  const ZQConfig other(std::nullopt);
  SettingSlot<double> slot;
  SettingSlot<std::string_view> text;
  EXPECT_EQ(config.value(slot, "Canvas", "maxZoom"), 4);
  EXPECT_EQ(config.value(slot, "no longer", "looked at"), 4);
  EXPECT_EQ(other.value(slot, "Canvas", "maxZoom"), 64);
  EXPECT_EQ(config.value(slot, "Canvas", "maxZoom"), 4);
  EXPECT_EQ(config.value(text, "Canvas", "maxZoom"), "fit");
  post(zoomJson("5"));
  EXPECT_EQ(config.value(slot, "Canvas", "maxZoom"), 5);
  EXPECT_EQ(config.value(text, "Canvas", "maxZoom"), "fit");
  post("");
  EXPECT_EQ(config.value(slot, "Canvas", "maxZoom"), 64);
  EXPECT_EQ(config.value(text, "Canvas", "maxZoom"), "");
}

}  // namespace
}  // namespace zq
