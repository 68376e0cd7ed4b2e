// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <zqswiftui/settings/project_check.hpp>

namespace zq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// As zqc check prints them.
std::vector<std::string> findings(std::string_view json) {
  const auto found = checkProject(json);
  if (!found.ok()) return {found.error().sentence};
  std::vector<std::string> lines;
  for (const auto& [place, sentence] : found.value()) {
    lines.push_back(std::to_string(place.line) + ":" + std::to_string(place.column) + ": " +
                    sentence);
  }
  return lines;
}

TEST(ProjectCheck, aSoundProjectHasNoFindings) {
  EXPECT_THAT(findings("{}"), ElementsAre());
  EXPECT_THAT(findings(R"({"groupList": [
    {"id": "1", "name": "a", "itemList": [{"id": "1", "key": "x"}, {"id": "2", "key": "X"}]},
    {"id": "2", "name": "A", "itemList": [{"id": "3", "key": "x"}]}]})"),
              ElementsAre());
  EXPECT_THAT(findings("{\n  oops}"), ElementsAre(HasSubstr("2:3: ")));
}

TEST(ProjectCheck, tellsWhatWouldSurpriseInTheOrderOfTheText) {
  EXPECT_THAT(
      findings(R"({"groupList": [
{"name": "Max zoom", "itemList": [
  {"key": "ä b", "id": "same"}, {"key": "ä-b"},
  {"key": "!?", "id": "same"},
  {"key": "gone", "shouldBeDeleted": true}]},
{"itemList": [{"key": "ä b", "type": "string", "stringValue": "\"quoted\""}], "name": "max-zoom"},
{"shouldBeDeleted": true, "name": "max zoom", "itemList": [{"key": ""}]},
{"name": "", "itemList": [{}]},
{"name": "_", "itemList": []}]})"),
      ElementsAre(
          "3:41: the item \"ä-b\" has the name maxZoom_äB in source, as has that in line 3",
          "4:11: the item's id \"same\" is also that of the item in line 3",
          "4:11: the item's key \"!?\" has no letter and no digit: it becomes _ in source",
          "5:11: the item \"gone\" is flagged to be deleted: it is not read, and gone at the next "
          "save",
          "6:23: the text of \"ä b\" has a quote, a backslash or a line break, which Swift source "
          "takes as it stands",
          "6:87: the group \"max-zoom\" is hidden behind that in line 2: both have the name "
          "maxZoom in source, and settings are looked for in the first alone",
          "7:35: the group \"max zoom\" is flagged to be deleted: it is not read, and gone at the "
          "next save",
          "8:10: the group's name \"\" has no letter and no digit: it becomes _ in source",
          "8:27: the item's key \"\" has no letter and no digit: it becomes _ in source",
          "9:10: the group's name \"_\" has no letter and no digit: it becomes _ in source",
          "9:10: the group \"_\" is hidden behind that in line 8: both have the name _ in source, "
          "and settings are looked for in the first alone"));
}

TEST(ProjectCheck, tellsWhatIsReadAsIfItWereNotThere) {
  EXPECT_THAT(
      findings("\xEF\xBB\xBF"
               R"({"name": 7, "expanded": null, "note": [{"id": 1}],
"defaultIntValue": 1.5,
"groupList": [17, {"name": "g", "expanded": "no", "itemList": [
  {"key": "a", "type": "float", "doubleValue": "4"},
  {"key": "b", "type": "int", "intValue" :  {"x": 1}, "pointValue": {"x": 1, "y": "2"}},
  {"key": "c", "type": 1, "intValue": 2.0, "doubleValue": 2, "boolValue": 0, "stringValue": []},
  [], {"key": "d", "doubleValue": 1e999}, []]}]})"),
      ElementsAre("1:11: \"name\" wants a text: this is as if it were not there",
                  HasSubstr("2:20: \"defaultIntValue\" wants a whole number of 64 bits"),
                  "3:16: this entry of the list is no object: it is not read",
                  HasSubstr("3:45: \"expanded\" wants true or false"),
                  HasSubstr("4:24: there is no type \"float\""),
                  HasSubstr("4:48: \"doubleValue\" wants a number"),
                  HasSubstr("5:45: \"intValue\" wants a whole number"),
                  HasSubstr("5:83: \"y\" wants a number"), HasSubstr("6:24: \"type\" wants a type"),
                  HasSubstr("6:75: \"boolValue\" wants true or false"),
                  HasSubstr("6:93: \"stringValue\" wants a text"),
                  HasSubstr("7:3: this entry of the list is no object"),
                  HasSubstr("7:35: this number is too big")));
}

// Names that are joined by the same character that they may hold.
TEST(ProjectCheck, propertiesOfDifferentGroupsMayShareAName) {
  EXPECT_THAT(findings(R"({"groupList": [
    {"name": "a_b", "itemList": [{"key": "c"}]},
    {"name": "a", "itemList": [{"key": "b_c"}]}]})"),
              ElementsAre("3:40: the item \"b_c\" has the name a_b_c in source, as has that in "
                          "line 2"));
}

// One line, many findings: places must not be counted from the begin each time.
TEST(ProjectCheck, aLongLineIsWalkedOnce) {
  std::string json = R"({"groupList":[{"name":"g","itemList":[{"key":"k"})";
  constexpr std::size_t copies = 50000;
  for (std::size_t i = 0; i < copies; ++i) json += R"(,{"key":"k"})";
  const auto found = findings(json + "]}]}");
  ASSERT_EQ(found.size(), copies);
  EXPECT_THAT(found.back(), testing::StartsWith("1:" + std::to_string(json.size() - 3) + ": "));
}

}  // namespace
}  // namespace zq
