// ZQSwiftUI, MIT licence; see LICENSE.
// What can go wrong while a project is saved, done by a process of its own that is then looked
// at from outside.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <random>
#include <tests/base/temp_folder.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/headless/headless_platform.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq {
namespace {

class SaveFaults : public testing::Test {
 protected:
  SaveFaults() {
    for (ZQUICProject* const project : {&before, &after}) {
      project->configFileUrl = Url::file(file);
      std::vector<ZQUICItem> items;
      for (int i = 0; i < 500; ++i) items.push_back({.key = "key " + std::to_string(i)});
      project->setGroupList({{.name = "G", .itemList = items}});
    }
    after.name = "after";
    EXPECT_TRUE(before.saveConfigFile().ok());
  }

  // The exit code of work in a child process; -1 where a signal ended it.
  static int inChild(const std::function<int()>& work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  std::string content() const {
    auto text = readTextFile(file);
    return text.ok() ? std::move(text).value() : "";
  }
  static std::string pretty(const ZQUICProject& project) {
    return encodeProject(project, JsonStyle::pretty).value();
  }

  HeadlessPlatform platform;
  TempFolder folder;
  std::string file = folder.path("p.zquic");
  ZQUICProject before, after;
};

TEST_F(SaveFaults, killedAtAnyMomentTheFileIsTheOldOrTheNewOne) {
  const std::string old = pretty(before);
  const std::string fresh = pretty(after);
  std::minstd_rand random(7);
  for (int round = 0; round < 200; ++round) {
    std::array<int, 2> saved{};
    ASSERT_EQ(::pipe(saved.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
      while (true) {
        static_cast<void>(after.saveConfigFile());
        static_cast<void>(before.saveConfigFile());
        if (::write(saved[1], "s", 1) != 1) ::_exit(1);
      }
    }
    // After some whole saves, and then somewhere in the middle of another.
    char signal = 0;
    for (unsigned i = 0; i <= random() % 3; ++i) ASSERT_EQ(::read(saved[0], &signal, 1), 1);
    for (volatile auto spin = random() % 2'000'000; spin > 0;) spin = spin - 1;
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    ::waitpid(child, nullptr, 0);
    ::close(saved[0]);
    ::close(saved[1]);
    const std::string now = content();
    ASSERT_TRUE(now == old || now == fresh) << now.size() << " bytes in round " << round;
  }
}

TEST_F(SaveFaults, aDiskThatIsFullLeavesTheOldFileAndNothingBeside) {
  const std::string old = content();
  EXPECT_EQ(inChild([this] {
              std::signal(SIGXFSZ, SIG_IGN);
              const rlimit limit{1000, 1000};
              ::setrlimit(RLIMIT_FSIZE, &limit);
              return after.saveConfigFile().ok() ? 1 : 42;
            }),
            42);
  EXPECT_EQ(content(), old);
  EXPECT_EQ(folder.entries(), 1u);
}

TEST_F(SaveFaults, whatMayNotBeWrittenStaysAsItWas) {
  const std::string old = content();
  const auto asNobody = [this] {
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0 && (::setegid(nobody) != 0 || ::seteuid(nobody) != 0)) return 1;
    return after.saveConfigFile().ok() ? 2 : 42;
  };
  ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
  EXPECT_EQ(inChild(asNobody), 42) << "in a folder that cannot be written";
  ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
  ASSERT_EQ(::chmod(file.c_str(), 0444), 0);
  EXPECT_EQ(inChild(asNobody), 42) << "over a file that is protected";
  EXPECT_EQ(content(), old);
  EXPECT_EQ(folder.entries(), 1u);
}

}  // namespace
}  // namespace zq
