// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <utility>
#include <zqswiftui/files/drop_acceptance.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/text.hpp>

namespace zq {

std::vector<std::string> pictureExtensions() {
  return {"jpg", "jpeg", "png"};
}

FileRule fileRule(std::optional<std::vector<std::string>> extensions, bool acceptFolders) {
  if (extensions) {
    for (std::string& extension : *extensions) extension = lowercased(extension);
  }
  return {std::move(extensions), acceptFolders};
}

bool namesFolder(const Url& url, FolderTest isFolder) {
  if (!url.isFile()) return false;
  const std::string path = url.path();
  return path.starts_with('/') && isFolder(path);  // others begin with the name of a machine
}

bool namesFolder(const Url& url) {
  return namesFolder(url, FUList::isFolder);
}

bool acceptsFile(const FileRule& rule, const Url& url, FolderTest isFolder) {
  if (!rule.extensions) return true;
  const auto& known = *rule.extensions;
  const std::string extension = lowercased(url.pathExtension());
  if (std::find(known.begin(), known.end(), extension) != known.end()) return true;
  return rule.acceptFolders && namesFolder(url, isFolder);
}

bool acceptsFile(const FileRule& rule, const Url& url) {
  return acceptsFile(rule, url, FUList::isFolder);
}

bool acceptsFolder(bool appsOnly, const Url& url, FolderTest isFolder) {
  if (appsOnly && lowercased(url.pathExtension()) != "app") return false;
  return namesFolder(url, isFolder);
}

bool acceptsFolder(bool appsOnly, const Url& url) {
  return acceptsFolder(appsOnly, url, FUList::isFolder);
}

std::string spokenRule(const FileRule& rule) {
  if (!rule.extensions) return "Accepts any file or folder";
  std::string list;
  for (const std::string& extension : *rule.extensions) {
    if (!list.empty()) list += ", ";
    list += extension;
  }
  if (rule.acceptFolders) list += list.empty() ? "folders" : " and folders";
  return list.empty() ? "Accepts what is chosen" : "Accepts " + list;
}

}  // namespace zq
