// ZQSwiftUI, MIT licence; see LICENSE.
#include <filesystem>
#include <tests/zqc/zqc_run.hpp>
#include <tools/zqc/shown_text.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/settings/cpp_generator.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq::zqc {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;

TEST_F(Zqc, getAnswersAsTheStoreDoes) {
  const std::string file = project();
  const struct {
    std::vector<std::string> arguments;
    const char* answer;
  } rows[] = {
      {{"Canvas", "maxZoom", "--type", "double"}, "4.0\n"},
      {{"Canvas", "maxZoom", "--type", "int"}, "3\n"},
      {{"Canvas", "Max zoom", "--type", "double"}, "64.0\n"},
      {{"Canvas", "none", "--type", "int"}, "7\n"},
      {{"Canvas", "none", "--type", "bool"}, "false\n"},
      {{"Canvas", "none", "--type", "bool", "--def", "true"}, "true\n"},
      {{"Canvas", "none", "--type=double", "--def=-0.5"}, "-0.5\n"},
      {{"Canvas", "maxZoom", "--type", "double", "--def", "9"}, "4.0\n"},
      {{"Canvas", "maxZoom", "--type", "double", "--min", "1e2"}, "100.0\n"},
      {{"Canvas", "maxZoom", "--type", "int", "--min", "-5"}, "3\n"},
      {{"Canvas", "none", "--type", "int", "--min", "-5"}, "-5\n"},
      {{"Canvas", "title", "--type", "string"}, "Ünter \x1b[31m\nzeile\n"},
      {{"Canvas", "none", "--type", "string"}, "\n"},
      {{"Canvas", "none", "--type", "string", "--def", "--"}, "--\n"},
      {{"Canvas", "origin", "--type", "pointSize"}, "1.5,-2.0\n"},
      {{"Canvas", "none", "--type", "pointSize", "--def", "1,1e-9"}, "1.0,1e-09\n"},
  };
  for (const auto& [arguments, answer] : rows) {
    std::vector<std::string> all{"get", file};
    all.insert(all.end(), arguments.begin(), arguments.end());
    EXPECT_EQ(printed(all), answer) << testing::PrintToString(arguments);
  }
  const auto wrong = [&](std::vector<std::string> more) {
    std::vector<std::string> all{"get", file, "Canvas", "maxZoom"};
    all.insert(all.end(), more.begin(), more.end());
    return refused(exitUsage, all);
  };
  EXPECT_THAT(wrong({}), HasSubstr("there is no type \"\""));
  EXPECT_THAT(wrong({"--type", "float"}), HasSubstr("pointSize"));
  EXPECT_THAT(wrong({"--type", "int", "--def", "1.5"}), HasSubstr("\"1.5\" is not a whole number"));
  EXPECT_THAT(wrong({"--type", "bool", "--min", "1"}), HasSubstr("numbers"));
  EXPECT_THAT(wrong({"--type", "int", "--min", "1", "--def", "1"}), HasSubstr("without --def"));
}

TEST_F(Zqc, setChangesOneValueAndKeepsTheRest) {
  const std::string file = project();
  ProjectPlaces places;
  const ZQUICProject before = decodeEverything(read(file), places).value();
  done({"set", file, "Canvas", "maxZoom", "-8.5"});
  done({"set", file, "Canvas", "Max zoom", "5", "--type", "int"});
  done({"set", file, "Canvas", "origin", "-1,2e3"});
  done({"set", file, "exportDialog", "Strip", "false"});
  done({"set", file, "Canvas", "gone", "again", "--type", "string"});
  done({"set", "--type=double", "--", file, "New group", "-k", "-0"});

  const ZQUICProject after = decodeEverything(read(file), places).value();
  const auto idOf = [&after](std::size_t group, std::size_t item) {
    return after.groupList().at(group).itemList.at(item).id;
  };
  std::vector<ZQUICGroup> expected = before.groupList();
  std::vector<ZQUICItem>& canvas = expected[0].itemList;
  canvas[0].doubleValue = -8.5;
  canvas[0].type = ZQUICRecordType::int_;
  canvas[0].intValue = 5;
  canvas[3].pointValue = {-1, 2000};
  // One that is flagged is not brought back.
  canvas.push_back(
      {.id = idOf(0, 4), .key = "gone", .type = ZQUICRecordType::string, .stringValue = "again"});
  expected[1].itemList[0].boolValue = false;
  expected.push_back({.id = after.groupList().at(2).id,
                      .name = "New group",
                      .itemList = {{.id = idOf(2, 0), .key = "-k", .doubleValue = -0.0}}});
  EXPECT_EQ(after.groupList(), expected);
  EXPECT_EQ(after.id, before.id);
  EXPECT_EQ(after.name, before.name);
  EXPECT_EQ(after.defaultIntValue, before.defaultIntValue);
  EXPECT_EQ(folder.entries(), 1u);
}

TEST_F(Zqc, setTakesTheExactNameBeforeAToken) {
  const std::string file = write("p.zquic", R"({"groupList": [
    {"name": "a b", "itemList": [{"key": "x y"}, {"key": "xY"}]}, {"name": "aB", "itemList": [{}]}]})");
  done({"set", file, "a-b", "xY", "2"});
  done({"set", file, "a-b", "x-y", "1"});
  done({"set", file, "aB", "", "3"});
  const ZQUICProject after = decodeProject(read(file)).value();
  EXPECT_EQ(after.groupList()[0].itemList[0].doubleValue, 1);
  EXPECT_EQ(after.groupList()[0].itemList[1].doubleValue, 2);
  EXPECT_EQ(after.groupList()[1].itemList[0].doubleValue, 3);
}

TEST_F(Zqc, setRefusesWhatIsNoSuchValue) {
  const std::string file = project();
  const std::string before = read(file);
  const auto wrong = [&](const std::string& key, const std::string& value,
                         const std::string& type = "") {
    std::vector<std::string> all{"set", file, "Canvas", key, value};
    if (!type.empty()) all.insert(all.end(), {"--type", type});
    return refused(exitUsage, all);
  };
  EXPECT_THAT(wrong("maxZoom", "12 px"), HasSubstr("\"12 px\" is not a number"));
  EXPECT_THAT(wrong("maxZoom", "nan"), HasSubstr("is not a number"));
  EXPECT_THAT(wrong("maxZoom", "1e999"), HasSubstr("is not a number"));
  EXPECT_THAT(wrong("maxZoom", "9223372036854775808", "int"), HasSubstr("64 bits"));
  EXPECT_THAT(wrong("origin", "1,2,3"), HasSubstr("is not a point such as 1.5,2"));
  EXPECT_THAT(wrong("title", "TRUE", "bool"), HasSubstr("is not true or false"));
  EXPECT_THAT(wrong("maxzoom", "1"),
              HasSubstr("there is no item maxzoom in the group Canvas; --type would add it"));
  EXPECT_EQ(read(file), before);
}

TEST_F(Zqc, sourceIsPrintedByteForByteOrWrittenWhereItDiffers) {
  const std::string file = project();
  const ZQUICProject loaded = decodeProject(read(file)).value();
  EXPECT_EQ(printed({"swift", file}), loaded.zqcCode());
  EXPECT_EQ(printed({"cpp", file, "--class", "App", "--namespace", "a::b"}),
            cppCode(loaded, {.className = "App", .namespaceName = "a::b"}).value());
  EXPECT_EQ(printed({"cpp", file, "--group", "Canvas"}),
            cppCode(loaded, {.groups = {"Canvas"}}).value());
  EXPECT_EQ(printed({"normalize", file}), encodeProject(loaded, JsonStyle::pretty).value());

  const std::string out = folder.path("out.swift");
  done({"swift", file, "-o", out});
  EXPECT_EQ(read(out), loaded.zqcCode());
  const auto old = fs::file_time_type::clock::now() - std::chrono::hours(1);
  fs::last_write_time(out, old);
  done({"swift", file, "-o", out});
  EXPECT_EQ(fs::last_write_time(out), old);
  done({"set", file, "Canvas", "maxZoom", "5"});
  done({"swift", file, "-o", out});
  EXPECT_NE(fs::last_write_time(out), old);

  const std::string parts = folder.path("deep/parts");
  done({"cpp", file, "--split", parts});
  const auto headers = cppHeaders(decodeProject(read(file)).value()).value();
  for (const CppHeader& header : headers)
    EXPECT_EQ(read(parts + "/" + header.fileName), header.text);

  const std::string before = read(file);
  refused(exitUsage, {"swift", file, "-o", folder.path("./p.zquic")});
  refused(exitUsage, {"cpp", file, "-o", out, "--split", parts});
  EXPECT_EQ(read(file), before);
  done({"normalize", file, "-o", file});
}

TEST_F(Zqc, initMakesAProjectAndNeverTwice) {
  const std::string file = folder.path("new.zquic");
  done({"init", file, "--name", "A \"b\"", "--bundle-id", "com.example.a"});
  const std::string text = read(file);
  const ZQUICProject made = decodeProject(text).value();
  EXPECT_EQ(made.name, "A \"b\"");
  EXPECT_EQ(made.appBundleId, "com.example.a");
  EXPECT_EQ(made.configFileUrl, Url::file(file));
  EXPECT_EQ(made.environmentObjectVarName, "zqConfig");
  EXPECT_THAT(refused(exitCannotCreate, {"init", file, "--name", "B", "--bundle-id", "b"}),
              HasSubstr("exists"));
  EXPECT_EQ(read(file), text);
  refused(exitUsage, {"init", folder.path("other"), "--name", "B"});
}

TEST_F(Zqc, listIsAnAlignedTable) {
  const std::string file = project();
  EXPECT_EQ(printed({"list", file}),
            "GROUP          KEY       TYPE       VALUE\n"
            "Canvas         Max zoom  double     4.0\n"
            "Canvas         title     string     \"Ünter \\u{1b}[31m\\nzeile\"\n"
            "Canvas         origin    pointSize  1.5,-2.0\n"
            "Export dialog  Strip     bool       true\n");
  EXPECT_EQ(printed({"list", file, "EXPORT"}),
            "GROUP          KEY    TYPE  VALUE\nExport dialog  Strip  bool  true\n");
  EXPECT_EQ(printed({"list", file, "ÜNTER"}),
            "GROUP   KEY    TYPE    VALUE\n"
            "Canvas  title  string  \"Ünter \\u{1b}[31m\\nzeile\"\n");
  EXPECT_THAT(refused(exitFound, {"list", file, "nowhere"}), HasSubstr("nothing contains"));
  // Of a terminal.
  colour = true;
  width = 40;
  EXPECT_EQ(printed({"list", file, "ünter"}),
            "\x1b[1mGROUP   KEY    TYPE    VALUE\x1b[0m\n"
            "Canvas  title  string  \"Ünter \\u{1b}[31…\n");
}

TEST_F(Zqc, aTerminalGetsNothingThatItWouldObey) {
  EXPECT_EQ(shownText("a\tb\r\x1b]0;x\x07\u202E\u0085名"),
            "a\\tb\\u{d}\\u{1b}]0;x\\u{7}\\u{202e}\\u{85}名");
  EXPECT_EQ(displayWidth("aé名e\u0301😀"), 7u);
  EXPECT_EQ(shortened("名前名前", 8), "名前名前");
  EXPECT_EQ(shortened("名前名前", 7), "名前名…");
  EXPECT_EQ(shortened("名前名前", 6), "名前…");
}

TEST_F(Zqc, checkTellsThePlaceOfEachFinding) {
  const std::string sound = write("sound.zquic", R"({"groupList": [{"name": "G"}]})");
  const std::string odd = write("odd.zquic", "{\"groupList\": [\n  {\"name\": \"?\"}]}");
  const std::string broken = write("broken.zquic", "{\n  oops}");
  done({"check", sound});
  const Ended some = run({"check", sound, odd});
  EXPECT_EQ(some.status, exitFound);
  EXPECT_EQ(some.out, odd +
                          ":2:12: the group's name \"?\" has no letter and no digit: it becomes "
                          "_ in source\n");
  // One that cannot be read does not hide what the others have.
  const Ended all = run({"check", broken, odd, folder.path("none")});
  EXPECT_EQ(all.status, exitNoInput);
  EXPECT_EQ(all.out, some.out);
  EXPECT_THAT(all.err, HasSubstr("zqc: " + broken + ":2:3: expected a key in double quotes\n"));
}

}  // namespace
}  // namespace zq::zqc
