// ZQSwiftUI, MIT licence; see LICENSE.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <bit>
#include <cstdio>
#include <limits>
#include <sstream>
#include <tests/base/temp_folder.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/settings/cpp_generator.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq {
namespace {

// Prints a value so that no two values look alike.
constexpr const char* programBegin = R"(
#include "settings.hpp"
#include "parts/settings.hpp"

#include <bit>
#include <cstdio>
#include <type_traits>

void show(std::int64_t value) { std::printf("%lld\n", static_cast<long long>(value)); }
void show(bool value) { std::puts(value ? "true" : "false"); }
void show(double value) {
  std::printf("%016llx\n", static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(value)));
}
void show(zq::ZQUICPointSize value) { show(value.x), show(value.y); }
void show(std::string_view value) {
  for (const char c : value) std::printf("%02x", static_cast<unsigned>(c) & 0xFFu);
  std::puts("");
}

#ifdef NDEBUG
// Named only: the store need not even be there.
extern const zq::ZQConfig store;
static_assert(std::is_empty_v<app::ui::Settings>);
static_assert(std::is_empty_v<parts::Settings>);
static_assert(app::ui::Settings(store).Canvas_maxZoom() == 4.0);
static_assert(parts::Settings_Canvas_2(store).Canvas_maxZoom() == 4.0);
int main() {
#else
static_assert(!std::is_constructible_v<app::ui::Settings, zq::ZQConfig>);
int main(int, char** argv) {
  const zq::ZQConfig store(zq::ZQUICProject(zq::Url::file(argv[1])));
#endif
  const app::ui::Settings settings(store);
  const parts::Settings sameSettings(store);
  const auto showBoth = [](const auto& one, const auto& other) { show(one), show(other); };
)";

std::string shown(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%016llx\n",
                static_cast<unsigned long long>(std::bit_cast<std::uint64_t>(value)));
  return text;
}

std::string shown(const ZQUICItem& item) {
  switch (item.type) {
    case ZQUICRecordType::int_:
      return std::to_string(item.intValue) + "\n";
    case ZQUICRecordType::double_:
      return shown(item.doubleValue);
    case ZQUICRecordType::bool_:
      return item.boolValue ? "true\n" : "false\n";
    case ZQUICRecordType::pointSize:
      return shown(item.pointValue.x) + shown(item.pointValue.y);
    case ZQUICRecordType::string:
      break;
  }
  std::string text;
  for (const char c : item.stringValue) {
    char digits[3];
    std::snprintf(digits, sizeof digits, "%02x", static_cast<unsigned char>(c));
    text += digits;
  }
  return text + "\n";
}

ZQUICItem of(std::int64_t value) {
  return {.type = ZQUICRecordType::int_, .intValue = value};
}
ZQUICItem of(double value) {
  return {.doubleValue = value};
}
ZQUICItem of(bool value) {
  return {.type = ZQUICRecordType::bool_, .boolValue = value};
}
ZQUICItem of(std::string value) {
  return {.type = ZQUICRecordType::string, .stringValue = std::move(value)};
}
ZQUICItem of(ZQUICPointSize value) {
  return {.type = ZQUICRecordType::pointSize, .pointValue = value};
}

struct Setting {
  std::string group;
  std::string key;
  std::string property;
  ZQUICItem item;
};

std::string longText() {
  std::string text;
  for (int i = 0; i < 4000; ++i) text += "Line \"" + std::to_string(i) + "\" of ?\?/ 名\n";
  return text;
}

// Values and names at the edges of what the language can say.
std::vector<Setting> settings() {
  using namespace std::string_literals;
  using Whole = std::numeric_limits<std::int64_t>;
  using Real = std::numeric_limits<double>;
  return {
      {"Canvas", "Max zoom", "Canvas_maxZoom", of(4.0)},
      {"Canvas", "-0", "Canvas_0", of(-0.0)},
      {"numbers", "least", "numbers_least", of(Whole::min())},
      {"numbers", "most", "numbers_most", of(Whole::max())},
      {"numbers", "minus", "numbers_minus", of(std::int64_t{-5})},
      {"numbers", "far", "numbers_far", of(Real::max())},
      {"numbers", "near", "numbers_near", of(Real::denorm_min())},
      {"numbers", "1e300", "numbers_1e300", of(-1e300)},
      {"numbers", "third", "numbers_third", of(1.0 / 3)},
      {"numbers", "point", "numbers_point", of(ZQUICPointSize{1e-9, -0.0})},
      {"static", "cast", "static_cast_2", of(false)},
      {"_Private", "__x", "Private_x", of(true)},
      {"", "", "unnamed", of("nothing in the name"s)},
      {"a_b", "c", "a_b_c", of(std::int64_t{1})},
      {"a", "b_c", "a_b_c_2", of(std::int64_t{2})},
      {"größe", "名 前", "größe_名前", of("ä…😀\u202E"s)},
      {"Settings", "Canvas", "Settings_Canvas", of("as a class of the parts is called"s)},
      {"texts", "zeros", "texts_zeros", of("\0001\0"s + "2")},
      {"texts", "odd", "texts_odd", of("\"\\\a\x1b\x7f?\?=?\?/\n\t\r?\?\?)%s"s)},
      {"texts", "empty", "texts_empty", of(""s)},
      {"texts", "long", "texts_long", of(longText())},
  };
}

class CompiledSettings : public testing::Test {
 protected:
  void SetUp() override {
    for (const Setting& setting : settings()) {
      auto& groups = groups_;
      if (groups.empty() || groups.back().name != setting.group) {
        groups.push_back({.name = setting.group});
      }
      groups.back().itemList.push_back(setting.item);
      groups.back().itemList.back().key = setting.key;
      expected_ += shown(setting.item) + shown(setting.item);
      calls_ += "  showBoth(settings." + setting.property + "(), sameSettings." + setting.property +
                "());\n";
    }
    ZQUICProject project;
    project.setGroupList(groups_);
    write("project.zquic", encodeProject(project, JsonStyle::pretty).value());
    write("settings.hpp", cppCode(project, {.namespaceName = "app::ui"}).value());
    std::filesystem::create_directory(folder.path("parts"));
    const auto headers = cppHeaders(project, {.namespaceName = "parts"});
    for (const CppHeader& header : headers.value()) write("parts/" + header.fileName, header.text);
    write("main.cpp", programBegin + calls_ + "}\n");
  }

  void write(const std::string& name, const std::string& text) {
    ASSERT_TRUE(replaceFile(folder.path(name), text).ok()) << name;
  }

  // What a command prints on both streams, if it ends well.
  static std::string outputOf(const std::string& command) {
    std::string output;
    std::FILE* const pipe = ::popen((command + " 2>&1").c_str(), "r");
    char part[4096];
    while (const std::size_t size = std::fread(part, 1, sizeof part, pipe)) {
      output.append(part, size);
    }
    const int status = ::pclose(pipe);
    EXPECT_EQ(status, 0) << command;
    return output;
  }

  void compileAndRun(const std::string& options, const std::string& libraries) {
    std::string command = ZQ_CXX " " ZQ_CXX_FLAGS
                                 " -std=c++20 -Wall -Wextra -Wpedantic -Wshadow -Wconversion "
                                 "-Werror " +
                          options;
    for (const char* const floor : {"services", "base", "toolkit", "components"}) {
      command += " -I " ZQ_FLOORS "/" + std::string(floor);
    }
    const std::string program = folder.path("program");
    EXPECT_EQ(
        outputOf(command + " " + folder.path("main.cpp") + " -o " + program + " " + libraries), "");
    const std::string output = outputOf(program + " " + folder.path("project.zquic"));
    // Line by line, for one of them is long.
    std::istringstream lines(output);
    std::istringstream expected(expected_);
    for (std::string line, wanted; std::getline(expected, wanted);) {
      std::getline(lines, line);
      EXPECT_TRUE(line == wanted) << line.substr(0, 80) << " is not " << wanted.substr(0, 80);
    }
  }

  HeadlessPlatform platform;
  TempFolder folder;
  std::vector<ZQUICGroup> groups_;
  std::string expected_;
  std::string calls_;
};

TEST_F(CompiledSettings, inADebugBuildAreThoseOfTheStore) {
  compileAndRun("-O0", ZQ_LIBRARIES " -pthread");
}

// Without any library, and without the store.
TEST_F(CompiledSettings, inAReleaseBuildAreConstants) {
  compileAndRun("-O1 -DNDEBUG", "");
}

}  // namespace
}  // namespace zq
