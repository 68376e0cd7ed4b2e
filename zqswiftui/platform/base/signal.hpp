// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace zq {

// Cancels something when it is destroyed, exactly once; move-only. Any thread.
//   Subscription token = signal.connect([](int value) { ... });
class [[nodiscard]] Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
  ~Subscription() { reset(); }
  Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    if (this == &other) return *this;
    reset();
    cancel_ = std::exchange(other.cancel_, nullptr);
    return *this;
  }
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;

  void reset() {
    // Taken out first, so that a cancellation that comes back here finds nothing to do.
    if (const auto cancel = std::exchange(cancel_, nullptr)) cancel();
  }
  explicit operator bool() const { return static_cast<bool>(cancel_); }

 private:
  std::function<void()> cancel_;
};

namespace detail {

// One listener's gate: who is inside, and whether anyone may still enter.
class ListenerGate {
 public:
  bool enter() {
    unsigned state = state_.load(std::memory_order_relaxed);
    do {
      if (state & kClosed) return false;
    } while (!state_.compare_exchange_weak(state, state + kOneInside, std::memory_order_acquire,
                                           std::memory_order_relaxed));
    return true;
  }

  void leave() {
    if (state_.fetch_sub(kOneInside, std::memory_order_acq_rel) & kClosed) state_.notify_all();
  }

  // Waits for other threads to leave; calls of this thread further up its stack are not
  // waited for. Answers whether nobody at all is inside any more.
  bool close() {
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

  // A passage through the gate, remembered by its thread.
  struct Call {
    explicit Call(ListenerGate& entered) : gate(&entered), outer(innermost) { innermost = this; }
    ~Call() {
      innermost = outer;
      gate->leave();
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ListenerGate* gate;
    Call* outer;
  };

 private:
  static constexpr unsigned kClosed = 1;
  static constexpr unsigned kOneInside = 2;
  static inline thread_local Call* innermost = nullptr;
  // How many are inside, above the bit that says it is closed. Whoever leaves may wake others
  // after the last wait has ended: each call holds its listener until it has left.
  std::atomic<unsigned> state_{0};
};

}  // namespace detail

// A list of listeners, called in the order of their connection on the thread that sends.
// Any thread. A listener may send, connect, and drop any token, its own too; one connected
// during a send is first called by the next. Once a token is gone its callback never starts
// again and runs on no other thread; hence two callbacks on two threads must not drop each
// other's tokens. No lock is held while a listener runs.
//   Signal<int> changed;
//   Subscription token = changed.connect([](int value) { ... });
//   changed.send(3);
template <typename... Args>
class Signal {
 public:
  using Listener = std::function<void(const Args&...)>;

  Signal() = default;
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  // An empty listener gives an empty token.
  Subscription connect(Listener listener) {
    if (!listener) return {};
    auto entry = std::make_shared<Entry>();
    entry->listener = std::move(listener);
    entry->list = list_;
    {
      const std::lock_guard lock(list_->mutex);
      entry->place = list_->entries.insert(list_->entries.end(), entry);
      list_->snapshot.reset();
    }
    return Subscription([entry = std::move(entry)] { disconnect(*entry); });
  }

  void send(const Args&... args) const {
    const auto snapshot = currentEntries();
    for (const auto& entry : *snapshot) {
      if (!entry->gate.enter()) continue;
      const detail::ListenerGate::Call call(entry->gate);
      entry->listener(args...);
    }
  }

  bool hasListeners() const {
    const std::lock_guard lock(list_->mutex);
    return !list_->entries.empty();
  }

 private:
  struct Entry;
  using Entries = std::vector<std::shared_ptr<Entry>>;
  struct List {
    std::mutex mutex;
    std::list<std::shared_ptr<Entry>> entries;
    // What the last send walked, kept until the list changes; sends then allocate nothing.
    std::shared_ptr<const Entries> snapshot;
  };
  struct Entry {
    Listener listener;
    detail::ListenerGate gate;
    std::weak_ptr<List> list;
    typename std::list<std::shared_ptr<Entry>>::iterator place;
  };

  std::shared_ptr<const Entries> currentEntries() const {
    const std::lock_guard lock(list_->mutex);
    if (!list_->snapshot) {
      list_->snapshot =
          std::make_shared<const Entries>(list_->entries.begin(), list_->entries.end());
    }
    return list_->snapshot;
  }

  static void disconnect(Entry& entry) {
    std::shared_ptr<const Entries> stale;  // released after the lock: it may end listeners
    if (const auto list = entry.list.lock()) {
      const std::lock_guard lock(list->mutex);
      stale = std::move(list->snapshot);
      list->entries.erase(entry.place);
    }
    // What the listener holds goes now and on this thread, not when some sender lets go.
    if (entry.gate.close()) entry.listener = nullptr;
  }

  std::shared_ptr<List> list_ = std::make_shared<List>();
};

}  // namespace zq
