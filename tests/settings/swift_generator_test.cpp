// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>

#include <limits>
#include <tests/settings/kept.hpp>
#include <zqswiftui/platform/base/zq_id.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq {
namespace {

constexpr const char* header =
    "#if os(OSX)\nimport ZQSwiftUI\n#else\nimport ZQSwiftUI_iOS\n#endif\n\n\n"
    "extension ZQConfig {\n\n";

class SwiftSource : public testing::Test {
 protected:
  static ZQUICProject of(std::vector<ZQUICGroup> groups) {
    ZQUICProject project;
    project.setGroupList(std::move(groups));
    return project;
  }

  HeadlessPlatform platform;
};

TEST_F(SwiftSource, aBlockIsThisTextCharacterByCharacter) {
  const ZQUICGroup canvas{.name = "Canvas"};
  const struct {
    ZQUICItem item;
    const char* block;
  } rows[] = {
      {{.key = "Max zoom", .doubleValue = 4},
       "\tvar Canvas_maxZoom : Double {\n#if DEBUG\n\t\tdouble (\"Canvas\", \"maxZoom\")\n"
       "#else\n\t\t4.0\n#endif\n\t}\n\n"},
      {{.key = "n",
        .type = ZQUICRecordType::int_,
        .intValue = std::numeric_limits<std::int64_t>::min(),
        .doubleValue = 1},
       "\tvar Canvas_n : Int {\n#if DEBUG\n\t\tint (\"Canvas\", \"n\")\n"
       "#else\n\t\t-9223372036854775808\n#endif\n\t}\n\n"},
      {{.key = "2nd \"title\"", .type = ZQUICRecordType::string, .stringValue = "a \"b\"\n\\(c)"},
       "\tvar Canvas__2ndTitle : String {\n#if DEBUG\n\t\tstring (\"Canvas\", \"_2ndTitle\")\n"
       "#else\n\t\t\"a \"b\"\n\\(c)\"\n#endif\n\t}\n\n"},
      {{.key = "", .type = ZQUICRecordType::bool_, .boolValue = false},
       "\tvar Canvas__ : Bool {\n#if DEBUG\n\t\tbool (\"Canvas\", \"_\")\n"
       "#else\n\t\tfalse\n#endif\n\t}\n\n"},
      {{.key = "origin", .type = ZQUICRecordType::pointSize, .pointValue = {1, -2.5e-7}},
       "\tvar Canvas_origin : ZQUICPointSize {\n#if DEBUG\n"
       "\t\tpointSize (\"Canvas\", \"origin\")\n"
       "#else\n\t\tZQUICPointSize (x: 1.0, y: -2.5e-07)\n#endif\n\t}\n\n"},
  };
  std::string all = header;
  ZQUICGroup group = canvas;
  for (const auto& [item, block] : rows) {
    EXPECT_EQ(item.zqcValueDeclaration("ignored", canvas), block);
    group.itemList.push_back(item);
    all += block;
  }
  EXPECT_EQ(of({group}).zqcCode(), all + "}");
}

TEST_F(SwiftSource, onlyWhatIsNotFlaggedIsInIt) {
  EXPECT_EQ(ZQUICProject().zqcCode(), std::string(header).append("}"));
  const ZQUICItem kept{.key = "kept"};
  const ZQUICItem gone{.key = "gone", .shouldBeDeleted = true};
  const ZQUICGroup live{.name = "live", .itemList = {gone, kept, gone, kept}};
  ZQUICGroup dead = live;
  dead.shouldBeDeleted = true;
  const std::string block = kept.zqcValueDeclaration("", live);
  EXPECT_EQ(of({dead, {.name = "empty"}, live, dead}).zqcCode(),
            std::string(header) + block + block + "}");
}

TEST_F(SwiftSource, snippetsReachThePasteboard) {
  const ZQUICGroup group{.name = "Export dialog"};
  const ZQUICItem item{.key = "File name", .type = ZQUICRecordType::string};
  const auto pasted = [this] {
    std::string text;
    platform.pasteboard().readText([&text](const auto& read) { text = read.value_or("nothing"); });
    platform.runUntilIdle();
    return text;
  };
  item.copyZQCValue("config", group);
  EXPECT_EQ(pasted(), "config.exportDialog_fileName");
  item.copyValue("config");
  EXPECT_EQ(pasted(), "config.string (Self.File name)");
  ZQUICProject project;
  project.environmentObjectVarName = "settings";
  project.copyEnviromentObject();
  EXPECT_EQ(pasted(), " @EnvironmentObject var settings :\tZQConfig\n");
}

TEST_F(SwiftSource, projectsGiveTheTextsThatWereKept) {
  for (const std::string& name : keptProjects()) {
    expectKept(name + ".swift", ZQUICProject(Url::file(keptPath(name + ".zquic"))).zqcCode());
  }
}

// Two thousand items of all kinds; their text is long, so its digest is kept.
TEST_F(SwiftSource, aBigProjectGivesTheTextThatWasKept) {
  const std::vector<std::string> words{"line", "Width", "URL", "2nd", "größe", "of", "a-b", "ÄÖ"};
  std::uint32_t random = 7;
  const auto next = [&random] { return (random = random * 1664525 + 1013904223) >> 8; };
  const auto name = [&] {
    std::string text;
    for (std::uint32_t left = next() % 3 + 1; left > 0; --left) text += words[next() % 8] + " ";
    return text + std::to_string(next() % 1000);
  };
  std::vector<ZQUICGroup> groups(50);
  for (ZQUICGroup& group : groups) {
    group.name = name();
    for (int i = 0; i < 40; ++i) {
      const auto whole = static_cast<std::int64_t>(next()) * next();
      const double number = static_cast<double>(whole) / (1u << (next() % 32));
      group.itemList.push_back({.key = name(),
                                .type = allRecordTypes[next() % allRecordTypes.size()],
                                .intValue = whole - (std::int64_t{1} << 46),
                                .doubleValue = number,
                                .stringValue = name(),
                                .boolValue = next() % 2 == 0,
                                .pointValue = {number / 3, -number}});
    }
  }
  const std::string code = of(std::move(groups)).zqcCode();
  expectKept("big.swift.md5", ZQId::md5(code) + "\n");
}

}  // namespace
}  // namespace zq
