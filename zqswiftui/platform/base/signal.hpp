// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
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
  Subscription(Subscription&& other) noexcept;
  Subscription& operator=(Subscription&& other) noexcept;
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;

  void reset();
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
  bool close();

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

struct ListenerList;

// One listener, whatever it takes, and its place in the list.
struct Listening {
  virtual ~Listening() = default;
  virtual void forget() = 0;  // lets go of what the listener holds
  ListenerGate gate;
  std::weak_ptr<ListenerList> list;
  std::uint64_t place = 0;
};

// The listeners of a signal in the order of their connection, whatever they take.
class Listeners {
 public:
  using Entries = std::vector<std::shared_ptr<Listening>>;

  Listeners();
  Subscription add(std::shared_ptr<Listening> entry);
  // What a send walks: kept until the list changes, so that sends allocate nothing.
  std::shared_ptr<const Entries> entries() const;
  bool empty() const;

 private:
  std::shared_ptr<ListenerList> list_;
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
    return listeners_.add(std::move(entry));
  }

  void send(const Args&... args) const {
    const auto entries = listeners_.entries();
    for (const auto& entry : *entries) {
      if (!entry->gate.enter()) continue;
      const detail::ListenerGate::Call call(entry->gate);
      static_cast<const Entry&>(*entry).listener(args...);
    }
  }

  bool hasListeners() const { return !listeners_.empty(); }

 private:
  struct Entry final : detail::Listening {
    void forget() override { listener = nullptr; }
    Listener listener;
  };

  detail::Listeners listeners_;
};

}  // namespace zq
