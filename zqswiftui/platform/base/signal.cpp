// ZQSwiftUI, MIT licence; see LICENSE.
#include <atomic>
#include <cstdint>
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

struct ListenerList {
  using Entries = std::vector<std::shared_ptr<Listening>>;
  std::mutex mutex;
  std::map<std::uint64_t, std::shared_ptr<Listening>> entries;  // in the order of connection
  std::uint64_t next = 0;
  // What a send walks: kept until the list changes, so that sends allocate nothing.
  std::shared_ptr<const Entries> snapshot;

  std::shared_ptr<const Entries> current() {
    const std::lock_guard lock(mutex);
    if (!snapshot) {
      Entries now;
      now.reserve(entries.size());
      for (const auto& [place, entry] : entries) now.push_back(entry);
      snapshot = std::make_shared<const Entries>(std::move(now));
    }
    return snapshot;
  }

  void remove(std::uint64_t place) {
    std::shared_ptr<const Entries> stale;  // released after the lock: it may end listeners
    const std::lock_guard lock(mutex);
    stale = std::move(snapshot);
    entries.erase(place);
  }
};

namespace {

constexpr unsigned gateClosed = 1;
constexpr unsigned oneInside = 2;
thread_local ListenerWalk* innermostWalk = nullptr;

bool enter(Listening& entry) {
  const std::atomic_ref gate(entry.gate);
  unsigned state = gate.load(std::memory_order_relaxed);
  do {
    if (state & gateClosed) return false;
  } while (!gate.compare_exchange_weak(state, state + oneInside, std::memory_order_acquire,
                                       std::memory_order_relaxed));
  return true;
}

// Waits for other threads to leave; walks of this thread are not waited for. Answers whether nobody
// at all is inside any more.
bool close(Listening& entry) {
  const unsigned own = ListenerWalk::insideHere(entry) * oneInside;
  const std::atomic_ref gate(entry.gate);
  unsigned state = gate.fetch_or(gateClosed, std::memory_order_acq_rel) | gateClosed;
  for (; state > own + gateClosed; state = gate.load(std::memory_order_acquire)) {
    gate.wait(state, std::memory_order_acquire);
  }
  return state == gateClosed;
}

}  // namespace

Listeners::Listeners() : list_(std::make_shared<ListenerList>()) {}

Subscription Listeners::add(std::shared_ptr<Listening> entry) {
  std::uint64_t place = 0;
  {
    const std::lock_guard lock(list_->mutex);
    place = list_->next++;
    list_->entries.emplace_hint(list_->entries.end(), place, entry);
    list_->snapshot.reset();
  }
  return Subscription([weak = std::weak_ptr(list_.pointer()), entry = std::move(entry), place] {
    if (const auto list = weak.lock()) list->remove(place);
    // What the listener holds goes now and on this thread, not when some sender lets go.
    if (close(*entry)) entry->forget();
  });
}

bool Listeners::empty() const {
  const std::lock_guard lock(list_->mutex);
  return list_->entries.empty();
}

ListenerWalk::ListenerWalk(const Listeners& listeners)
    : entries_(listeners.list_->current()), outer_(innermostWalk) {
  innermostWalk = this;
}

ListenerWalk::~ListenerWalk() {
  leave();
  innermostWalk = outer_;
}

const Listening* ListenerWalk::next() {
  leave();
  while (at_ < entries_->size()) {
    Listening& entry = *(*entries_)[at_++];
    if (!enter(entry)) continue;
    inside_ = &entry;
    return inside_;
  }
  return nullptr;
}

unsigned ListenerWalk::insideHere(const Listening& entry) {
  unsigned count = 0;
  for (const ListenerWalk* walk = innermostWalk; walk != nullptr; walk = walk->outer_) {
    if (walk->inside_ == &entry) ++count;
  }
  return count;
}

void ListenerWalk::leave() {
  if (inside_ == nullptr) return;
  // Whoever leaves may wake others after the last wait has ended: the walk holds the listener.
  const std::atomic_ref gate(std::exchange(inside_, nullptr)->gate);
  if (gate.fetch_sub(oneInside, std::memory_order_acq_rel) & gateClosed) gate.notify_all();
}

}  // namespace detail
}  // namespace zq
