// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tests/base/temp_folder.hpp>
#include <vector>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/signal.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/base/zq_id.hpp>
#include <zqswiftui/platform/headless/harness.hpp>

namespace zq {

// Pictures to load on a platform that counts. The view models outlive the platform: sources are
// the test's own, because its folder and its addresses are.
class PictureSources : public testing::Test {
 protected:
  explicit PictureSources(BackgroundMode mode = BackgroundMode::deterministic) : platform(mode) {
    platform.bundle().setCacheFolder(folder.path("cache"));
  }

  // A file of that width, by which decodes are told apart, and 1 high.
  Url file(const std::string& name, int width, std::uint8_t red = 0) {
    return write(name, HeadlessImageCodec::file(width, 1, red, 0, 0));
  }
  Url write(const std::string& name, const Bytes& bytes) {
    EXPECT_TRUE(replaceFile(folder.path(name), bytes).ok());
    return Url::file(folder.path(name));
  }
  Url missing(const std::string& name) { return Url::file(folder.path(name)); }

  std::string address(const std::string& name) { return "http://" + host + "/" + name; }
  // An address where a picture of that width is found, after a while.
  std::string remote(const std::string& name, int width, double afterSeconds = 0) {
    platform.downloads().setAnswer(address(name), {HeadlessImageCodec::file(width, 1, 0, 0, 0), ""},
                                   afterSeconds);
    return address(name);
  }

  // The widths of what was decoded since the last call, in order.
  std::vector<int> decoded() {
    std::vector<int> widths;
    const auto all = platform.imageCodec().decoded();
    for (; seen_ < all.size(); ++seen_) widths.push_back(all[seen_].width);
    return widths;
  }
  std::size_t decodedOnTheInterfaceThread() {
    std::size_t count = 0;
    for (const auto& one : platform.imageCodec().decoded()) count += one.onInterfaceThread ? 1 : 0;
    return count;
  }

  // What an observer of a published model hears from now on, a letter for each status, a plus
  // where there is a picture: "l+ r+".
  template <class Model>
  std::string heard(Model& model, const std::string& letters) {
    std::string log;
    const Subscription told = model.didChange.connect([&] {
      if (!log.empty()) log += ' ';
      log += letters.at(static_cast<std::size_t>(model.status.get()));
      log += model.image_.get() ? "+" : "-";
      if (!platform.mainQueue().isMainThread()) log += "*";
    });
    platform.advance(5);
    return log;
  }

  // The statuses that a model which tells of few of them goes through, a letter for each.
  template <class Model>
  std::string seen(const Model& model, const std::string& letters) {
    std::string log;
    int looks = 0;
    std::function<void()> look = [&] {
      const char now = letters.at(static_cast<std::size_t>(model.status.get()));
      if (log.empty() || log.back() != now) log += now;
      if (++looks < 50) Queue::execute(false, look);
    };
    look();
    platform.runUntilIdle();
    return log;
  }

  const std::string host = ZQId::newId("host", "", true);
  HeadlessPlatform platform;
  TempFolder folder;

 private:
  std::size_t seen_ = 0;
};

// What is printed while it lives.
class Printed {
 public:
  Printed() { testing::internal::CaptureStdout(); }
  ~Printed() {
    if (!taken_) testing::internal::GetCapturedStdout();
  }
  Printed(const Printed&) = delete;
  Printed& operator=(const Printed&) = delete;
  std::string text() {
    taken_ = true;
    return testing::internal::GetCapturedStdout();
  }

 private:
  bool taken_ = false;
};

}  // namespace zq
