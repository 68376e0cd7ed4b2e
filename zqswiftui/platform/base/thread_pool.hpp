// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>
#include <zqswiftui/platform/services/background.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// Background work on two to four threads, as the machine has processors, and heavy work on as many
// others. These have a lower priority on Linux (their niceness is 10 above that of the program), so
// that hundreds of pictures to decode leave a processor to the interface thread whenever it has
// something to do; where nobody else has, they lose nothing. Other work keeps the priority of the
// program: the interface thread waits for some of it, such as what is saved at the end.
class ThreadPool : public Background {
 public:
  ThreadPool();
  ~ThreadPool() override { close(); }
  ThreadPool(const ThreadPool&) = delete;
  ThreadPool& operator=(const ThreadPool&) = delete;

  void post(std::function<void()> work, bool fast) override;
  // The threads of heavy work begin with the first piece.
  void postHeavy(std::function<void()> work) override;
  // Waits for the work that runs, and drops what has not begun and what is posted from now on,
  // which what runs or is dropped may still do. Any thread but its own.
  void close();
  // Waits until nothing runs and nothing is queued.
  void waitUntilIdle();

 private:
  using Work = std::deque<std::function<void()>>;
  struct Crew {
    Work fast, others;
    std::condition_variable workOrStop;
    std::vector<std::thread> threads;

    Work& next() { return fast.empty() ? others : fast; }
  };
  void runWorker(Crew& crew);

  std::mutex mutex_;
  std::condition_variable idle_;
  Crew usual_;
  Crew heavy_;
  int running_ = 0;
  bool stopping_ = false;
};

}  // namespace zq
