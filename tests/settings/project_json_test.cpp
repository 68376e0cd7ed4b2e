// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/settings/own_form_reader.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

ZQUICProject decoded(const std::string& json) {
  auto project = decodeProject(json);
  EXPECT_TRUE(project.ok()) << json << "\n" << (project.ok() ? "" : project.error().sentence);
  return project.ok() ? std::move(project).value() : ZQUICProject();
}

ZQUICItem decodedItem(const std::string& members) {
  const ZQUICProject project =
      decoded(R"({"groupList":[{"name":"G","itemList":[{)" + members + "}]}]}");
  const auto items = project.itemList();
  EXPECT_EQ(items.size(), 1u) << members;
  return items.empty() ? ZQUICItem() : items[0];
}

std::string encoded(const ZQUICProject& project, JsonStyle style = JsonStyle::compact) {
  auto json = encodeProject(project, style);
  EXPECT_TRUE(json.ok());
  return json.ok() ? std::move(json).value() : "";
}

// A slot whose value is missing, null or of another kind must read as the fallback and harm
// no other slot.
std::vector<std::string> wrongValues(const std::string& kind) {
  std::vector<std::string> wrong{"null", "[]", "{}", "[1]", R"({"x":1})"};
  if (kind != "text") wrong.insert(wrong.end(), {R"("1")", R"("")"});
  if (kind != "flag") wrong.insert(wrong.end(), {"true", "false"});
  if (kind != "whole" && kind != "number") wrong.insert(wrong.end(), {"0", "1", "-1.5"});
  if (kind == "whole") {
    wrong.insert(wrong.end(), {"1.5", "15e-1", "9223372036854775808", "1e19", "1e999999999999",
                               "-9223372036854775809", "1e400"});
  }
  if (kind == "number") wrong.insert(wrong.end(), {"1e400", "-1e999999999999"});
  return wrong;
}

TEST(ProjectJson, everyMemberOfAnItemFallsBackByItself) {
  struct Row {
    std::string name, kind;
  };
  const ZQUICItem plain{.id = "i", .boolValue = true};
  for (const Row& row :
       {Row{"key", "text"}, Row{"type", "text"}, Row{"intValue", "whole"},
        Row{"doubleValue", "number"}, Row{"stringValue", "text"}, Row{"boolValue", "flag"},
        Row{"pointValue", "point"}, Row{"shouldBeDeleted", "flag"}}) {
    for (const std::string& value : wrongValues(row.kind)) {
      const ZQUICItem item = decodedItem("\"id\":\"i\",\"" + row.name + "\":" + value);
      EXPECT_EQ(item, plain) << row.name << ": " << value;
    }
  }
  EXPECT_EQ(decodedItem(R"("id":"i")"), plain);
  EXPECT_THAT(decodedItem(R"("id":7)").id, Not(IsEmpty()));
  EXPECT_EQ(decodedItem(R"("id":"")").id, "");
}

TEST(ProjectJson, theFallbacksOfAProjectAndAGroupAreTheirOwn) {
  const auto expectBlank = [](const ZQUICProject& project, const std::string& from) {
    EXPECT_THAT(project.id, Not(IsEmpty())) << from;
    EXPECT_EQ(project.name, "NewApp") << from;
    EXPECT_EQ(project.appBundleId, "") << from;
    EXPECT_EQ(project.configFileUrl, std::nullopt) << from;
    EXPECT_EQ(project.configSwiftFileUrl, std::nullopt) << from;
    EXPECT_THAT(project.groupList(), IsEmpty()) << from;
    EXPECT_EQ(project.environmentObjectVarName, "zqc") << from;
    EXPECT_EQ(project.defaultDoubleValue, 64) << from;
    EXPECT_EQ(project.defaultIntValue, 0) << from;
    EXPECT_TRUE(project.defaultBoolValue && project.expanded) << from;
    EXPECT_EQ(project.selectedGroupId, std::nullopt) << from;
  };
  expectBlank(decoded("{}"), "{}");
  struct Row {
    std::string name, kind;
  };
  for (const Row& row :
       {Row{"id", "text"}, Row{"name", "text"}, Row{"appBundleId", "text"},
        Row{"configFileUrl", "text"}, Row{"configSwiftFileUrl", "text"},
        Row{"environmentObjectVarName", "text"}, Row{"defaultDoubleValue", "number"},
        Row{"defaultIntValue", "whole"}, Row{"selectedGroupId", "text"}}) {
    for (const std::string& value : wrongValues(row.kind)) {
      const std::string json = "{\"" + row.name + "\":" + value + "}";
      expectBlank(decoded(json), json);
    }
  }
  expectBlank(decoded(R"({"groupList":{"name":"G"}})"), "an object for the groups");
  expectBlank(decoded(R"({"defaultBoolValue":0,"expanded":"no"})"), "flags");
  EXPECT_EQ(decoded(R"({"configFileUrl":"a/b.zquic"})").configFileUrl, std::nullopt);

  const ZQUICProject project = decoded(R"({"groupList":[{"name":3,"itemList":4,"expanded":5}]})");
  ASSERT_EQ(project.groupList().size(), 1u);
  const ZQUICGroup& group = project.groupList()[0];
  EXPECT_THAT(group.id, Not(IsEmpty()));
  EXPECT_EQ(group.name, "NewGroup");
  EXPECT_TRUE(group.itemList.empty() && group.expanded && !group.shouldBeDeleted);
}

TEST(ProjectJson, numbersAreTakenAsTheyAreMeant) {
  EXPECT_EQ(decodedItem(R"("intValue":3.0)").intValue, 3);
  EXPECT_EQ(decodedItem(R"("intValue":1e3)").intValue, 1000);
  EXPECT_EQ(decodedItem(R"("intValue":-1.50e1)").intValue, -15);
  EXPECT_EQ(decodedItem(R"("intValue":9223372036854775807.0)").intValue,
            std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(decodedItem(R"("intValue":-9223372036854775808)").intValue,
            std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(decodedItem(R"("doubleValue":1e-400)").doubleValue, 0);
  EXPECT_EQ(decodedItem(R"("doubleValue":123456789012345678901234567890)").doubleValue,
            123456789012345678901234567890.0);
  const ZQUICItem item = decodedItem(R"("pointValue":{"x":1,"y":-2.5,"z":[3]},"type":"float")");
  EXPECT_EQ(item.pointValue, (ZQUICPointSize{1, -2.5}));
  EXPECT_EQ(item.type, ZQUICRecordType::double_);
  for (const char* const half : {R"({"x":1})", R"({"x":1,"y":"2"})", R"({"x":1,"y":1e999})"}) {
    EXPECT_EQ(decodedItem(R"("pointValue":)" + std::string(half)).pointValue, ZQUICPointSize());
  }
}

TEST(ProjectJson, aNumberTooBigForItsSlotHarmsNothingElseInTheFile) {
  const ZQUICProject project = decoded(
      R"({"groupList":[{"itemList":[{"key":"a \" 1e999 \\","doubleValue":-1e999,"intValue":1},)"
      R"({"key":"b","doubleValue":2,"other":[1e5000,{"deep":123e99999}]}]}],"name":"N"})");
  ASSERT_EQ(project.itemCount(), 2u);
  EXPECT_EQ(project.itemList()[0].key, R"(a " 1e999 \)");
  EXPECT_EQ(project.itemList()[0].intValue, 1);
  EXPECT_EQ(project.itemList()[1].doubleValue, 2);
  EXPECT_EQ(project.name, "N");
}

TEST(ProjectJson, theLastOfTwoEqualKeysHolds) {
  EXPECT_EQ(decodedItem(R"("key":"a","key":"b")").key, "b");
  EXPECT_EQ(decodedItem(R"("key":"a","key":null)").key, "");
  EXPECT_EQ(decodedItem(R"("pointValue":{"x":1,"y":2},"pointValue":3)").pointValue,
            ZQUICPointSize());
  EXPECT_EQ(decodedItem(R"("pointValue":{"x":1,"y":2,"x":"3"})").pointValue, ZQUICPointSize());
  const ZQUICProject project =
      decoded(R"({"groupList":[{"name":"a"},{"name":"b"}],"groupList":[{"name":"c","name":"d"}]})");
  ASSERT_EQ(project.groupList().size(), 1u);
  EXPECT_EQ(project.groupList()[0].name, "d");
  EXPECT_THAT(decoded(R"({"groupList":[{}],"groupList":null})").groupList(), IsEmpty());
  ProjectPlaces places;
  EXPECT_TRUE(decodeEverything(R"({"groupList":[{"itemList":[{}],"itemList":1}]})", places).ok());
  EXPECT_THAT(places.groups[0].items, IsEmpty());
  EXPECT_TRUE(decodeEverything(R"({"groupList":[{}],"groupList":null})", places).ok());
  EXPECT_THAT(places.groups, IsEmpty());
}

TEST(ProjectJson, whatIsFlaggedGoesAndWhatIsNoObjectIsLeftOut) {
  const std::string json =
      R"({"groupList":[1,{"name":"a","shouldBeDeleted":true,"itemList":[{"key":"x"}]},[{}],
        {"name":"b","itemList":[null,{"key":"p"},{"key":"q","shouldBeDeleted":true},"r",
          {"key":"s","unknown":{"key":"t"}}]}]})";
  const ZQUICProject project = decoded(json);
  ASSERT_EQ(project.groupList().size(), 1u);
  EXPECT_EQ(project.groupList()[0].name, "b");
  ASSERT_EQ(project.groupList()[0].itemsCount(), 2u);
  EXPECT_EQ(project.groupList()[0].itemList[0].key, "p");
  EXPECT_EQ(project.groupList()[0].itemList[1].key, "s");

  ProjectPlaces places;
  const auto all = decodeEverything(json, places);
  ASSERT_TRUE(all.ok());
  EXPECT_EQ(all.value().groupList().size(), 2u);
  ASSERT_EQ(places.groups.size(), 2u);
  ASSERT_EQ(places.groups[1].items.size(), 3u);
  EXPECT_EQ(json.substr(places.groups[1].offset, 3), "\"b\"");
  EXPECT_EQ(json.substr(places.groups[1].items[1], 3), "\"q\"");
}

TEST(ProjectJson, whatIsNoProjectIsRefusedWithItsPlace) {
  struct Row {
    std::string json, sentence;
  };
  std::string deep = R"({"a":)";
  for (int level = 0; level < 64; ++level) deep += "[";
  for (const Row& row :
       {Row{"", "1:1: expected a value"}, Row{"[]", "1:1: expected a project"},
        Row{"3", "1:1: expected a project"}, Row{"{\n  \"a\": ,\n}", "2:8: expected a value"},
        Row{"{\"é\": 1 2}", "1:9: expected a comma or a closing brace"},
        Row{"{\"a\" 1}", "1:6: expected a colon"},
        Row{"{a: 1}", "1:2: expected a key in double quotes"},
        Row{"{\"a\":1,}", "1:8: expected a key"}, Row{"{} {}", "1:4: expected the end"},
        Row{"{\"a\":\"b", "the text has no closing quote"},
        Row{"{\"a\":\"\\ud800\"}", "half of a character"},
        Row{"{\"a\":\"\xFF\"}", "1:7: this is not UTF-8"},
        Row{std::string("{}\0{}", 5), "1:3: this is not UTF-8"},
        Row{"{\"a\":-}", "expected a value"}, Row{deep, "nested deeper than 64 levels"}}) {
    const auto project = decodeProject(row.json);
    ASSERT_FALSE(project.ok()) << row.json;
    EXPECT_THAT(project.error().sentence, HasSubstr(row.sentence)) << row.json;
  }
  EXPECT_EQ(decoded("\xEF\xBB\xBF{\"name\":\"marked\"}").name, "marked");
  EXPECT_EQ(decoded(R"({"name":"�"})").name, "�");
}

TEST(ProjectJson, aProjectComesBackAsItWasWritten) {
  const HeadlessPlatform platform;
  ZQUICProject project;
  project.id = "p";
  project.name = "Canvas \"1\"\n\t\x01\xE2\x82\xAC\\";
  project.configFileUrl = Url::file("/tmp/a b.zquic");
  project.defaultDoubleValue = 0.1;
  project.selectedGroupId = "g";
  const ZQUICItem item{.id = "i",
                       .key = "Max zoom",
                       .type = ZQUICRecordType::pointSize,
                       .intValue = -3,
                       .doubleValue = 1e-7,
                       .stringValue = "a",
                       .boolValue = false,
                       .pointValue = {1, -0.5}};
  project.setGroupList(
      {{.id = "g", .name = "G", .itemList = {item}, .expanded = false}, {.id = "h", .name = "H"}});
  for (const JsonStyle style : {JsonStyle::compact, JsonStyle::pretty}) {
    const std::string json = encoded(project, style);
    const ZQUICProject copy = decoded(json);
    EXPECT_EQ(copy.groupList(), project.groupList());
    EXPECT_EQ(copy.name, project.name);
    EXPECT_EQ(copy.configFileUrl->path(), "/tmp/a b.zquic");
    EXPECT_EQ(copy.selectedGroupId, "g");
    EXPECT_EQ(encoded(copy, style), json);
  }
  project.setGroupList({{.id = "g", .name = "bad \xFF", .itemList = {item}}});
  EXPECT_EQ(decoded(encoded(project)).groupList()[0].name, "bad \xEF\xBF\xBD");
}

// Two readers take turns: one for the form in which projects are written, one for all else.
// What the first accepts must mean the same to the other, and every small change of a text must
// give the same project, or refusal, whoever reads it.
TEST(ProjectJson, bothReadersAgreeOnEverySmallChangeOfAFile) {
  const HeadlessPlatform platform;
  ZQUICProject project;
  project.id = "p";
  project.selectedGroupId = "g";
  project.configFileUrl = Url::file("/a");
  project.setGroupList(
      {{.id = "g",
        .name = "G",
        .itemList = {{.id = "i", .key = "k\n", .intValue = -12, .doubleValue = 0.25},
                     {.id = "j", .doubleValue = 1e-7, .pointValue = {-1.5, 123456.789}}}}});
  const std::string json = encoded(project);
  ASSERT_TRUE(readOwnForm(encoded(project, JsonStyle::pretty)) == std::nullopt);  // an escape
  project.editGroupList([](auto& groups) { groups[0].itemList[0].key = "k"; });
  ASSERT_TRUE(readOwnForm(encoded(project, JsonStyle::pretty)).has_value());
  ProjectPlaces unused;
  for (const std::string& text : {json, encoded(project), encoded(project, JsonStyle::pretty)}) {
    for (std::size_t at = 0; at < text.size(); ++at) {
      for (const std::string_view put :
           {"", "0", "-", ".", "\"", ",", "}", "]", "e", "\\", " ", "null"}) {
        std::string changed = text;
        changed.replace(at, 1, put);
        const auto own = readOwnForm(changed);
        const auto other = decodeEverything(changed, unused);
        if (!own) continue;
        ASSERT_TRUE(other.ok()) << changed;
        ASSERT_EQ(encoded(*own), encoded(other.value())) << changed;
      }
    }
  }
}

TEST(ProjectJson, theFileReadsWell) {
  const HeadlessPlatform platform;
  ZQUICProject project;
  project.id = "p";
  project.setGroupList({{.id = "g", .name = "G", .itemList = {{.id = "i", .key = "k"}}}});
  EXPECT_EQ(encoded(project, JsonStyle::pretty), R"({
  "id": "p",
  "name": "New App",
  "appBundleId": "",
  "groupList": [
    {
      "id": "g",
      "name": "G",
      "itemList": [
        {
          "id": "i",
          "key": "k",
          "type": "double",
          "intValue": 0,
          "doubleValue": 0.0,
          "stringValue": "",
          "boolValue": true,
          "pointValue": {
            "x": 0.0,
            "y": 0.0
          },
          "shouldBeDeleted": false
        }
      ],
      "expanded": true,
      "shouldBeDeleted": false
    }
  ],
  "environmentObjectVarName": "zqConfig",
  "defaultDoubleValue": 64.0,
  "defaultIntValue": 0,
  "expanded": true,
  "defaultBoolValue": true
}
)");
}

}  // namespace
}  // namespace zq
