// ZQSwiftUI, MIT licence; see LICENSE.
#include <apps/configurator/project_file.hpp>
#include <functional>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/settings/project_json.hpp>

namespace zq::configurator {
namespace {

std::size_t hashOf(const std::string& text) {
  return std::hash<std::string>()(text);
}

}  // namespace

std::string projectName(const Url& file) {
  const std::string name = file.name();
  const std::string extension = "." + std::string(ZQUICProject::configuratorFileExtension);
  return name.ends_with(extension) ? name.substr(0, name.size() - extension.size()) : name;
}

bool ProjectFile::isOthers(const std::string& text) const {
  return known_ != hashOf(text);
}

Result<ZQUICProject> ProjectFile::decoded(const std::string& text) const {
  auto project = decodeProject(text);
  if (!project.ok()) return Error{url_.path() + ":" + project.error().sentence};
  return project;
}

Result<ZQUICProject> ProjectFile::read() {
  const auto text = readTextFile(url_.path(), longestProject);
  if (!text.ok()) return text.error();
  auto project = decoded(text.value());
  if (project.ok()) known_ = hashOf(text.value());
  return project;
}

std::optional<ProjectFile::Found> ProjectFile::look() const {
  const auto text = readTextFile(url_.path(), longestProject);
  if (!text.ok()) {
    return fu_fileExists(url_) ? std::optional(Found{text.error(), 0}) : std::nullopt;
  }
  if (!isOthers(text.value())) return std::nullopt;
  return Found{decoded(text.value()), hashOf(text.value())};
}

Result<ProjectFile::Written> ProjectFile::write(ZQUICProject project, bool whateverIsThere) {
  if (!whateverIsThere) {
    const auto text = readTextFile(url_.path(), longestProject);
    // What cannot be read was not there when this program wrote.
    if (text.ok() ? isOthers(text.value()) : fu_fileExists(url_))
      return Written{.changedByOthers = true};
  }
  project.configFileUrl = url_;
  const auto json = encodeProject(project, JsonStyle::pretty);
  if (!json.ok()) return json.error();
  fu_createParentFolderIfNeeded(url_);
  const Result<void> saved = replaceFile(url_.path(), json.value());
  if (!saved.ok()) return saved.error();
  known_ = hashOf(json.value());
  const Result<void> source = project.saveSwiftConfigFile();
  return source.ok() ? Written() : Written{.sourceFailure = source.error().sentence};
}

}  // namespace zq::configurator
