// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>
#include <zqswiftui/platform/base/result.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/services/bytes.hpp>
#include <zqswiftui/platform/services/file_facts.hpp>

struct stat;

namespace zq {

// Files by path or URL. Any thread; each waits for the disk, so not the interface thread
// unless the behaviour asks for it.

inline constexpr std::uint64_t defaultReadLimit = std::uint64_t{256} << 20;

// The whole of a regular file; an error where it is longer than the limit, in bytes.
Result<Bytes> readFile(const std::string& path, std::uint64_t limit = defaultReadLimit);
Result<std::string> readTextFile(const std::string& path, std::uint64_t limit = defaultReadLimit);

// Replaces a file whole: the bytes are written beside it, flushed and renamed, so that a
// reader sees the old content or the new, and a failure leaves the old. A link stays a link
// to the file that is replaced, and the file keeps its mode.
Result<void> replaceFile(const std::string& path, std::string_view content);

Result<void> replaceFile(const std::string& path, std::span<const std::uint8_t> content);

// Whether a text names one entry of a folder and can lead nowhere else: letters, digits and
// signs, no separator, no leading dot, at most 255 bytes.
bool isSafeFileName(std::string_view name);

// Whether a file or folder exists, and has at least that many kilobytes where they are given.
bool fu_fileExists(const Url& url, std::optional<std::int64_t> minSizeInKB = std::nullopt);
// The folder itself and what leads to it; false where that fails or it is not of a file.
bool fu_createFolderIfNeeded(const Url& folder);
bool fu_createParentFolderIfNeeded(const Url& file);
bool fu_writeTextToFile(const Url& url, std::string_view text);
// The application's own folder for what can be made again; user: false asks for the one of
// the machine, which is the folder for temporary files.
Url fu_getCacheFolderUrl(bool user);
// What the disk says of it, asked once; absent where it is not there or not of a file.
std::optional<FileFacts> fu_getFileFacts(const Url& url);
// Of an answer that is there already.
FileFacts fileFacts(const struct ::stat& info);
// 0 and absent where the file cannot be asked.
std::int64_t fu_getFileSize(const Url& url);
std::optional<std::chrono::system_clock::time_point> fu_getModificationDate(const Url& url);
// "999 bytes", "1.5 KB", "12 MB": decimal units, a digit after the point below 10.
std::string fu_getReadableFileSizeBySize(std::int64_t bytes);

struct FUList {
  static bool isFolder(const std::string& path);
};

enum class SortMethod { nameAscending, nameDescending, oldestFirst, newestFirst };
// By name in lower case or by modification date, ties by path; a file without a date counts as
// the oldest.
std::vector<Url> sortedWith(SortMethod method, const std::vector<Url>& urls);

// Without duplicates, first occurrences kept in order.
std::vector<Url> uniques(const std::vector<Url>& urls);

}  // namespace zq
