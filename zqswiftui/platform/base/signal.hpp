// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

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

struct ListenerList;

// One listener, whatever it takes.
struct Listening {
  virtual ~Listening() = default;
  virtual void forget() = 0;  // lets go of what the listener holds
  // How many are inside, above the bit that says it is closed. Any thread, as an atomic.
  unsigned gate = 0;
};

// The listeners of a signal in the order of their connection, whatever they take.
class Listeners {
 public:
  Listeners();
  Subscription add(std::shared_ptr<Listening> entry);
  bool empty() const;

 private:
  friend class ListenerWalk;
  Shared<ListenerList> list_;
};

// One send, on the stack of its thread: goes through those that are connected when it begins, and
// stands inside each of them until it goes on.
class ListenerWalk {
 public:
  explicit ListenerWalk(const Listeners& listeners);
  ~ListenerWalk();
  ListenerWalk(const ListenerWalk&) = delete;
  ListenerWalk& operator=(const ListenerWalk&) = delete;

  // The next one that may be entered; null after the last.
  const Listening* next();
  // How many walks of this thread stand inside of it.
  static unsigned insideHere(const Listening& entry);

 private:
  void leave();
  Shared<const std::vector<std::shared_ptr<Listening>>> entries_;
  std::size_t at_ = 0;
  Listening* inside_ = nullptr;
  ListenerWalk* outer_;  // further up the stack
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
    detail::ListenerWalk walk(listeners_);
    while (const auto* entry = walk.next()) static_cast<const Entry*>(entry)->listener(args...);
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
