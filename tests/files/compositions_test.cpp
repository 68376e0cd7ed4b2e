// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <tests/files/drop_areas.hpp>
#include <zqswiftui/files/zq_app_drag_area_with_name_view.hpp>
#include <zqswiftui/files/zq_drag_and_upload_image_area_view.hpp>
#include <zqswiftui/files/zq_drag_image_area_view.hpp>
#include <zqswiftui/files/zq_file_drag_area_with_label.hpp>
#include <zqswiftui/files/zq_file_drag_area_with_name_view.hpp>
#include <zqswiftui/files/zq_sub_file_image_well_view.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

constexpr Point kMiddle{150, 50};
constexpr Size kSize{300, 100};
const std::string kSymbol = "<square.and.arrow.down> ";

class Compositions : public DropAreas {
 protected:
  // That a click opens the file dialog, in spite of what the inner area is told.
  void clickOpens(Harness& h, const std::vector<std::string>& extensions, Point at = kMiddle) {
    const auto& requests = platform.fileDialogs().requests();
    const std::size_t before = requests.size();
    h.click(at);
    ASSERT_EQ(requests.size(), before + 1);
    EXPECT_EQ(requests.back().title, "Open");
    EXPECT_EQ(requests.back().extensions, extensions);
  }
  // In painting order.
  static std::vector<std::string> commands(Harness& h) {
    std::vector<std::string> all;
    for (const DrawnCommand& d : h.drawn()) {
      if (std::holds_alternative<StrokePath>(d.command)) all.push_back("frame");
      if (std::holds_alternative<DrawPicture>(d.command)) all.push_back("picture");
    }
    return all;
  }
  void writePicture(const std::string& name) {
    EXPECT_TRUE(replaceFile(folder.path(name), HeadlessImageCodec::file(4, 4, 9, 9, 9)).ok());
  }
};

TEST_F(Compositions, aPictureIsShownUnderTheFrameAndOnlyTheFirstIsTaken) {
  writePicture("shown.png");
  const auto area = [this](std::optional<Url> shownUrl, bool placeholder) {
    return ZQDragImageAreaView(
        {.imageUrl = std::move(shownUrl), .showPlaceholder = placeholder, .callback = note("got")});
  };
  Harness h(area({}, false), kSize);
  EXPECT_EQ(shown(h), "");
  h.setRoot(area({}, true));
  EXPECT_EQ(shown(h), "<photo> ");
  EXPECT_LT(h.findSymbol("photo").opacity, 1);
  h.setRoot(area(url("shown.png"), true));
  EXPECT_EQ(commands(h), (std::vector<std::string>{"picture", "frame"}));
  EXPECT_EQ(shown(h), "") << "no name, no prompt";
  h.drop(kMiddle, files({"b.PNG", "a.png"}));
  h.drop(kMiddle, files({"c.txt", "a.png"}));
  h.drop(kMiddle, draggedUrls({"https://example.org/cover.jpeg"}));
  EXPECT_EQ(taken(), "got b.PNG got cover.jpeg ");
  clickOpens(h, {"jpg", "jpeg", "png"});
}

TEST_F(Compositions, aPictureOfAnAddressIsShownUnderTheFrame) {
  const std::string address = "http://example.org/" + ZQId::newId("p", "", true) + ".png";
  platform.downloads().setAnswer(address, {HeadlessImageCodec::file(4, 4, 9, 9, 9), ""});
  Harness h(ZQDragAndUploadImageAreaView(
                {.remoteUrl = address, .acceptedExtension = {"TXT"}, .callback = note("got")}),
            kSize);
  EXPECT_EQ(shown(h), "<icloud.and.arrow.down> ");
  h.advance(0);
  EXPECT_EQ(commands(h), (std::vector<std::string>{"picture", "frame"}));
  h.drop(kMiddle, files({"c.txt", "c.txt"}));
  h.drop(kMiddle, files({"a.png"}));
  EXPECT_EQ(taken(), "got c.txt ");
  clickOpens(h, {"txt"});
}

TEST_F(Compositions, theNameIsShownByTheOuterViewAndTakesNoClick) {
  const auto area = [this](std::optional<Url> shownUrl) {
    return ZQFileDragAreaWithNameView({.url = std::move(shownUrl),
                                       .promptString = "Here",
                                       .strokeWidth = 2,
                                       .onDrag = note("got")});
  };
  Harness h(area({}), kSize);
  EXPECT_EQ(shown(h), kSymbol + "Here ");
  h.drop(kMiddle, files({"c.txt", "a.png"}));
  EXPECT_EQ(taken(), "got c.txt ");
  h.setRoot(area(url("c.txt")));
  EXPECT_EQ(shown(h), "c.txt ");
  const Element name = h.findText("c.txt");
  EXPECT_NEAR(name.center().x, kMiddle.x, 1);
  EXPECT_NEAR(name.center().y, kMiddle.y, 1);
  EXPECT_EQ(h.find(Role::button).value, "c.txt");
  clickOpens(h, {}, name.center());
  EXPECT_TRUE(h.drop(name.center(), files({"a.png"})));
  EXPECT_EQ(taken(), "got a.png ");
}

TEST_F(Compositions, anApplicationIsABundle) {
  Harness h(ZQAppDragAreaWithNameView({.url = url("Tool.app"), .onDrag = note("got")}), kSize);
  EXPECT_EQ(shown(h), kSymbol + "Tool.app ");
  h.drop(kMiddle, files({"plain", "a.png", "Tool.app"}));
  EXPECT_EQ(taken(), "got Tool.app ");
}

struct Labelled {
  std::vector<std::string> extensions;
  bool canDelete;
  std::shared_ptr<std::optional<State<std::optional<Url>>>> held;

  View body(Context& context) const {
    const auto file = context.state(std::optional<Url>());
    *held = file;
    return ZQFileDragAreaWithLabel({.label = "Cover",
                                    .url = file.binding(),
                                    .acceptedExtensions = extensions,
                                    .promptString = "Here",
                                    .canDelete = canDelete});
  }
};

TEST_F(Compositions, aLabelledAreaKeepsTheFileInItsBindingAndTheButtonTakesItAway) {
  const auto held = std::make_shared<std::optional<State<std::optional<Url>>>>();
  Harness h(Labelled{{"png"}, true, held}, kSize);
  EXPECT_EQ(shown(h), kSymbol + "<delete.left> Cover Here ");
  const Element area = h.find(Role::button, "Here");
  EXPECT_LT(h.findText("Cover").bounds.maxX(), area.bounds.x);
  EXPECT_LT(area.bounds.maxX(), h.button("Delete").bounds.x);
  h.drop(area.center(), files({"a.png", "b.PNG"}));
  EXPECT_EQ(***held, url("a.png"));
  EXPECT_EQ(shown(h), "<delete.left> Cover a.png ");
  h.click(h.button("Delete"));
  EXPECT_EQ(***held, std::nullopt);
  clickOpens(h, {"png"}, area.center());
  h.resize({300, 10});
  EXPECT_EQ(h.find(Role::button, "Here").bounds.height, 40);

  Harness any(Labelled{{}, false, held}, kSize);
  EXPECT_FALSE(any.button("Delete"));
  EXPECT_TRUE(any.drop(any.find(Role::button).center(), files({"a.png"})));
  EXPECT_EQ(***held, std::nullopt) << "an empty list accepts no drop";
  platform.fileDialogs().answerNext({folder.path("c.txt")});
  any.click(any.find(Role::button));
  EXPECT_EQ(***held, url("c.txt"));
}

TEST_F(Compositions, aWellKeepsWhatIsDroppedInItsStore) {
  writePicture("photo.png");
  const ZQSubFiles store(url("store"));
  std::optional<std::string> id;
  const Binding<std::optional<std::string>> binding([&] { return id; },
                                                    [&](const auto& now) {
                                                      log += "id ";
                                                      id = now;
                                                    });
  const auto well = [&] {
    return View(ZQSubFileImageWellView(
        {.subFiles = store, .id = binding, .somethingDragged = note("dragged")}));
  };
  Harness h(well(), kSize);
  EXPECT_EQ(shown(h), kSymbol + "Drag Image Here ");
  h.drop(kMiddle, files({"c.txt"}));
  EXPECT_EQ(taken(), "");
  h.drop(kMiddle, files({"photo.png", "a.png"}));
  EXPECT_EQ(taken(), "id dragged photo.png ");
  ASSERT_TRUE(id);
  h.setRoot(well());
  EXPECT_EQ(commands(h), (std::vector<std::string>{"picture", "frame"}));
  EXPECT_EQ(h.drawn().front().bounds.height, std::min(kSize.width, kSize.height) - 2 * 4);
  EXPECT_EQ(shown(h), "");
  clickOpens(h, {"png", "jpeg", "jpg"});
  h.setRoot(well().id("anew"));
  EXPECT_EQ(shown(h), kSymbol) << "with a picture the prompt is empty, its symbol is not";
  h.drop(kMiddle, files({"missing.png"}));
  EXPECT_EQ(taken(), "id dragged missing.png ");
  EXPECT_EQ(id, std::nullopt) << "what cannot be kept leaves nothing";
}

}  // namespace
}  // namespace zq
