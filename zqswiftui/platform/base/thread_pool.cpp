// ZQSwiftUI, MIT licence; see LICENSE.
#include <algorithm>
#include <utility>
#include <zqswiftui/platform/base/thread_pool.hpp>

namespace zq {

ThreadPool::ThreadPool() {
  const unsigned count = std::clamp(std::thread::hardware_concurrency(), 2u, 4u);
  workers_.reserve(count);
  for (unsigned i = 0; i < count; ++i) workers_.emplace_back([this] { runWorker(); });
}

void ThreadPool::close() {
  std::deque<std::function<void()>> dropped;  // ended after the lock: it may post again
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
    dropped = std::exchange(fastWork_, {});
    std::move(otherWork_.begin(), otherWork_.end(), std::back_inserter(dropped));
    otherWork_.clear();
  }
  workOrStop_.notify_all();
  for (std::thread& worker : workers_) worker.join();
  workers_.clear();
}

void ThreadPool::post(std::function<void()> work, bool fast) {
  {
    const std::lock_guard lock(mutex_);
    if (stopping_) return;
    (fast ? fastWork_ : otherWork_).push_back(std::move(work));
  }
  workOrStop_.notify_one();
}

void ThreadPool::waitUntilIdle() {
  std::unique_lock lock(mutex_);
  idle_.wait(lock, [this] { return running_ == 0 && fastWork_.empty() && otherWork_.empty(); });
}

void ThreadPool::runWorker() {
  std::unique_lock lock(mutex_);
  while (true) {
    workOrStop_.wait(lock,
                     [this] { return stopping_ || !fastWork_.empty() || !otherWork_.empty(); });
    if (stopping_) return;
    auto& queue = fastWork_.empty() ? otherWork_ : fastWork_;
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
