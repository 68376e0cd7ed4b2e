// ZQSwiftUI, MIT licence; see LICENSE.
#include <map>
#include <mutex>
#include <set>
#include <thread>
#include <utility>
#include <zqswiftui/files/recent_files.hpp>
#include <zqswiftui/platform/base/file_order.hpp>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/text.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq::detail {
namespace {

// The shares that have been asked and have not answered in time. Nobody asks them again before
// they do, so that the threads they hold up do not grow in number.
class SilentShares {
 public:
  static SilentShares& all() {
    static auto* shares = new SilentShares;  // threads may come back to it as the program ends
    return *shares;
  }
  bool has(const std::string& place) {
    const std::lock_guard lock(mutex_);
    return places_.contains(place);
  }
  // Of a share that is being asked.
  void wentSilent(const std::string& place, const bool& answered) {
    const std::lock_guard lock(mutex_);
    if (!answered) places_.insert(place);
  }
  void answered(const std::string& place, bool& answered) {
    const std::lock_guard lock(mutex_);
    answered = true;
    places_.erase(place);
  }

 private:
  std::mutex mutex_;
  std::set<std::string> places_;
};

RecentFileList newestFirst(const RecentFileList& list) {
  std::vector<DatedFile> files;
  files.reserve(list.size());
  for (const auto& file : list) files.push_back({&file->url, file->facts->modified});
  RecentFileList sorted;
  sorted.reserve(list.size());
  for (const std::size_t place : dateOrder(files, true)) sorted.push_back(list[place]);
  return sorted;
}

// One gathering, held by the threads that ask and by the deadlines.
class Gathering : public std::enable_shared_from_this<Gathering> {
 public:
  Gathering(AskFile ask, std::function<void(RecentFileList)> tell)
      : ask_(std::move(ask)), tell_(std::move(tell)) {}

  void begin(std::vector<Documents::Recent> documents) {
    std::map<std::string, std::vector<Documents::Recent>> places;
    for (Documents::Recent& document : documents) {
      places[document.place].push_back(std::move(document));
    }
    std::erase_if(places, [](const auto& of) { return SilentShares::all().has(of.first); });
    waiting_ = places.size() + 1;
    for (auto& [place, kept] : places) askPlace(place, std::move(kept));
    placeEnded();  // that of the beginning, so that no place at all ends too
  }

 private:
  void askPlace(const std::string& place, std::vector<Documents::Recent> documents) {
    const auto ended = std::make_shared<bool>(false);     // on the interface thread
    const auto answered = std::make_shared<bool>(false);  // under the lock of the shares
    const auto end = [self = shared_from_this(), ended] {
      if (std::exchange(*ended, true)) return;
      self->placeEnded();
    };
    auto work = [self = shared_from_this(), place, documents = std::move(documents), answered,
                 end]() mutable {
      for (Documents::Recent& document : documents) {
        if (!self->take(std::move(document))) break;
      }
      SilentShares::all().answered(place, *answered);
      XMain::executeWhileThere(end);
    };
    if (place.empty()) {
      Queue::execute(true, std::move(work));
    } else {
      std::thread(std::move(work)).detach();  // it may never end, and must not keep the program
    }
    Platform::current().mainQueue().postDelayed(
        place.empty() ? localLimit : remoteLimit, [place, answered, end] {
          if (!place.empty()) SilentShares::all().wentSilent(place, *answered);
          end();
        });
  }

  // Whether there is still somebody to ask for.
  bool take(Documents::Recent document) {
    const auto facts = document.facts ? document.facts : ask_(document.url);
    auto file =
        facts ? std::make_shared<const RecentFile>(std::move(document.url), facts) : nullptr;
    const std::lock_guard lock(mutex_);
    if (file && !told_) found_.push_back(std::move(file));
    return !told_;
  }

  void placeEnded() {
    if (--waiting_ > 0) return;
    RecentFileList found;
    {
      const std::lock_guard lock(mutex_);
      told_ = true;
      found = std::move(found_);
    }
    Queue::execute(true, [found = std::move(found), tell = std::move(tell_)]() mutable {
      XMain::executeWhileThere([found = newestFirst(found), tell = std::move(tell)]() mutable {
        tell(std::move(found));
      });
    });
  }

  const AskFile ask_;
  std::function<void(RecentFileList)> tell_;
  std::size_t waiting_ = 0;
  std::mutex mutex_;
  bool told_ = false;
  RecentFileList found_;
};

}  // namespace

RecentFile::RecentFile(Url file, std::optional<FileFacts> known)
    : url(std::move(file)), loweredPath(lowercased(url.path())), facts(known) {}

bool RecentFile::matches(const std::vector<std::string>& extensions,
                         std::string_view loweredSearch) const {
  if (!extensions.empty() && !url.isA(extensions)) return false;
  return loweredPath.find(loweredSearch) != std::string::npos;
}

void gatherRecentFiles(std::vector<Documents::Recent> documents, AskFile ask,
                       std::function<void(RecentFileList)> tell) {
  std::make_shared<Gathering>(std::move(ask), std::move(tell))->begin(std::move(documents));
}

}  // namespace zq::detail
