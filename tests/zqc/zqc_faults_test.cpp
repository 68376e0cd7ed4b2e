// ZQSwiftUI, MIT licence; see LICENSE.
#include <unistd.h>

#include <filesystem>
#include <tests/zqc/zqc_run.hpp>

namespace zq::zqc {
namespace {

namespace fs = std::filesystem;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(Zqc, aFileThatCannotBeReadEndsEachCommand) {
  const std::string folderInPlace = folder.path("folder.zquic");
  fs::create_directory(folderInPlace);
  const std::string broken = write("broken.zquic", "{\"name\": \"x\",\n \"groupList\": [}");
  const std::string list = write("list.zquic", "[]");
  const std::string nothing = write("nothing.zquic", "");
  const struct {
    std::vector<std::string> before;
    std::vector<std::string> after;
  } commands[] = {{{"normalize"}, {}},
                  {{"swift"}, {}},
                  {{"cpp"}, {"-o", folder.path("out")}},
                  {{"cpp"}, {"--split", folder.path("parts")}},
                  {{"get"}, {"a", "b", "--type", "int"}},
                  {{"set"}, {"a", "b", "1", "--type", "int"}},
                  {{"list"}, {}},
                  {{"check"}, {}}};
  for (const auto& [before, after] : commands) {
    const auto sentence = [&](int status, const std::string& file) {
      std::vector<std::string> all = before;
      all.push_back(file);
      all.insert(all.end(), after.begin(), after.end());
      return refused(status, all);
    };
    EXPECT_THAT(sentence(exitNoInput, folder.path("none")),
                EndsWith("No such file or directory\n"));
    EXPECT_THAT(sentence(exitNoInput, folderInPlace), HasSubstr("it is not a file"));
    EXPECT_EQ(sentence(exitData, broken), "zqc: " + broken + ":2:16: expected a value\n");
    EXPECT_THAT(sentence(exitData, list), HasSubstr("list.zquic:1:1: expected a project"));
    EXPECT_THAT(sentence(exitData, nothing), HasSubstr("nothing.zquic:1:1: "));
  }
}

TEST_F(Zqc, aFileThatCannotBeWrittenLeavesEverythingAsItWas) {
  const std::string file = project();
  const std::string before = read(file);
  fs::create_directory(folder.path("taken"));
  EXPECT_THAT(refused(exitCannotCreate, {"swift", file, "-o", folder.path("taken")}),
              HasSubstr("it is not a file"));
  refused(exitCannotCreate, {"swift", file, "-o", folder.path("none/out")});
  refused(exitCannotCreate, {"cpp", file, "--split", file});
  refused(exitCannotCreate, {"init", folder.path("none/p"), "--name", "n", "--bundle-id", "b"});
  // A folder that takes no files, not even of root.
  refused(exitCannotCreate, {"swift", file, "-o", "/proc/out"});
  refused(exitCannotCreate, {"init", "/proc/p", "--name", "n", "--bundle-id", "b"});
  EXPECT_EQ(read(file), before);
}

TEST_F(Zqc, whatIsMarkedAgainstWritingIsNotWritten) {
  if (::geteuid() == 0) GTEST_SKIP() << "root may write everywhere";
  const std::string file = project();
  const std::string before = read(file);
  fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
  refused(exitCannotCreate, {"set", file, "Canvas", "maxZoom", "5"});
  refused(exitCannotCreate, {"swift", file, "-o", folder.path("out")});
  refused(exitCannotCreate, {"init", folder.path("p"), "--name", "n", "--bundle-id", "b"});
  fs::permissions(folder.path(), fs::perms::owner_all);
  fs::permissions(file, fs::perms::owner_read);
  refused(exitCannotCreate, {"set", file, "Canvas", "maxZoom", "5"});
  EXPECT_EQ(read(file), before);
}

TEST_F(Zqc, anOutputThatIsFullIsAFailure) {
  std::ostringstream out;
  std::ostringstream err;
  out.setstate(std::ios::badbit);
  const std::vector<std::string> arguments{"tokenize", "a b"};
  EXPECT_EQ(zqc::run({.out = out, .err = err}, arguments), exitOutput);
  EXPECT_EQ(err.str(), "zqc: standard output cannot be written\n");
}

TEST_F(Zqc, aProjectThatHasNoSourceSaysWhy) {
  const std::string file = write("p.zquic", R"({"groupList": [
    {"name": "a", "itemList": [{"key": "x y"}, {"key": "xY"}]}]})");
  EXPECT_EQ(
      refused(exitData, {"cpp", file, "-o", folder.path("out")}),
      "zqc: " + file +
          ": \"x y\" and \"xY\" of the group \"a\" have one name in source, xY; rename one\n");
  EXPECT_THAT(refused(exitData, {"cpp", project(), "--group", "b"}),
              HasSubstr("there is no group \"b\""));
  EXPECT_THAT(refused(exitUsage, {"cpp", file, "--class", "a-b"}), HasSubstr("class"));
}

TEST_F(Zqc, wrongUsageIsToldInOneLine) {
  const std::string file = project();
  const struct {
    std::vector<std::string> arguments;
    const char* sentence;
  } rows[] = {
      {{}, "which command?"},
      {{"frobnicate"}, "there is no command frobnicate"},
      {{"swift"}, "something is missing; usage: zqc swift FILE [-o OUT]"},
      {{"swift", file, "more"}, "too much: more; usage: zqc swift"},
      {{"swift", file, "-o"}, "-o wants a value"},
      {{"swift", file, "--class", "X"}, "there is no option --class"},
      {{"set", file, "a", "b", "1", "--broadcast=yes"}, "--broadcast takes no value"},
      {{"watch", "com.example", "--count", "0"}, "--count wants a number from 1"},
  };
  for (const auto& [arguments, sentence] : rows) {
    EXPECT_THAT(refused(exitUsage, arguments), HasSubstr(sentence));
  }
}

// What a person looks up must not fall behind the program.
TEST_F(Zqc, helpManPageAndCompletionKnowEveryOption) {
  const std::string help = printed({"--help"});
  EXPECT_THAT(printed({"--version"}), StartsWith("zqc "));
  EXPECT_EQ(printed({"tokenize", "Max zoom"}), "maxZoom\n");
  std::string man = read(ZQ_TESTS_DIR "/../docs/zqc.1");
  std::erase(man, '\\');
  const std::string completion = read(ZQ_TESTS_DIR "/../tools/zqc/zqc.bash-completion");
  for (const Command& command : commands()) {
    const std::string name(command.name);
    const std::string own = printed({name, "--help"});
    EXPECT_THAT(help, HasSubstr("  zqc " + name + " "));
    EXPECT_THAT(own, StartsWith("usage: zqc " + name + " " + std::string(command.operands)));
    EXPECT_THAT(man, HasSubstr("\n.B " + name + "\n"));
    EXPECT_THAT(completion, HasSubstr(name + " "));
    for (const Option& option : command.options) {
      const std::string spelled(option.name);
      EXPECT_THAT(own, HasSubstr("\n  " + spelled));
      EXPECT_THAT(man, HasSubstr(spelled)) << name;
      EXPECT_THAT(completion, HasSubstr(spelled)) << name;
    }
  }
}

}  // namespace
}  // namespace zq::zqc
