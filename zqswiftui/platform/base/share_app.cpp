// ZQSwiftUI, MIT licence; see LICENSE.
#include <unordered_map>
#include <utility>
#include <zqswiftui/platform/base/share_app.hpp>
#include <zqswiftui/platform/base/url_loader.hpp>

namespace zq {

struct ZQShareApp::Record {
  Url folder;
  std::unordered_map<std::string, Item> items;

  // Holds the record, not the value that was asked: that may be gone before the download ends.
  static Task<std::optional<Url>> find(std::shared_ptr<const Record> record, std::string id,
                                       bool downloadRemote) {
    const auto found = record->items.find(id);
    if (found == record->items.end() || !isSafeFileName(found->second.fileName)) {
      co_return std::nullopt;
    }
    const Item& item = found->second;
    const Url local = record->folder.appending(item.fileName);
    co_await onBackground();
    if (fu_fileExists(local)) co_return local;
    const auto remote = Url::parse(item.remoteUrl);
    if (!downloadRemote || !remote) co_return std::nullopt;
    const Result<Bytes> bytes = co_await loadUrl(*remote);
    if (!bytes.ok() || !fu_createFolderIfNeeded(record->folder)) co_return std::nullopt;
    if (!replaceFile(local.path(), bytes.value()).ok()) co_return std::nullopt;
    co_return local;
  }
};

ZQShareApp::ZQShareApp(Url folder, std::vector<Item> items) {
  auto record = std::make_shared<Record>(Record{std::move(folder), {}});
  for (Item& item : items) {
    std::string id = item.id;
    record->items.emplace(std::move(id), std::move(item));
  }
  record_ = std::move(record);
}

Task<std::optional<Url>> ZQShareApp::urlForId(std::string id, bool downloadRemote) const {
  return Record::find(record_, std::move(id), downloadRemote);
}

}  // namespace zq
