// ZQSwiftUI, MIT licence; see LICENSE.
#include <functional>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <zqswiftui/platform/base/share_app.hpp>
#include <zqswiftui/platform/base/url_loader.hpp>

namespace zq {

namespace {

using Answer = std::function<void(std::optional<Url>)>;

// Who waits for a download. It belongs to the download: where that is dropped, they are too.
struct Waiting {
  std::vector<Answer> answers;
};

}  // namespace

struct ZQShareApp::Record {
  explicit Record(Url place) : folder(std::move(place)) {}

  Url folder;
  std::unordered_map<std::string, Item> items;
  std::mutex mutex;
  std::unordered_map<std::string, std::weak_ptr<Waiting>> downloads;  // by id

  // Both hold the record, not the value that was asked: that may be gone before they end.
  static Task<std::optional<Url>> find(std::shared_ptr<Record> record, std::string id,
                                       bool downloadRemote) {
    const auto found = record->items.find(id);
    if (found == record->items.end() || !isSafeFileName(found->second.fileName)) {
      co_return std::nullopt;
    }
    const Url local = record->folder.appending(found->second.fileName);
    co_await onBackground();
    if (fu_fileExists(local)) co_return local;
    const auto remote = Url::parse(found->second.remoteUrl);
    if (!downloadRemote || !remote) co_return std::nullopt;
    detail::Callback<std::optional<Url>>::Begin begin = [=](Answer answer) {
      join(record, {id, *remote, local}, std::move(answer));
    };
    co_return co_await callback<std::optional<Url>>(std::move(begin));
  }

  struct Source {
    std::string id;
    Url remote;
    Url local;
  };

  static void join(const std::shared_ptr<Record>& record, Source source, Answer answer) {
    std::shared_ptr<Waiting> waiting;
    {
      const std::lock_guard lock(record->mutex);
      auto& known = record->downloads[source.id];
      waiting = known.lock();
      if (waiting) {
        waiting->answers.push_back(std::move(answer));
        return;
      }
      waiting = std::make_shared<Waiting>();
      waiting->answers.push_back(std::move(answer));
      known = waiting;
    }
    detach(download(record, std::move(source), std::move(waiting)));
  }

  static Task<void> download(std::shared_ptr<Record> record, Source source,
                             std::shared_ptr<Waiting> waiting) {
    std::optional<Url> result;
    // It may have come between the look of who asked and the beginning of this.
    if (fu_fileExists(source.local)) {
      result = source.local;
    } else {
      const Result<Bytes> bytes = co_await loadUrl(source.remote);
      const bool kept = bytes.ok() && fu_createFolderIfNeeded(record->folder) &&
                        replaceFile(source.local.path(), bytes.value()).ok();
      if (kept) result = source.local;
    }
    std::vector<Answer> answers;
    {
      const std::lock_guard lock(record->mutex);
      record->downloads.erase(source.id);
      answers = std::move(waiting->answers);
    }
    for (const Answer& answer : answers) answer(result);
  }
};

ZQShareApp::ZQShareApp(Url folder, std::vector<Item> items)
    : record_(std::make_shared<Record>(std::move(folder))) {
  for (Item& item : items) {
    std::string id = item.id;
    record_->items.emplace(std::move(id), std::move(item));
  }
}

Task<std::optional<Url>> ZQShareApp::urlForId(std::string id, bool downloadRemote) const {
  return Record::find(record_.pointer(), std::move(id), downloadRemote);
}

std::optional<Url> ZQShareApp::remoteUrl(const std::string& id) const {
  const auto found = record_->items.find(id);
  return found == record_->items.end() ? std::nullopt : Url::parse(found->second.remoteUrl);
}

}  // namespace zq
