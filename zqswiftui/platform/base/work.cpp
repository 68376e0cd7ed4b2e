// ZQSwiftUI, MIT licence; see LICENSE.
#include <atomic>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>
#include <zqswiftui/platform/base/work.hpp>
#include <zqswiftui/platform/services/platform.hpp>
#include <zqswiftui/platform/services/require.hpp>

namespace zq {

void XMain::execute(std::function<void()> work) {
  MainQueue& queue = Platform::current().mainQueue();
  if (queue.isMainThread()) return work();
  queue.post(std::move(work));
}

void XMain::executeWhileThere(std::function<void()> work) {
  bool here = false;
  Platform::use([&](Platform& platform) {
    MainQueue& queue = platform.mainQueue();
    here = queue.isMainThread();
    if (!here) queue.post(std::move(work));
  });
  if (here) work();
}

void XMain::post(std::function<void()> work) {
  Platform::current().mainQueue().post(std::move(work));
}

void Queue::execute(bool fast, std::function<void()> work) {
  Platform::current().background().post(std::move(work), fast);
}

void Queue::executeHeavy(std::function<void()> work) {
  Platform::current().background().postHeavy(std::move(work));
}

struct SerialQueue::State : std::enable_shared_from_this<State> {
  std::string name;
  Kind kind = Kind::usual;
  std::mutex mutex;
  std::deque<std::function<void()>> waiting;
  bool turnIsComing = false;
  std::mutex running;  // held by whoever runs work of this queue
  std::atomic<std::thread::id> runner;

  // A piece of background work that runs the next one of this queue. One that is dropped with
  // the platform's background work leaves the way free for the next.
  struct Turn {
    explicit Turn(std::shared_ptr<State> givenQueue) : queue(std::move(givenQueue)) {}
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn() {
      if (!queue) return;
      const std::lock_guard lock(queue->mutex);
      queue->turnIsComing = false;
    }
    std::shared_ptr<State> queue;
  };

  // One piece a turn, so that a long queue does not keep a thread from the others; and one turn
  // at a time, so that no other thread waits beside a slow piece.
  void scheduleTurn() {
    auto run = [turn = std::make_shared<Turn>(shared_from_this())] {
      const auto self = std::exchange(turn->queue, nullptr);
      {
        const std::lock_guard mine(self->running);
        self->runNext();
      }
      self->endTurn();
    };
    if (kind == Kind::heavy) return Queue::executeHeavy(std::move(run));
    Queue::execute(false, std::move(run));
  }

  void endTurn() {
    {
      const std::lock_guard lock(mutex);
      turnIsComing = !waiting.empty();
      if (!turnIsComing) return;
    }
    scheduleTurn();
  }

  bool runNext() {
    std::function<void()> work;
    {
      const std::lock_guard lock(mutex);
      if (waiting.empty()) return false;
      work = std::move(waiting.front());
      waiting.pop_front();
    }
    runner = std::this_thread::get_id();
    work();
    runner = std::thread::id();
    return true;
  }
};

SerialQueue::SerialQueue(std::string name, Kind kind) : state_(std::make_shared<State>()) {
  state_->name = std::move(name);
  state_->kind = kind;
}

const std::string& SerialQueue::name() const {
  return state_->name;
}

void SerialQueue::post(std::function<void()> work) {
  {
    const std::lock_guard lock(state_->mutex);
    state_->waiting.push_back(std::move(work));
    if (std::exchange(state_->turnIsComing, true)) return;
  }
  state_->scheduleTurn();
}

void SerialQueue::sync(const std::function<void()>& work) {
  ZQ_REQUIRE(state_->runner.load() != std::this_thread::get_id(),
             "SerialQueue: sync from its own work would wait for itself");
  const std::lock_guard turn(state_->running);
  while (state_->runNext()) {
  }
  state_->runner = std::this_thread::get_id();
  work();
  state_->runner = std::thread::id();
}

}  // namespace zq
