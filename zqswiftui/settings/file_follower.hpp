// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <zqswiftui/platform/base/result.hpp>
#include <zqswiftui/platform/base/timer.hpp>
#include <zqswiftui/platform/services/std_function.hpp>
#include <zqswiftui/settings/zquic_project.hpp>

namespace zq {

// A project file that has been written.
struct FollowedFile {
  std::string path;
  std::chrono::system_clock::time_point writtenAt;
  Result<ZQUICProject> project;
};

// Tells of each change of a project file, however it was made; also where it was replaced or
// appears again. It asks the disk four times a second, off the interface thread, because some
// file systems tell nothing by themselves. Interface thread only.
class FileFollower {
 public:
  FileFollower(const Url& file, std::function<void(const FollowedFile&)> changed);

 private:
  // What tells one state of the file from another.
  struct Stamp {
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
    std::int64_t size = -1;
    std::uint64_t node = 0;
    bool operator==(const Stamp&) const = default;
  };
  struct State {
    std::string path;
    std::function<void(const FollowedFile&)> changed;
    Stamp last;
    bool asking = false;
  };
  static Stamp stampOf(const std::string& path);
  static void ask(const std::shared_ptr<State>& state);
  static void look(const std::weak_ptr<State>& weak, const std::string& path, Stamp last);

  std::shared_ptr<State> state_;
  ZQTimer timer_;
};

}  // namespace zq
