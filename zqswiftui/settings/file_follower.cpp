// ZQSwiftUI, MIT licence; see LICENSE.
#include <sys/stat.h>

#include <utility>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/settings/file_follower.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq {

namespace {

constexpr double askEvery = 0.25;  // seconds

Result<ZQUICProject> readProject(const std::string& path) {
  const auto text = readTextFile(path, longestProject);
  if (!text.ok()) return text.error();
  return decodeProject(text.value());
}

}  // namespace

FileFollower::FileFollower(const Url& file, std::function<void(const FollowedFile&)> changed)
    : state_(std::make_shared<State>()) {
  state_->path = file.path();
  state_->changed = std::move(changed);
  state_->last = stampOf(state_->path);
  timer_.loop("zq settings file", askEvery, std::nullopt, false, [state = state_] { ask(state); });
}

FileFollower::Stamp FileFollower::stampOf(const std::string& path) {
  struct stat info {};
  if (::stat(path.c_str(), &info) != 0) return {};
  return {info.st_mtim.tv_sec, info.st_mtim.tv_nsec, info.st_size, info.st_ino};
}

// On a disk that does not answer, the last question goes on waiting and no other is asked.
void FileFollower::ask(const std::shared_ptr<State>& state) {
  if (std::exchange(state->asking, true)) return;
  Queue::execute(false, [weak = std::weak_ptr(state), path = state->path, last = state->last] {
    look(weak, path, last);
  });
}

void FileFollower::look(const std::weak_ptr<State>& weak, const std::string& path, Stamp last) {
  const Stamp now = stampOf(path);
  std::shared_ptr<FollowedFile> file;
  if (now != last && now != Stamp()) {
    const auto written =
        std::chrono::seconds(now.seconds) + std::chrono::nanoseconds(now.nanoseconds);
    file = std::make_shared<FollowedFile>(
        FollowedFile{path,
                     std::chrono::system_clock::time_point(
                         std::chrono::duration_cast<std::chrono::system_clock::duration>(written)),
                     readProject(path)});
  }
  XMain::post([weak, now, file] {
    const auto state = weak.lock();
    if (!state) return;
    state->asking = false;
    state->last = now;
    if (file) state->changed(*file);
  });
}

}  // namespace zq
