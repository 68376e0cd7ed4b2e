// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <coroutine>
#include <memory>
#include <optional>
#include <utility>
#include <zqswiftui/platform/base/shared.hpp>
#include <zqswiftui/platform/base/signal.hpp>
#include <zqswiftui/platform/services/require.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// An asynchronous computation of a T, written as a coroutine. It begins when it is awaited,
// or on the background executor when it is started; it owns its frame, and dropping it before
// it began, cancelling it, or the end of the platform unwinds the frame. A coroutine keeps
// its parameters, so take them by value; a lambda that is a coroutine must not capture.
//   Task<void> show(Url url, std::weak_ptr<Model> model) {
//     std::optional<Bytes> bytes = co_await read(url);
//     co_await onMain();
//     if (const auto shown = model.lock()) shown->set(bytes);
//   }
//   detach(show(url, model));
template <typename T>
class Task;

namespace detail {

// The outermost frame of a running task, which owns all those inside.
struct TaskRoot;

struct TaskPromiseBase {
  std::coroutine_handle<> continuation;
  Shared<TaskRoot> root;

  std::suspend_always initial_suspend() noexcept { return {}; }
  void unhandled_exception() noexcept { ZQ_REQUIRE(false, "Task: an exception left a task"); }

  struct Finish {
    bool await_ready() const noexcept { return false; }
    template <typename Promise>
    std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> done) const noexcept {
      return done.promise().continuation;
    }
    void await_resume() const noexcept {}
  };
  Finish final_suspend() noexcept { return {}; }
};

template <typename T>
struct TaskPromise : TaskPromiseBase {
  std::optional<T> result;
  Task<T> get_return_object();
  void return_value(T value) { result.emplace(std::move(value)); }
  T takeResult() { return std::move(*result); }
};

template <>
struct TaskPromise<void> : TaskPromiseBase {
  Task<void> get_return_object();
  void return_void() {}
  void takeResult() {}
};

// The one way on from where a task waits. Lost without being taken, the task unwinds.
class Resumption {
 public:
  template <typename Promise>
  explicit Resumption(std::coroutine_handle<Promise> waiting)
      : waiting_(waiting), root_(waiting.promise().root) {}
  ~Resumption();
  Resumption(const Resumption&) = delete;
  Resumption& operator=(const Resumption&) = delete;

  // Of several calls, whatever their threads, the first one counts.
  void resume();

 private:
  std::coroutine_handle<> waiting_;
  Shared<TaskRoot> root_;
  bool used_ = false;  // any thread, as an atomic
};

bool onInterfaceThread();
// Goes on there, through the platform's queues. Seconds count from now.
void resumeOnMain(std::shared_ptr<Resumption> resumption);
void resumeInBackground(std::shared_ptr<Resumption> resumption, bool fast);
void resumeAfter(double seconds, std::shared_ptr<Resumption> resumption);

struct OnMain {
  bool await_ready() const { return onInterfaceThread(); }
  template <typename Promise>
  void await_suspend(std::coroutine_handle<Promise> waiting) const {
    resumeOnMain(std::make_shared<Resumption>(waiting));
  }
  void await_resume() const {}
};

struct OnBackground {
  bool fast;
  bool await_ready() const { return false; }
  template <typename Promise>
  void await_suspend(std::coroutine_handle<Promise> waiting) const {
    resumeInBackground(std::make_shared<Resumption>(waiting), fast);
  }
  void await_resume() const {}
};

struct AfterDelay {
  double seconds;
  bool await_ready() const { return false; }
  template <typename Promise>
  void await_suspend(std::coroutine_handle<Promise> waiting) const {
    resumeAfter(seconds, std::make_shared<Resumption>(waiting));
  }
  void await_resume() const {}
};

template <typename T>
class Callback {
 public:
  using Begin = std::function<void(std::function<void(T)>)>;
  explicit Callback(Begin begin) : begin_(std::move(begin)) {}
  bool await_ready() const { return false; }
  template <typename Promise>
  void await_suspend(std::coroutine_handle<Promise> waiting) {
    auto resumption = std::make_shared<Resumption>(waiting);
    // The answer may come, and end this frame, before begin returns.
    const Begin begin = std::move(begin_);
    begin([resumption = std::move(resumption), answer = answer_](T value) {
      answer->emplace(std::move(value));
      resumption->resume();
    });
  }
  T await_resume() { return std::move(**answer_); }

 private:
  Begin begin_;
  std::shared_ptr<std::optional<T>> answer_ = std::make_shared<std::optional<T>>();
};

}  // namespace detail

template <typename T>
class [[nodiscard]] Task {
 public:
  using promise_type = detail::TaskPromise<T>;

  Task(Task&& other) noexcept : frame_(std::exchange(other.frame_, nullptr)) {}
  Task& operator=(Task&& other) noexcept {
    if (this == &other) return *this;
    if (frame_) frame_.destroy();
    frame_ = std::exchange(other.frame_, nullptr);
    return *this;
  }
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;
  ~Task() {
    if (frame_) frame_.destroy();
  }

  // Awaited at most once, by another task.
  bool await_ready() const noexcept { return false; }
  template <typename Promise>
  std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> waiting) noexcept {
    frame_.promise().continuation = waiting;
    frame_.promise().root = waiting.promise().root;
    return frame_;
  }
  T await_resume() { return frame_.promise().takeResult(); }

 private:
  friend promise_type;
  explicit Task(std::coroutine_handle<promise_type> frame) : frame_(frame) {}
  std::coroutine_handle<promise_type> frame_;
};

template <typename T>
Task<T> detail::TaskPromise<T>::get_return_object() {
  return Task<T>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

inline Task<void> detail::TaskPromise<void>::get_return_object() {
  return Task<void>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

// co_await onMain(): the rest runs on the interface thread; at once when it is there already.
inline detail::OnMain onMain() {
  return {};
}
// The rest runs on the background executor.
inline detail::OnBackground onBackground(bool fast = false) {
  return {fast};
}
// The rest runs on the interface thread once that many seconds have passed.
inline detail::AfterDelay afterDelay(double seconds) {
  return {seconds};
}
// co_await callback<T>(begin) calls begin with a function, and goes on with the value that it
// is given, on the thread that gives it.
template <typename T>
detail::Callback<T> callback(typename detail::Callback<T>::Begin begin) {
  return detail::Callback<T>(std::move(begin));
}

// Runs the task on the background executor. Dropping the token cancels it: it unwinds at the
// next point where it waits, and once dropped on the interface thread, nothing of it that
// follows a wait runs there. Any thread.
Subscription start(Task<void> task);
// The same, with nobody to cancel it.
void detach(Task<void> task);

// The task, then the callback with its result on the interface thread.
template <typename T>
Task<void> thenOnMain(Task<T> task, std::function<void(T)> done) {
  Task<T> held = std::move(task);  // Clang 16 never ends a parameter that is awaited
  T result = co_await std::move(held);
  co_await onMain();
  done(std::move(result));
}

}  // namespace zq
