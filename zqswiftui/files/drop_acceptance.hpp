// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <optional>
#include <string>
#include <vector>
#include <zqswiftui/platform/base/url.hpp>

namespace zq {

// What an area for files takes. Any thread, but for a folder the disk is asked: so not the
// interface thread.
struct FileRule {
  // In lower case and without dots; none: every file and folder.
  std::optional<std::vector<std::string>> extensions = std::nullopt;
  bool acceptFolders = false;  // also those whose extension is not listed
  bool operator==(const FileRule&) const = default;
};

// Those of the kinds of pictures that areas take where nothing else is said.
std::vector<std::string> pictureExtensions();

// With its extensions in lower case.
FileRule fileRule(std::optional<std::vector<std::string>> extensions, bool acceptFolders);

// What the disk says of a path; tests give another one.
using FolderTest = bool (*)(const std::string& path);

// Whether the address names a folder of this machine: nothing remote is asked.
bool namesFolder(const Url& url, FolderTest isFolder);
bool namesFolder(const Url& url);

// By extension, whatever its case, or as a folder; the disk is asked only where that decides.
bool acceptsFile(const FileRule& rule, const Url& url, FolderTest isFolder);
bool acceptsFile(const FileRule& rule, const Url& url);

// A folder, or with `appsOnly` an application bundle: a folder whose extension is app.
bool acceptsFolder(bool appsOnly, const Url& url, FolderTest isFolder);
bool acceptsFolder(bool appsOnly, const Url& url);

// For a screen reader: "Accepts png, jpg and folders".
std::string spokenRule(const FileRule& rule);

}  // namespace zq
