// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/base/documents.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

// Inside of files/ only.
namespace zq::detail {

// A file of the list, with what searching it and showing it takes.
struct RecentFile {
  RecentFile(Url file, std::optional<FileFacts> known);
  bool matches(const std::vector<std::string>& extensions, std::string_view loweredSearch) const;

  Url url;
  std::string loweredPath;
  std::optional<FileFacts> facts;  // absent: nobody has asked yet
};
using RecentFileList = std::vector<Shared<const RecentFile>>;

// How long the gathering waits for what does not answer, in seconds.
inline constexpr double localLimit = 10;
inline constexpr double remoteLimit = 2;

// Asks for each document in the background, those of each share on a thread of their own, and
// tells once, on the interface thread, those that exist: the newest first, ties by path. What has
// not answered in time is left out. `ask` runs on several threads, and may still run long after
// all is told. Interface thread only.
using AskFile = std::function<std::optional<FileFacts>(const Url&)>;
void gatherRecentFiles(std::vector<Documents::Recent> documents, AskFile ask,
                       std::function<void(RecentFileList)> tell);

}  // namespace zq::detail
