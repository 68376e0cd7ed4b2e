// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <tests/files/drop_areas.hpp>
#include <zqswiftui/files/zq_file_drag_area_view.hpp>
#include <zqswiftui/files/zq_folder_drag_area_view.hpp>
#include <zqswiftui/files/zq_multiple_files_drag_area_view.hpp>
#include <zqswiftui/files/zq_text_drag_area_view.hpp>
#include <zqswiftui/platform/toolkit/toolkit.hpp>

namespace zq {
namespace {

constexpr Point kAreaMiddle{100, 50};
constexpr Size kAreaSize{200, 100};
const std::string kAreaSymbol = "<square.and.arrow.down> ";

std::string printedBy(const std::function<void()>& act) {
  testing::internal::CaptureStdout();
  act();
  return testing::internal::GetCapturedStdout();
}

TEST_F(DropAreas, aFileAreaHandsOverWhatItAcceptsInOrderAndEachOnce) {
  struct Case {
    const char* what;
    ZQFileDragAreaView::Extensions extensions;
    bool onlyFirst;
    bool folders;
    std::vector<std::string> dropped;
    const char* heard;
  };
  using Extensions = ZQFileDragAreaView::Extensions;
  const Extensions all, png = Extensions{{"PNG"}};
  for (const Case& row : std::vector<Case>{
           {"any case", png, false, false, {"a.png", "b.PNG"}, "yes a.png yes b.PNG "},
           {"mixed", png, false, false, {"c.txt", "a.png"}, "no c.txt yes a.png "},
           {"twice", png, false, false, {"a.png", "b.PNG", "a.png"}, "yes a.png yes b.PNG "},
           {"twice refused", png, false, false, {"c.txt", "c.txt"}, "no c.txt "},
           {"first", png, true, false, {"a.png", "b.PNG"}, "yes a.png "},
           {"first refused", png, true, false, {"c.txt", "a.png"}, "no c.txt "},
           {"folder refused", png, false, false, {"plain"}, "no plain "},
           {"folder", png, false, true, {"plain", "Tool.app"}, "yes plain yes Tool.app "},
           {"folder among all", all, false, false, {"plain"}, "yes plain "},
       }) {
    SCOPED_TRACE(row.what);
    Harness h(ZQFileDragAreaView({.acceptedExtensions = row.extensions,
                                  .onlyFirst = row.onlyFirst,
                                  .acceptFolders = row.folders,
                                  .onDragEntered = [] { ADD_FAILURE(); },
                                  .onDragUnsupported = note("no"),
                                  .onDrag = note("yes")}),
              kAreaSize);
    EXPECT_TRUE(h.drop(kAreaMiddle, files(row.dropped)));
    EXPECT_EQ(taken(), row.heard);
  }
}

TEST_F(DropAreas, whatCannotBeReadIsLeftOutAndAnEmptyDropIsRefused) {
  Harness h(ZQFileDragAreaView({.onDragUnsupported = note("no"), .onDrag = note("yes")}),
            kAreaSize);
  using Contents = std::vector<std::pair<std::string, std::string>>;
  const auto item = [](Contents contents) {
    return std::make_shared<HeadlessDragItem>(std::move(contents));
  };
  // The first type counts: a text that is also an address is a text.
  const DragItems items{item({{"public.utf8-plain-text", "x"}, {"public.url", "http://a/text"}}),
                        item({{"public.url", "no address"}}), item({{"public.url", ""}}),
                        item({{"public.file-url", "file:///b%20c"}}),
                        item({{"public.url", "https://example.org/d.html"}})};
  EXPECT_EQ(printedBy([&] { EXPECT_TRUE(h.drop(kAreaMiddle, items)); }), "");
  EXPECT_EQ(taken(), "yes b c yes d.html ");
  EXPECT_EQ(printedBy([&] {
              EXPECT_FALSE(h.drop(kAreaMiddle, DropInfo{{}, {"public.url"}, {}}));
              EXPECT_FALSE(h.drop(kAreaMiddle, draggedText("words")));
            }),
            "item not here\n");
  EXPECT_EQ(taken(), "");
}

TEST_F(DropAreas, thePromptGoesWithTheFirstAcceptedFile) {
  const auto area = [this](std::optional<Url> shownUrl, bool always, bool name = true) {
    return View(ZQFileDragAreaView({.url = std::move(shownUrl),
                                    .acceptedExtensions = {{"png"}},
                                    .promptString = "Here",
                                    .alwaysPrompt = always,
                                    .displayFileName = name,
                                    .onDrag = note("yes")}));
  };
  Harness h(area({}, false), kAreaSize);
  EXPECT_EQ(shown(h), kAreaSymbol + "Here ");
  h.drop(kAreaMiddle, files({"c.txt"}));
  EXPECT_EQ(shown(h), kAreaSymbol + "Here ");
  h.drop(kAreaMiddle, files({"a.png"}));
  EXPECT_EQ(shown(h), "");
  h.setRoot(area(url("a.png"), false));
  EXPECT_EQ(shown(h), "a.png ");
  h.setRoot(area({}, false));
  EXPECT_EQ(shown(h), "") << "it never comes back";
  h.setRoot(area(url("a.png"), true));
  EXPECT_EQ(shown(h), "Here a.png ");
  h.setRoot(area(url("a.png"), false, false).id("anew"));
  EXPECT_EQ(shown(h), "");
  h.setRoot(area({}, false).id("anew too"));
  EXPECT_EQ(shown(h), kAreaSymbol + "Here ");
}

TEST_F(DropAreas, aClickSpaceOrEnterOpensTheChooserWhateverIsAskedFor) {
  Harness h(ZQFileDragAreaView({.acceptedExtensions = {{"PNG"}},
                                .tapToShowOpenDialog = false,
                                .onDragUnsupported = note("no"),
                                .onDrag = note("yes")}),
            kAreaSize);
  FileDialogRequest asked;
  asked.title = "Open";
  asked.extensions = {"png"};
  h.tab();
  h.key(Key::space);
  h.key(Key::enter);
  EXPECT_EQ(taken(), "") << "cancelled";
  platform.fileDialogs().answerNext({folder.path("c.txt")});
  h.click({15, 85});
  EXPECT_EQ(taken(), "yes c.txt ") << "what is chosen is not judged";
  ASSERT_EQ(platform.fileDialogs().requests().size(), 3U);
  for (const auto& request : platform.fileDialogs().requests()) EXPECT_EQ(request, asked);
}

TEST_F(DropAreas, aDragOverItChangesNothing) {
  Harness h(ZQFileDragAreaView({.promptString = "Here", .onDrag = note("yes")}), kAreaSize);
  const std::string before = h.displayList();
  EXPECT_TRUE(h.dragOver(kAreaMiddle, {{}, {"public.file-url"}}));
  EXPECT_TRUE(h.dragOver(kAreaMiddle, {{}, {"public.url"}}));
  EXPECT_EQ(h.displayList(), before);
  EXPECT_FALSE(h.dragOver(kAreaMiddle, {{}, {"public.png"}}));
  h.dragLeave();
  EXPECT_EQ(h.displayList(), before);
  EXPECT_EQ(taken(), "");
}

TEST_F(DropAreas, theFrameLiesInsideOfTheArea) {
  for (const double width : {0.67, 1.0, 4.0}) {
    Harness h(ZQFileDragAreaView({.strokeWidth = width, .onDrag = note("yes")}), kAreaSize);
    const auto drawn = h.drawn();
    ASSERT_EQ(drawn.size(), 1U);
    const auto& line = std::get<StrokePath>(drawn[0].command);
    const Rect inside = Rect{0, 0, kAreaSize.width, kAreaSize.height}.insetBy(width / 2);
    EXPECT_EQ(line.style, (StrokeStyle{.lineWidth = width}));
    EXPECT_EQ(line.path->bounds(), inside);
    EXPECT_EQ(*line.path, Path().addRoundedRect(inside, 8, true));
    EXPECT_EQ(line.paint, Paint(Color::primary()));
  }
  Harness bad(ZQFileDragAreaView({.strokeWidth = -1, .onDrag = note("yes")}), kAreaSize);
  EXPECT_TRUE(bad.drawn().empty());
}

TEST_F(DropAreas, aFolderAreaTakesFoldersOrBundlesAndAsksForOne) {
  for (const bool apps : {false, true}) {
    Harness h(
        ZQFolderDragAreaView({.url = url("plain"), .appsOnly = apps, .callback = note("got")}),
        kAreaSize);
    EXPECT_EQ(shown(h), kAreaSymbol + "plain ");
    EXPECT_EQ(h.findSymbol("square.and.arrow.down").color(), Color::gray());
    EXPECT_TRUE(h.drop(kAreaMiddle, files({"a.png", "plain", "Tool.app", "missing.app"})));
    EXPECT_EQ(taken(), apps ? "got Tool.app " : "got plain got Tool.app ");
    platform.fileDialogs().answerNext({folder.path("plain")});
    h.click(kAreaMiddle);
    EXPECT_EQ(taken(), "got plain ") << "what is chosen is not judged";
    const FileDialogRequest& request = platform.fileDialogs().requests().back();
    EXPECT_EQ(request.kind, FileDialogRequest::Kind::chooseFolder);
    EXPECT_EQ(request.title, "Choose Folder");
  }
  Harness silent(ZQFolderDragAreaView({.showName = false, .showImage = false}), kAreaSize);
  EXPECT_EQ(shown(silent), "");
  EXPECT_TRUE(silent.drop(kAreaMiddle, files({"plain"})));
  silent.click(kAreaMiddle);
}

class MultipleFiles : public DropAreas {
 protected:
  ZQMultipleFilesDragAreaView area() {
    return ZQMultipleFilesDragAreaView(
        {.acceptedExtensions = {{"PNG"}}, .acceptFolders = true, .onDrag = [this](const auto& all) {
           EXPECT_TRUE(platform.mainQueue().isMainThread());
           for (const Url& one : all) log += one.name() + ' ';
           log += "| ";
         }});
  }
};

TEST_F(MultipleFiles, areHandedOverInOneCallATenthOfASecondAfterTheLast) {
  Harness h(area(), kAreaSize);
  EXPECT_TRUE(h.drop(kAreaMiddle, files({"a.png", "c.txt", "plain", "b.PNG", "a.png"})));
  h.advance(0.09);
  EXPECT_EQ(taken(), "");
  EXPECT_TRUE(h.drop(kAreaMiddle, files({"Tool.app"})));
  h.advance(0.09);
  EXPECT_EQ(taken(), "") << "the second drop is gathered with the first";
  h.advance(0.02);
  EXPECT_EQ(taken(), "a.png plain b.PNG a.png Tool.app | ");
  h.drop(kAreaMiddle, files({"c.txt"}));
  h.advance(1);
  EXPECT_EQ(taken(), "") << "nothing was accepted";
  h.drop(kAreaMiddle, files({"b.PNG"}));
  h.advance(0.11);
  EXPECT_EQ(taken(), "b.PNG | ") << "the list began anew";
  h.click(kAreaMiddle);
  EXPECT_TRUE(platform.fileDialogs().requests().empty());
}

TEST_F(MultipleFiles, areDroppedWithTheAreaAndAskTheLatestHost) {
  Harness h(area(), kAreaSize);
  h.drop(kAreaMiddle, files({"a.png"}));
  h.setRoot(Text("gone"));
  h.advance(1);
  EXPECT_EQ(taken(), "");
  h.setRoot(area());
  h.drop(kAreaMiddle, files({"a.png"}));
  h.setRoot(ZQMultipleFilesDragAreaView(
      {.acceptFolders = false, .onDrag = [this](const auto&) { log += "later"; }}));
  h.advance(1);
  EXPECT_EQ(taken(), "later");
}

TEST_F(DropAreas, aTextAreaTakesTheFirstText) {
  const auto area = [this](std::optional<std::string> prompt, bool always) {
    return ZQTextDragAreaView({.promptString = std::move(prompt),
                               .alwaysPrompt = always,
                               .onDrag = [this](const std::string& text) {
                                 EXPECT_TRUE(platform.mainQueue().isMainThread());
                                 log += '[' + text + ']';
                               }});
  };
  Harness h(area("Here", false), kAreaSize);
  EXPECT_EQ(shown(h), kAreaSymbol + "Here ");
  DragItems items = draggedText("grün\n2");
  items.push_back(draggedText("second").front());
  EXPECT_TRUE(h.drop(kAreaMiddle, items));
  EXPECT_EQ(taken(), "[grün\n2]");
  EXPECT_EQ(shown(h), kAreaSymbol + "Here ") << "the prompt stays";
  EXPECT_TRUE(h.drop(kAreaMiddle, DropInfo{{}, {"public.utf8-plain-text"}, {}}));
  EXPECT_EQ(taken(), "[]");
  EXPECT_TRUE(h.drop(kAreaMiddle, draggedText("a\xff")));
  EXPECT_EQ(taken(), "[a\xEF\xBF\xBD]");
  EXPECT_FALSE(h.drop(kAreaMiddle, files({"a.png"})));
  h.setRoot(area("Here", true));
  EXPECT_EQ(shown(h), "Here ");
  h.setRoot(area(std::nullopt, false));
  EXPECT_EQ(shown(h), "");
}

TEST_F(DropAreas, callbacksEndOnTheInterfaceThread) {
  HeadlessPlatform* known = &platform;
  struct Ends {
    ~Ends() { EXPECT_TRUE(platform->mainQueue().isMainThread()); }
    HeadlessPlatform* platform;
  };
  Harness h(Text("none"), kAreaSize);
  for (const bool text : {false, true}) {
    const auto ends = std::make_shared<Ends>(Ends{known});
    const auto weak = std::weak_ptr(ends);
    h.setRoot([&, held = ends]() -> View {
      if (text) return ZQTextDragAreaView({.onDrag = [held](const auto&) {}});
      return ZQFileDragAreaView({.onDrag = [held](const auto&) {}});
    }());
    h.host().drop({kAreaMiddle,
                   {"public.file-url", "public.utf8-plain-text"},
                   text ? draggedText("x") : files({"a.png", "b.PNG"})});
    h.host().setRoot(Text("gone"));
    h.settle();
    EXPECT_EQ(weak.use_count(), 1);
  }
}

TEST_F(DropAreas, assistiveTechnologyHearsWhatIsAccepted) {
  struct Case {
    View view;
    Role role;
    const char* name;
    const char* value;
    const char* description;
  };
  const Case rows[] = {
      {ZQFileDragAreaView(
           {.url = url("a.png"), .acceptedExtensions = {{"PNG"}}, .onDrag = nullptr}),
       Role::button, "Drop a file or choose one", "a.png", "Accepts png"},
      {ZQFileDragAreaView({.promptString = "Cover", .onDrag = nullptr}), Role::button, "Cover", "",
       "Accepts any file or folder"},
      {ZQFolderDragAreaView(), Role::button, "Drop a folder or choose one", "", "Accepts folders"},
      {ZQFolderDragAreaView({.appsOnly = true}), Role::button, "Drop an application or choose one",
       "", "Accepts application bundles"},
      {ZQMultipleFilesDragAreaView({.acceptFolders = true, .onDrag = nullptr}), Role::group,
       "Drop files", "", "Accepts any file or folder"},
      {ZQTextDragAreaView({.onDrag = nullptr}), Role::group, "Drop a text", "", "Accepts text"},
  };
  for (const Case& row : rows) {
    Harness h(row.view, kAreaSize);
    const Element area = h.find(row.role, row.name);
    ASSERT_TRUE(area) << h.accessibility();
    EXPECT_EQ(area.value, row.value);
    EXPECT_EQ(area.description, row.description);
    // A host without a callback is no fault.
    h.click(kAreaMiddle);
    h.drop(kAreaMiddle, files({"a.png", "plain"}));
    h.drop(kAreaMiddle, draggedText("x"));
    h.advance(1);
  }
}

}  // namespace
}  // namespace zq
