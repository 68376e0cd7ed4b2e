// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <tests/configurator/open_project.hpp>

namespace zq::configurator {
namespace {

using Insights = OpenProject;

TEST_F(Insights, problemsAreToldOfTheGroupOrItemThatHasThem) {
  ZQUICItem text{.id = "text",
                 .key = "Größe \"中\"",
                 .type = ZQUICRecordType::string,
                 .stringValue = "one\ntwo \"три\"\n\U0001F600"};
  const ZQUICProject project = ZQUICProject().withGroups(
      {{.id = "gone", .name = "Ink", .itemList = {{.key = "?!"}}, .shouldBeDeleted = true},
       {.id = "ink",
        .name = "Ink\n中\U0001F600",
        .itemList = {{.id = "flagged", .key = "Zoom", .shouldBeDeleted = true},
                     text,
                     {.id = "zoom", .key = "Zoom"},
                     {.id = "again", .key = "Zoom!"},
                     {.id = "signs", .key = "?!"}}},
       {.id = "dots", .name = "…"},
       {.id = "same", .name = "Ink 中\U0001F600", .itemList = {{.id = "fine", .key = "Fine"}}}});
  const Findings found = findingsIn(ProjectContent::of(project));
  EXPECT_TRUE(found.ofProject.empty());
  std::size_t count = 0;
  for (const char* const id : {"text", "again", "signs", "dots", "same"}) {
    ASSERT_NE(found.of(id), nullptr) << id;
    count += found.of(id)->size();
  }
  EXPECT_EQ(found.count, count);
  for (const char* const id : {"gone", "ink", "flagged", "zoom", "fine"}) {
    EXPECT_EQ(found.of(id), nullptr) << id;
  }
}

TEST_F(Insights, theCodeOfTheSelectedGroupFollowsEditsAndTheSelection) {
  const auto document = open();
  const auto insight = Insight::of(document);
  insight->showCodeOf("canvas");
  platform.advance(1);
  EXPECT_NE(insight->code()->swift.find("maxZoom"), std::string::npos);
  EXPECT_NE(insight->code()->cpp.find("maxZoom"), std::string::npos);
  document->edit("Rename value", [](ProjectContent& content) {
    editItem(content, "canvas", "zoom", [](ZQUICItem& item) { item.key = "Least zoom"; });
  });
  platform.advance(1);
  EXPECT_NE(insight->code()->swift.find("leastZoom"), std::string::npos);
  EXPECT_EQ(insight->findings()->count, 0U);
  document->edit("Rename value", [](ProjectContent& content) {
    editItem(content, "canvas", "zoom", [](ZQUICItem& item) { item.key = "Title"; });
  });
  insight->showCodeOf("paper");
  platform.advance(1);
  EXPECT_NE(insight->code()->swift.find("White"), std::string::npos);
  EXPECT_EQ(insight->code()->swift.find("Title"), std::string::npos);
  EXPECT_NE(insight->findings()->of("title"), nullptr);  // the second of that name
  document->edit("Delete group", [](ProjectContent& content) { flagGroup(content, "paper"); });
  platform.advance(1);
  EXPECT_EQ(*insight->code(), GroupCode());
}

}  // namespace
}  // namespace zq::configurator
