// ZQSwiftUI, MIT licence; see LICENSE.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <tests/settings/kept.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/settings/cpp_generator.hpp>
#include <zqswiftui/settings/cpp_literal.hpp>

namespace zq {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

class CppSource : public testing::Test {
 protected:
  static ZQUICProject of(std::vector<ZQUICGroup> groups) {
    ZQUICProject project;
    project.setGroupList(std::move(groups));
    return project;
  }
  static std::string code(std::vector<ZQUICGroup> groups, const CppOptions& options = {}) {
    const auto result = cppCode(of(std::move(groups)), options);
    return result.ok() ? result.value() : result.error().sentence;
  }
  // The constant's declaration of each property, name and value.
  static std::vector<std::string> constants(std::vector<ZQUICGroup> groups) {
    constexpr std::string_view begin = "  constexpr double ";
    const std::string text = code(std::move(groups));
    std::vector<std::string> found;
    for (std::size_t at = text.find(begin); at != std::string::npos;
         at = text.find(begin, at + 1)) {
      const std::size_t name = at + begin.size();
      found.push_back(text.substr(name, text.find('(', name) - name));
    }
    return found;
  }

  HeadlessPlatform platform;
};

ZQUICGroup groupWith(const std::string& name, const std::vector<std::string>& keys) {
  ZQUICGroup made{.name = name};
  for (const std::string& key : keys) made.itemList.push_back({.key = key});
  return made;
}

TEST_F(CppSource, projectsGiveTheTextsThatWereKept) {
  for (const std::string& name : keptProjects()) {
    const auto text = cppCode(ZQUICProject(Url::file(keptPath(name + ".zquic"))),
                              {.namespaceName = "app::settings"});
    expectKept(name + ".hpp.txt", text.ok() ? text.value() : text.error().sentence);
  }
}

TEST_F(CppSource, namesAreThoseThatTheLanguageLeavesFree) {
  EXPECT_THAT(constants({groupWith("static", {"cast"}), groupWith("_Priv", {"__x", "", "a__b"}),
                         groupWith("Settings", {""}), groupWith("store", {""}),
                         groupWith("", {"", "zoom", "Zoom"}), groupWith("2nd", {"3rd"})}),
              ElementsAre("static_cast_2", "Priv_x", "Priv_", "Priv_a_b", "Settings_", "store_2",
                          "unnamed", "_zoom", "Zoom", "_2nd_3rd"));
  // A number is never one that another item has by right, wherever that stands.
  EXPECT_THAT(
      constants({groupWith("a_b", {"c"}), groupWith("a", {"b_c", "b_c_2", "b_c_3"}),
                 groupWith("a_b_", {"c"}), groupWith("a_b__c", {"3", ""})}),
      ElementsAre("a_b_c", "a_b_c_4", "a_b_c_2", "a_b_c_3", "a_b_c_5", "a_b_c_3_2", "a_b_c_"));
  const std::string text = code({groupWith("_Priv", {"__x"})});
  EXPECT_THAT(text, HasSubstr("store_->value(slot, \"_Priv\", \"__x\");"));
}

TEST_F(CppSource, onlyWantedGroupsAreInItUnderTheSameNames) {
  const std::vector<ZQUICGroup> groups{groupWith("a_b", {"c"}), groupWith("Max a", {"x"}),
                                       groupWith("a", {"b_c"})};
  const std::string text = code(groups, {.groups = {"a", "maxA"}});
  EXPECT_THAT(text, Not(HasSubstr("double a_b_c()")));
  EXPECT_THAT(text, HasSubstr("double a_b_c_2()"));
  EXPECT_THAT(text, HasSubstr("double maxA_x()"));
}

TEST_F(CppSource, whatCannotBeServedIsRefusedInASentence) {
  const double infinite = std::numeric_limits<double>::infinity();
  const ZQUICItem flagged{.key = "b-a", .shouldBeDeleted = true};
  EXPECT_THAT(code({{.name = "G", .itemList = {{.key = "b a"}, flagged, {.key = "bA"}}}}),
              "\"b a\" and \"bA\" of the group \"G\" have one name in source, bA; rename one");
  EXPECT_THAT(
      code({groupWith("Max zoom", {}), groupWith("other", {"x"}), groupWith("max-zoom", {"x"})}),
      "the group \"max-zoom\" is hidden behind the group \"Max zoom\": both have the name "
      "maxZoom in source; rename one");
  EXPECT_THAT(code({groupWith("x", {"k"}), groupWith("x", {})}), HasSubstr("x_k"));
  EXPECT_THAT(code({{.name = "G", .itemList = {{.key = "far", .doubleValue = infinite}}}}),
              "\"far\" of the group \"G\" is no finite number");
  EXPECT_THAT(code({{.name = "G",
                     .itemList = {{.key = "far",
                                   .type = ZQUICRecordType::pointSize,
                                   .doubleValue = infinite,
                                   .pointValue = {0, -infinite}}}}}),
              HasSubstr("no finite number"));
  EXPECT_THAT(code({}, {.groups = {"a"}}), "there is no group \"a\"");
  for (const char* const name :
       {"", "class", "2nd", "a b", "a__b", "_A", "_", "std", "zq", "a::b"}) {
    EXPECT_THAT(code({}, {.className = name}), HasSubstr("a class cannot be called")) << name;
  }
  for (const char* const name : {"a::", "::a", "a::::b", "a::int", "a:b", "std", "app::zq"}) {
    EXPECT_THAT(code({}, {.namespaceName = name}), HasSubstr("a namespace cannot be called"))
        << name;
  }
}

TEST_F(CppSource, textsAreLiteralsThatHoldTheirBytes) {
  using namespace std::string_literals;
  const struct {
    std::string text;
    std::string literal;
  } rows[] = {
      {"", R"("")"},
      {"say \"a\\b\"", R"("say \"a\\b\"")"},
      {"?\?=?\?/?\?\?", R"("?\?=?\?/?\?\?")"},
      {"tab\tend\n", R"("tab\tend\n")"},
      {"Größe … 名 😀", R"("Größe … 名 😀")"},
      {"\x1b[31m\r7", R"("\033[31m\0157")"},
      {"a\0001"s, R"({"a\0001", 3})"},
      {"\xC3(\xFF\xEF\xBF\xBD", R"("\303(\377\357\277\275")"},
      {"\u202Eabc\u200B", R"("\342\200\256abc\342\200\213")"},
      {"one\ntwo", "\"one\\n\"\n    \"two\""},
  };
  for (const auto& [text, literal] : rows) EXPECT_EQ(cppText(text, 4), literal);
  EXPECT_EQ(cppComment("a\nb\\\xFF*/"), "\"a b  */\"");
}

TEST_F(CppSource, eachGroupHasAHeaderOfItsOwn) {
  const auto headers =
      cppHeaders(of({groupWith("Canvas", {"x"}), groupWith("CANVAS", {"x"}), groupWith("empty", {}),
                     groupWith("größe", {"x"}), groupWith("Settings", {"Canvas"}),
                     groupWith(std::string(300, 'a'), {"x"})}),
                 {.className = "AppSettings"});
  ASSERT_TRUE(headers.ok());
  std::vector<std::string> names;
  for (const CppHeader& header : headers.value()) {
    names.push_back(header.fileName);
    EXPECT_TRUE(isSafeFileName(header.fileName));
    if (&header == headers.value().data()) continue;
    EXPECT_THAT(headers.value()[0].text, HasSubstr("#include \"" + header.fileName + "\"\n"));
  }
  names.pop_back();
  EXPECT_THAT(
      names, ElementsAre("app_settings.hpp", "app_settings_canvas.hpp", "app_settings_canvas_2.hpp",
                         "app_settings_gru246u223e.hpp", "app_settings_settings.hpp"));
  const auto none = cppHeaders(ZQUICProject());
  ASSERT_TRUE(none.ok());
  EXPECT_THAT(none.value(), ElementsAre(CppHeader{"settings.hpp", code({})}));
}

}  // namespace
}  // namespace zq
