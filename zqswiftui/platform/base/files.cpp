// ZQSwiftUI, MIT licence; see LICENSE.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <tuple>
#include <unordered_set>
#include <zqswiftui/platform/base/file_order.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/zq_id.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

namespace {

namespace fs = std::filesystem;

class Descriptor {
 public:
  explicit Descriptor(int value) : value_(value) {}
  ~Descriptor() {
    if (value_ >= 0) ::close(value_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return value_; }
  bool ok() const { return value_ >= 0; }
  // Some file systems tell only now that a write failed.
  bool close() { return ::close(std::exchange(value_, -1)) == 0; }

 private:
  int value_;
};

Error systemError(const std::string& what, const std::string& path) {
  return {what + " " + path + ": " + std::strerror(errno)};
}

template <typename Content>
Result<Content> readWhole(const std::string& path, std::uint64_t limit) {
  // Non-blocking, because opening a pipe that nobody writes to would wait for ever.
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.ok()) return systemError("cannot open", path);
  struct stat info {};
  if (::fstat(file.get(), &info) != 0) return systemError("cannot read", path);
  if (!S_ISREG(info.st_mode)) return Error{"cannot read " + path + ": it is not a file"};
  const Error tooLong{path + " is longer than " + std::to_string(limit) + " bytes"};
  if (static_cast<std::uint64_t>(info.st_size) > limit) return tooLong;
  Content content(static_cast<std::size_t>(info.st_size), typename Content::value_type{});
  std::size_t size = 0;
  while (true) {
    // One more than the file said, because it may be growing.
    if (size == content.size()) content.resize(size + (size == 0 ? 4096 : 1 + size / 8));
    const ssize_t count = ::read(file.get(), content.data() + size, content.size() - size);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return systemError("cannot read", path);
    if (count == 0) break;
    size += static_cast<std::size_t>(count);
    if (size > limit) return tooLong;
  }
  content.resize(size);
  return content;
}

bool writeAll(int file, std::string_view content) {
  while (!content.empty()) {
    const ssize_t count = ::write(file, content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return false;
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

// Where a link leads in the end, though nothing may be there yet.
std::string linkTarget(const std::string& path) {
  fs::path target = path;
  std::error_code error;
  for (int depth = 0; depth < 40 && fs::is_symlink(target, error); ++depth) {
    const fs::path next = fs::read_symlink(target, error);
    if (error) break;
    target = next.is_absolute() ? next : target.parent_path() / next;
  }
  return target.string();
}

bool writeBeside(const std::string& temporary, mode_t mode, std::string_view content) {
  Descriptor file(
      ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666));
  if (!file.ok()) return false;
  if (mode != 0 && ::fchmod(file.get(), mode) != 0) return false;
  return writeAll(file.get(), content) && ::fsync(file.get()) == 0 && file.close();
}

std::vector<Url> sortedByName(const std::vector<Url>& urls, bool descending) {
  struct Entry {
    Url url;
    std::string path;
    std::string name;
  };
  std::vector<Entry> entries;
  entries.reserve(urls.size());
  for (const Url& url : urls) entries.push_back({url, url.path(), lowercased(url.name())});
  std::stable_sort(entries.begin(), entries.end(), [descending](const Entry& a, const Entry& b) {
    if (descending) return std::tie(b.name, a.path) < std::tie(a.name, b.path);
    return std::tie(a.name, a.path) < std::tie(b.name, b.path);
  });
  std::vector<Url> sorted;
  sorted.reserve(entries.size());
  for (Entry& entry : entries) sorted.push_back(std::move(entry.url));
  return sorted;
}

}  // namespace

Result<Bytes> readFile(const std::string& path, std::uint64_t limit) {
  return readWhole<Bytes>(path, limit);
}

Result<std::string> readTextFile(const std::string& path, std::uint64_t limit) {
  return readWhole<std::string>(path, limit);
}

Result<void> replaceFile(const std::string& path, std::string_view content) {
  const std::string target = linkTarget(path);
  struct stat info {};
  const bool exists = ::stat(target.c_str(), &info) == 0;
  if (exists && !S_ISREG(info.st_mode)) return Error{"cannot write " + path + ": it is not a file"};
  // Renaming would go round a mark that is there to protect the content.
  if (exists && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
    return systemError("cannot write", path);
  const std::string folder = fs::path(target).parent_path().string();
  const std::string temporary =
      (fs::path(folder) / ("." + ZQId::newId("zq", "", true) + ".tmp")).string();
  if (!writeBeside(temporary, exists ? info.st_mode & 07777 : 0, content) ||
      ::rename(temporary.c_str(), target.c_str()) != 0) {
    const Error error = systemError("cannot write", path);
    ::unlink(temporary.c_str());
    return error;
  }
  // The name is on the disk only once the folder is; a failure here loses nothing.
  const Descriptor folderFile(
      ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folderFile.ok()) ::fsync(folderFile.get());
  return {};
}

Result<void> replaceFile(const std::string& path, std::span<const std::uint8_t> content) {
  return replaceFile(
      path, std::string_view(reinterpret_cast<const char*>(content.data()), content.size()));
}

bool isSafeFileName(std::string_view name) {
  constexpr std::size_t longestName = 255;
  const auto unsafe = [](char c) {
    return c == '/' || c == '\\' || static_cast<unsigned char>(c) < 0x20;
  };
  return !name.empty() && name.size() <= longestName && name[0] != '.' &&
         std::none_of(name.begin(), name.end(), unsafe);
}

bool fu_fileExists(const Url& url, std::optional<std::int64_t> minSizeInKB) {
  const auto facts = fu_getFileFacts(url);
  return facts && (!minSizeInKB || facts->size / 1024 >= *minSizeInKB);
}

bool fu_createFolderIfNeeded(const Url& folder) {
  if (!folder.isFile()) return false;
  std::error_code error;
  fs::create_directories(folder.path(), error);
  return fs::is_directory(folder.path(), error);
}

bool fu_createParentFolderIfNeeded(const Url& file) {
  if (!file.isFile()) return false;
  const std::string parent = fs::path(file.path()).parent_path().string();
  return parent.empty() || fu_createFolderIfNeeded(Url::file(parent));
}

bool fu_writeTextToFile(const Url& url, std::string_view text) {
  return url.isFile() && replaceFile(url.path(), text).ok();
}

Url fu_getCacheFolderUrl(bool user) {
  if (user) return Url::file(Platform::current().bundle().cacheFolder());
  std::error_code error;
  return Url::file(fs::temp_directory_path(error).string());
}

std::optional<FileFacts> fu_getFileFacts(const Url& url) {
  struct stat info {};
  if (!url.isFile() || ::stat(url.path().c_str(), &info) != 0) return std::nullopt;
  return fileFacts(info);
}

FileFacts fileFacts(const struct ::stat& info) {
  return {info.st_size, std::chrono::system_clock::time_point(
                            std::chrono::duration_cast<std::chrono::system_clock::duration>(
                                std::chrono::seconds(info.st_mtim.tv_sec) +
                                std::chrono::nanoseconds(info.st_mtim.tv_nsec)))};
}

std::int64_t fu_getFileSize(const Url& url) {
  const auto facts = fu_getFileFacts(url);
  return facts ? facts->size : 0;
}

std::optional<std::chrono::system_clock::time_point> fu_getModificationDate(const Url& url) {
  const auto facts = fu_getFileFacts(url);
  return facts ? facts->modified : std::nullopt;
}

std::string fu_getReadableFileSizeBySize(std::int64_t bytes) {
  constexpr std::array<const char*, 6> units{"KB", "MB", "GB", "TB", "PB", "EB"};
  if (bytes < 0) bytes = 0;
  if (bytes < 1000) return std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes");
  double amount = static_cast<double>(bytes) / 1000;
  std::size_t unit = 0;
  // 999.5 would be shown as 1000 of the smaller unit.
  for (; amount >= 999.5 && unit + 1 < units.size(); ++unit) amount /= 1000;
  std::array<char, 32> text{};
  const int decimals = amount < 9.95 ? 1 : 0;
  std::snprintf(text.data(), text.size(), "%.*f %s", decimals, amount, units[unit]);
  return text.data();
}

bool FUList::isFolder(const std::string& path) {
  struct stat info {};
  return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

std::vector<Url> sortedWith(SortMethod method, const std::vector<Url>& urls) {
  const bool byName = method == SortMethod::nameAscending || method == SortMethod::nameDescending;
  if (byName) return sortedByName(urls, method == SortMethod::nameDescending);
  // Asked once a file, not once a comparison.
  std::vector<DatedFile> files;
  files.reserve(urls.size());
  for (const Url& url : urls) files.push_back({&url, fu_getModificationDate(url)});
  std::vector<Url> sorted;
  sorted.reserve(urls.size());
  for (const std::size_t place : dateOrder(files, method == SortMethod::newestFirst)) {
    sorted.push_back(urls[place]);
  }
  return sorted;
}

std::vector<Url> uniques(const std::vector<Url>& urls) {
  std::unordered_set<Url> seen;
  std::vector<Url> kept;
  for (const Url& url : urls) {
    if (seen.insert(url).second) kept.push_back(url);
  }
  return kept;
}

}  // namespace zq
