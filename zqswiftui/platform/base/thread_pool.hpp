// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>
#include <zqswiftui/platform/services/background.hpp>

namespace zq {

// Background work on two to four threads, as the machine has processors.
class ThreadPool : public Background {
 public:
  ThreadPool();
  ~ThreadPool() override { close(); }
  ThreadPool(const ThreadPool&) = delete;
  ThreadPool& operator=(const ThreadPool&) = delete;

  void post(std::function<void()> work, bool fast) override;
  // Waits for the work that runs, and drops what has not begun and what is posted from now on,
  // which what runs or is dropped may still do. Any thread but its own.
  void close();
  // Waits until nothing runs and nothing is queued.
  void waitUntilIdle();

 private:
  void runWorker();

  std::mutex mutex_;
  std::condition_variable workOrStop_;
  std::condition_variable idle_;
  std::deque<std::function<void()>> fastWork_;
  std::deque<std::function<void()>> otherWork_;
  int running_ = 0;
  bool stopping_ = false;
  std::vector<std::thread> workers_;
};

}  // namespace zq
