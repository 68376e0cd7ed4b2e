// ZQSwiftUI, MIT licence; see LICENSE.
#include <map>
#include <mutex>
#include <zqswiftui/platform/base/signal.hpp>

namespace zq {

Subscription::Subscription(Subscription&& other) noexcept
    : cancel_(std::exchange(other.cancel_, nullptr)) {}

Subscription& Subscription::operator=(Subscription&& other) noexcept {
  if (this == &other) return *this;
  reset();
  cancel_ = std::exchange(other.cancel_, nullptr);
  return *this;
}

void Subscription::reset() {
  // Taken out first, so that a cancellation that comes back here finds nothing to do.
  if (const auto cancel = std::exchange(cancel_, nullptr)) cancel();
}

namespace detail {

bool ListenerGate::close() {
  unsigned own = 0;
  for (const Call* call = innermost; call != nullptr; call = call->outer) {
    if (call->gate == this) own += kOneInside;
  }
  unsigned state = state_.fetch_or(kClosed, std::memory_order_acq_rel) | kClosed;
  for (; state > own + kClosed; state = state_.load(std::memory_order_acquire)) {
    state_.wait(state, std::memory_order_acquire);
  }
  return state == kClosed;
}

struct ListenerList {
  std::mutex mutex;
  std::map<std::uint64_t, std::shared_ptr<Listening>> entries;  // in the order of connection
  std::uint64_t next = 0;
  std::shared_ptr<const Listeners::Entries> snapshot;
};

namespace {

void disconnect(Listening& entry) {
  std::shared_ptr<const Listeners::Entries> stale;  // released after the lock: it may end listeners
  if (const auto list = entry.list.lock()) {
    const std::lock_guard lock(list->mutex);
    stale = std::move(list->snapshot);
    list->entries.erase(entry.place);
  }
  // What the listener holds goes now and on this thread, not when some sender lets go.
  if (entry.gate.close()) entry.forget();
}

}  // namespace

Listeners::Listeners() : list_(std::make_shared<ListenerList>()) {}

Subscription Listeners::add(std::shared_ptr<Listening> entry) {
  entry->list = list_;
  {
    const std::lock_guard lock(list_->mutex);
    entry->place = list_->next++;
    list_->entries.emplace_hint(list_->entries.end(), entry->place, entry);
    list_->snapshot.reset();
  }
  return Subscription([entry = std::move(entry)] { disconnect(*entry); });
}

std::shared_ptr<const Listeners::Entries> Listeners::entries() const {
  const std::lock_guard lock(list_->mutex);
  if (!list_->snapshot) {
    Entries now;
    now.reserve(list_->entries.size());
    for (const auto& [place, entry] : list_->entries) now.push_back(entry);
    list_->snapshot = std::make_shared<const Entries>(std::move(now));
  }
  return list_->snapshot;
}

bool Listeners::empty() const {
  const std::lock_guard lock(list_->mutex);
  return list_->entries.empty();
}

}  // namespace detail
}  // namespace zq
