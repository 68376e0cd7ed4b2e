// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <filesystem>
#include <utility>
#include <zqswiftui/platform/base/sub_files.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/url_loader.hpp>
#include <zqswiftui/platform/base/zq_id.hpp>

namespace zq {

namespace {

bool isPlain(char c) {
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
}

// The path of an item's own file. A link is none of ours: it could lead out of the folder.
std::optional<std::string> itemPath(const Url& folder, const std::string& id) {
  if (!isSafeFileName(id) || !folder.isFile()) return std::nullopt;
  std::string path = folder.appending(id).path();
  std::error_code error;
  if (std::filesystem::symlink_status(path, error).type() != std::filesystem::file_type::regular) {
    return std::nullopt;
  }
  return path;
}

std::string newItemId(const Url& source) {
  constexpr std::size_t longestExtension = 8;
  const std::string extension = lowercased(source.pathExtension());
  const std::string id = ZQId::newId("", "", true);
  const bool plain = !extension.empty() && extension.size() <= longestExtension &&
                     std::all_of(extension.begin(), extension.end(), isPlain);
  return plain ? id + "." + extension : id;
}

Task<std::optional<Bytes>> readItem(Url folder, std::string id) {
  co_await onBackground();
  const auto path = itemPath(folder, id);
  if (!path) co_return std::nullopt;
  Result<Bytes> bytes = readFile(*path);
  if (!bytes.ok()) co_return std::nullopt;
  co_return std::move(bytes).value();
}

Task<std::optional<std::string>> addItem(Url folder, Url source) {
  const Result<Bytes> bytes = co_await loadUrl(source);
  if (!bytes.ok() || !fu_createFolderIfNeeded(folder)) co_return std::nullopt;
  std::string id = newItemId(source);
  if (!replaceFile(folder.appending(id).path(), bytes.value()).ok()) co_return std::nullopt;
  co_return id;
}

Task<bool> removeItem(Url folder, std::string id) {
  co_await onBackground();
  const auto path = itemPath(folder, id);
  std::error_code error;
  co_return path&& std::filesystem::remove(*path, error);
}

}  // namespace

ZQSubFiles::ZQSubFiles(Url folder) : folder_(std::move(folder)) {}

// The tasks take the folder with them: a store may be gone before they end.
Task<std::optional<Bytes>> ZQSubFiles::read(std::string id) const {
  return readItem(folder_, std::move(id));
}

Task<std::optional<std::string>> ZQSubFiles::add(Url source) const {
  return addItem(folder_, std::move(source));
}

Task<bool> ZQSubFiles::remove(std::string id) const {
  return removeItem(folder_, std::move(id));
}

}  // namespace zq
