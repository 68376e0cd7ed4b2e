// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <cstdio>
#include <zqswiftui/platform/qt/local_services.hpp>

namespace zq::qt {
namespace {

constexpr std::size_t kMaxDocuments = 100;

}  // namespace

void LocalNotifications::post(std::string_view name, std::string_view payload) {
  if (payload.size() > maxPayloadSize) {
    std::fprintf(stderr, "Notification %.*s is not sent: %zu bytes are too many\n",
                 static_cast<int>(name.size()), name.data(), payload.size());
    return;
  }
  queue_.post(
      [this, name = std::string(name), payload = std::string(payload)] { deliver(name, payload); });
}

std::uint64_t LocalNotifications::observe(std::string_view name,
                                          std::function<void(const std::string&)> callback) {
  const std::scoped_lock lock(mutex_);
  observers_.emplace(++lastId_, Observer{std::string(name), std::move(callback)});
  return lastId_;
}

void LocalNotifications::stopObserving(std::uint64_t id) {
  const std::scoped_lock lock(mutex_);
  observers_.erase(id);
}

void LocalNotifications::deliver(const std::string& name, const std::string& payload) {
  std::vector<std::uint64_t> ids;
  {
    const std::scoped_lock lock(mutex_);
    for (const auto& [id, observer] : observers_) {
      if (observer.name == name) ids.push_back(id);
    }
  }
  for (const std::uint64_t id : ids) {
    std::function<void(const std::string&)> callback;
    {
      // One that an earlier callback took away is not called any more.
      const std::scoped_lock lock(mutex_);
      const auto found = observers_.find(id);
      if (found != observers_.end()) callback = found->second.callback;
    }
    if (callback) callback(payload);
  }
}

void NoDragData::begin(DragItems, std::function<void(DropResult)> ended) {
  if (ended) queue_.post([ended = std::move(ended)] { ended(DropResult::refused); });
}

void SessionDocuments::list(std::function<void(std::vector<std::string>)> answer) {
  if (!answer) return;
  queue_.post([this, answer = std::move(answer)] { answer(urls_); });
}

void SessionDocuments::add(std::string url) {
  std::erase(urls_, url);
  urls_.insert(urls_.begin(), std::move(url));
  if (urls_.size() > kMaxDocuments) urls_.pop_back();
}

}  // namespace zq::qt
