// ZQSwiftUI, MIT licence; see LICENSE.
#include <chrono>
#include <cstdio>
#include <map>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>
#include <zqswiftui/platform/qt/bus_notifications.hpp>

namespace zq::qt {
namespace {

constexpr std::chrono::milliseconds kLongestWait{200};

bool answered(const std::future<void>& answer, std::chrono::milliseconds wait) {
  return answer.wait_for(wait) == std::future_status::ready;
}

}  // namespace

// Who is told inside this process.
class BusNotifications::Observers {
 public:
  using Callback = std::function<void(const std::string&)>;

  // And whether it is the first of that name.
  std::pair<std::uint64_t, bool> add(const std::string& name, Callback callback) {
    const std::lock_guard lock(mutex_);
    const bool first = !contains(name);
    byName_.emplace(std::pair(name, ++lastId_),
                    std::make_shared<const Callback>(std::move(callback)));
    names_.emplace(lastId_, name);
    return {lastId_, first};
  }

  struct Removed {
    std::optional<std::string> name;  // if this was its last one
    std::shared_ptr<const Callback> callback;
  };
  Removed remove(std::uint64_t id) {
    const std::lock_guard lock(mutex_);
    const auto found = names_.find(id);
    if (found == names_.end()) return {};
    std::string name = std::move(found->second);
    names_.erase(found);
    const auto place = byName_.find({name, id});
    Removed removed{std::nullopt, std::move(place->second)};
    byName_.erase(place);
    if (!contains(name)) removed.name = std::move(name);
    return removed;
  }

  void removeAll() {
    std::map<Key, std::shared_ptr<const Callback>> removed;
    const std::lock_guard lock(mutex_);
    removed.swap(byName_);
    names_.clear();
  }

  void deliver(const Notification& notification) {
    std::vector<Key> keys;
    {
      const std::lock_guard lock(mutex_);
      for (auto place = byName_.lower_bound({notification.name, 0});
           place != byName_.end() && place->first.first == notification.name; ++place) {
        keys.push_back(place->first);
      }
    }
    for (const Key& key : keys) {
      std::shared_ptr<const Callback> callback;
      {
        // One that an earlier callback took away is not called any more.
        const std::lock_guard lock(mutex_);
        const auto found = byName_.find(key);
        if (found != byName_.end()) callback = found->second;
      }
      if (callback && *callback) (*callback)(notification.payload);
    }
  }

 private:
  using Key = std::pair<std::string, std::uint64_t>;  // of one name in the order of observing

  bool contains(const std::string& name) const {
    const auto place = byName_.lower_bound({name, 0});
    return place != byName_.end() && place->first.first == name;
  }

  std::mutex mutex_;
  std::map<Key, std::shared_ptr<const Callback>> byName_;
  std::map<std::uint64_t, std::string> names_;
  std::uint64_t lastId_ = 0;
};

BusNotifications::BusNotifications(zq::MainQueue& queue)
    : queue_(queue),
      observers_(std::make_shared<Observers>()),
      link_(queue, [this](Notification heard) {
        deliverLater(std::make_shared<const Notification>(std::move(heard)));
      }) {}

BusNotifications::~BusNotifications() {
  observers_->removeAll();
}

void BusNotifications::deliverLater(std::shared_ptr<const Notification> notification) {
  queue_.post([observers = observers_, notification = std::move(notification)] {
    observers->deliver(*notification);
  });
}

void BusNotifications::post(std::string_view name, std::string_view payload) {
  if (payload.size() > maxPayloadSize || name.size() > kLongestNotificationName) {
    std::fprintf(stderr,
                 "zqswiftui: the notification \"%s\" is not sent: a name of %zu and a payload of "
                 "%zu bytes are too much\n",
                 notificationKey(name).c_str(), name.size(), payload.size());
    return;
  }
  const auto notification =
      std::make_shared<const Notification>(Notification{std::string(name), std::string(payload)});
  const std::lock_guard lock(changes_);  // one order for all who hear it
  deliverLater(notification);
  link_.send(notification);
}

std::uint64_t BusNotifications::observe(std::string_view name,
                                        std::function<void(const std::string&)> callback) {
  std::future<void> known;
  std::uint64_t id = 0;
  bool patient = true;
  {
    const std::lock_guard lock(changes_);
    bool first = false;
    std::tie(id, first) = observers_->add(std::string(name), std::move(callback));
    if (first) known = link_.listen(std::string(name));
    patient = !unanswered_.valid() || answered(unanswered_, std::chrono::milliseconds(0));
  }
  if (known.valid() && !(patient && answered(known, kLongestWait))) {
    const std::lock_guard lock(changes_);
    unanswered_ = std::move(known);
  }
  return id;
}

void BusNotifications::stopObserving(std::uint64_t id) {
  Observers::Removed removed;  // ends after the lock: it may hold another one
  const std::lock_guard lock(changes_);
  removed = observers_->remove(id);
  if (removed.name) link_.unlisten(*removed.name);
}

}  // namespace zq::qt
