// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <utility>
#include <zqswiftui/platform/base/thread_pool.hpp>

#ifdef __linux__
#include <sys/resource.h>
#endif

namespace zq {
namespace {

constexpr int kNiceness = 10;  // of heavy work, above that of the program

unsigned threadsOfACrew() {
  return std::clamp(std::thread::hardware_concurrency(), 2u, 4u);
}

// Of this thread alone, and for good: a program may not take it back.
void lowerPriority() {
#ifdef __linux__
  setpriority(PRIO_PROCESS, 0, getpriority(PRIO_PROCESS, 0) + kNiceness);
#endif
}

}  // namespace

ThreadPool::ThreadPool() {
  const unsigned count = threadsOfACrew();
  for (unsigned i = 0; i < count; ++i) usual_.threads.emplace_back([this] { runWorker(usual_); });
}

void ThreadPool::close() {
  Work dropped;  // ended after the lock: it may post again
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
    for (Work* work : {&usual_.fast, &usual_.others, &heavy_.others}) {
      std::move(work->begin(), work->end(), std::back_inserter(dropped));
      work->clear();
    }
  }
  for (Crew* crew : {&usual_, &heavy_}) {
    crew->workOrStop.notify_all();
    for (std::thread& thread : crew->threads) thread.join();
    crew->threads.clear();
  }
}

void ThreadPool::post(std::function<void()> work, bool fast) {
  {
    const std::lock_guard lock(mutex_);
    if (stopping_) return;
    (fast ? usual_.fast : usual_.others).push_back(std::move(work));
  }
  usual_.workOrStop.notify_one();
}

void ThreadPool::postHeavy(std::function<void()> work) {
  {
    const std::lock_guard lock(mutex_);
    if (stopping_) return;
    heavy_.others.push_back(std::move(work));
    for (auto i = heavy_.threads.size(); i < threadsOfACrew(); ++i) {
      heavy_.threads.emplace_back([this] {
        lowerPriority();
        runWorker(heavy_);
      });
    }
  }
  heavy_.workOrStop.notify_one();
}

void ThreadPool::waitUntilIdle() {
  std::unique_lock lock(mutex_);
  idle_.wait(lock,
             [this] { return running_ == 0 && usual_.next().empty() && heavy_.next().empty(); });
}

void ThreadPool::runWorker(Crew& crew) {
  std::unique_lock lock(mutex_);
  while (true) {
    crew.workOrStop.wait(lock, [&] { return stopping_ || !crew.next().empty(); });
    if (stopping_) return;
    Work& queue = crew.next();
    std::function<void()> work = std::move(queue.front());
    queue.pop_front();
    ++running_;
    lock.unlock();
    work();
    work = nullptr;  // what it holds goes before anyone is told that all is done
    lock.lock();
    --running_;
    if (running_ == 0) idle_.notify_all();
  }
}

}  // namespace zq
