// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <apps/configurator/recent_projects.hpp>
#include <zqswiftui/platform/base/prefs.hpp>

namespace zq::configurator {
namespace {

constexpr const char* kRecentKey = "recentProjects";

std::string folderOf(const Url& file) {
  const std::string path = file.path();
  return path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
}

}  // namespace

RecentProjects::RecentProjects() {
  std::vector<Url> files;
  for (const std::string& line : prefs_getValueStringList(kRecentKey, {})) {
    const auto file = Url::parse(line);
    const bool known = file && std::find(files.begin(), files.end(), *file) != files.end();
    if (!file || known || !file->isFile() || !file->path().starts_with('/')) continue;
    if (files.size() < most) files.push_back(*file);
  }
  files_.set(std::move(files));
}

void RecentProjects::set(std::vector<Url> files) {
  if (files == *files_.snapshot()) return;
  std::vector<std::string> lines;
  lines.reserve(files.size());
  for (const Url& file : files) lines.push_back(file.text());
  prefs_setValueStringList(kRecentKey, std::move(lines));
  files_.set(std::move(files));
}

void RecentProjects::note(const Url& file) {
  std::vector<Url> all = files();
  std::erase(all, file);
  all.insert(all.begin(), file);
  if (all.size() > most) all.pop_back();
  set(std::move(all));
}

void RecentProjects::remove(const Url& file) {
  std::vector<Url> all = files();
  std::erase(all, file);
  set(std::move(all));
}

std::vector<std::string> recentTitles(const std::vector<Url>& files,
                                      const std::function<std::string(const Url&)>& nameOf) {
  std::vector<std::string> titles;
  titles.reserve(files.size());
  for (const Url& file : files) titles.push_back(nameOf(file));
  const auto tellApart = [&](const std::function<std::string(const Url&)>& behind) {
    const std::vector<std::string> before = titles;
    for (std::size_t i = 0; i < files.size(); ++i) {
      if (std::count(before.begin(), before.end(), before[i]) < 2) continue;
      titles[i] = nameOf(files[i]) + " — " + behind(files[i]);
    }
  };
  tellApart(folderOf);
  tellApart([](const Url& file) { return file.path(); });
  return titles;
}

}  // namespace zq::configurator
