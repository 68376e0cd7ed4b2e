// ZQSwiftUI, MIT licence; see LICENSE.
#include <sys/stat.h>

#include <condition_variable>
#include <deque>
#include <iterator>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>
#include <utility>
#include <zqswiftui/platform/base/files.hpp>
#include <zqswiftui/platform/base/url.hpp>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/qt/document_lookup.hpp>
#include <zqswiftui/platform/qt/mounted_shares.hpp>

namespace zq::qt {
namespace {

using Group = std::vector<std::string>;
constexpr std::size_t kGroup = 256;  // some tenths of a millisecond

// Finds what keeps each document, without a question to what may not answer.
class Places {
 public:
  RecentDocument documentAt(const Url& url) {
    RecentDocument document{url.text()};
    if (!url.isFile()) return document;
    const std::string file = url.path();
    document.place = shareOfFolder(std::string_view(file).substr(0, file.rfind('/') + 1));
    struct stat info {};
    if (!document.place.empty() || ::lstat(file.c_str(), &info) != 0) return document;
    if (S_ISLNK(info.st_mode)) {
      document.place = shares_.shareOf(file);
    } else {
      document.facts = fileFacts(info);
    }
    return document;
  }

 private:
  const std::string& shareOfFolder(std::string_view folder) {
    const auto known = ofFolders_.find(folder);
    if (known != ofFolders_.end()) return known->second;
    return ofFolders_.emplace(folder, shares_.shareOf(folder)).first->second;
  }

  const MountedShares shares_;
  std::map<std::string, std::string, std::less<>> ofFolders_;
};

}  // namespace

struct DocumentLookup::State {
  // One helper at a time, which comes back when there is more: a list of any length holds up one
  // thread beside its reader's.
  static void add(const std::shared_ptr<State>& self, Group group) {
    {
      const std::lock_guard lock(self->mutex);
      self->waiting.push_back(std::move(group));
      if (std::exchange(self->helperComes, true)) return;
    }
    Queue::execute(true, [self] {
      if (!self->ofHelper) self->ofHelper.emplace();
      self->work(*self->ofHelper, By::helper);
    });
  }

  enum class By : unsigned char { helper, reader };
  void work(Places& places, By whom) {
    std::unique_lock lock(mutex);
    while (!waiting.empty()) {
      Group group = std::move(waiting.front());
      waiting.pop_front();
      ++running;
      lock.unlock();
      std::vector<Found> asked = ask(places, std::move(group));
      lock.lock();
      found.insert(found.end(), std::move_iterator(asked.begin()), std::move_iterator(asked.end()));
      if (--running == 0) idle.notify_one();
    }
    if (whom == By::helper) helperComes = false;
  }

  static std::vector<Found> ask(Places& places, Group group) {
    std::vector<Found> asked;
    asked.reserve(group.size());
    for (std::string& text : group) {
      const auto url = Url::parse(text);
      if (url) asked.push_back({std::move(text), places.documentAt(*url)});
    }
    return asked;
  }

  std::mutex mutex;
  std::condition_variable idle;
  std::deque<Group> waiting;
  std::vector<Found> found;
  int running = 0;  // groups that are being asked for
  bool helperComes = false;
  std::optional<Places> ofHelper;
};

DocumentLookup::DocumentLookup() : state_(std::make_shared<State>()) {}

DocumentLookup::~DocumentLookup() = default;

void DocumentLookup::add(std::string text) {
  group_.push_back(std::move(text));
  if (group_.size() == kGroup) State::add(state_, std::exchange(group_, {}));
}

std::vector<DocumentLookup::Found> DocumentLookup::finish() {
  Places places;
  std::vector<Found> last = State::ask(places, std::exchange(group_, {}));
  state_->work(places, State::By::reader);
  std::unique_lock lock(state_->mutex);
  state_->idle.wait(lock, [this] { return state_->running == 0; });
  std::vector<Found> all = std::exchange(state_->found, {});
  all.insert(all.end(), std::move_iterator(last.begin()), std::move_iterator(last.end()));
  return all;
}

}  // namespace zq::qt
