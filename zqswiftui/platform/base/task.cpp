// ZQSwiftUI, MIT licence; see LICENSE.
#include <atomic>
#include <zqswiftui/platform/base/task.hpp>
#include <zqswiftui/platform/services/platform.hpp>

namespace zq {

struct detail::TaskRoot {
  std::coroutine_handle<> frame;
  std::atomic<bool> cancelled{false};
};

namespace {

// A frame that nobody holds: it goes when it ends, or with the way on from where it waits.
struct Running {
  struct promise_type {
    Shared<detail::TaskRoot> root;
    Running get_return_object() {
      return {std::coroutine_handle<promise_type>::from_promise(*this)};
    }
    std::suspend_always initial_suspend() noexcept { return {}; }
    std::suspend_never final_suspend() noexcept { return {}; }
    void return_void() {}
    void unhandled_exception() noexcept { ZQ_REQUIRE(false, "Task: an exception left a task"); }
  };
  std::coroutine_handle<promise_type> frame;
};

Running run(Task<void> task) {
  // Awaited from the frame's own variable: Clang 16 never ends a parameter that is awaited.
  Task<void> held = std::move(task);
  co_await std::move(held);
}

std::shared_ptr<detail::TaskRoot> begin(Task<void> task) {
  const Running running = run(std::move(task));
  auto root = std::make_shared<detail::TaskRoot>();
  root->frame = running.frame;
  running.frame.promise().root = root;
  detail::resumeInBackground(std::make_shared<detail::Resumption>(running.frame), false);
  return root;
}

std::function<void()> resuming(std::shared_ptr<detail::Resumption> resumption) {
  return [resumption = std::move(resumption)] { resumption->resume(); };
}

}  // namespace

namespace detail {

Resumption::~Resumption() {
  if (!used_) root_->frame.destroy();
}

void Resumption::resume() {
  if (std::atomic_ref(used_).exchange(true)) return;
  if (root_->cancelled) {
    root_->frame.destroy();
  } else {
    waiting_.resume();
  }
}

bool onInterfaceThread() {
  return Platform::current().mainQueue().isMainThread();
}

void resumeOnMain(std::shared_ptr<Resumption> resumption) {
  Platform::current().mainQueue().post(resuming(std::move(resumption)));
}

void resumeInBackground(std::shared_ptr<Resumption> resumption, bool fast) {
  Platform::current().background().post(resuming(std::move(resumption)), fast);
}

void resumeAfter(double seconds, std::shared_ptr<Resumption> resumption) {
  Platform::current().mainQueue().postDelayed(seconds, resuming(std::move(resumption)));
}

}  // namespace detail

Subscription start(Task<void> task) {
  return Subscription([root = begin(std::move(task))] { root->cancelled = true; });
}

void detach(Task<void> task) {
  begin(std::move(task));
}

}  // namespace zq
