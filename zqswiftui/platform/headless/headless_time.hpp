// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <atomic>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <utility>
#include <zqswiftui/platform/base/thread_pool.hpp>
#include <zqswiftui/platform/services/background.hpp>
#include <zqswiftui/platform/services/clock.hpp>
#include <zqswiftui/platform/services/main_queue.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

// Where a headless platform runs background work: one piece after another on the interface
// thread while it drains, the same in every run; or on threads, as a real platform does.
enum class BackgroundMode { deterministic, threads };

// Main queue, clock and background executor over one virtual time, which starts at 0 and
// moves only when it is told to. Its owner's thread is the interface thread.
class HeadlessTime : public MainQueue, public Clock, public Background {
 public:
  explicit HeadlessTime(BackgroundMode mode);
  ~HeadlessTime() override;
  HeadlessTime(const HeadlessTime&) = delete;
  HeadlessTime& operator=(const HeadlessTime&) = delete;

  void post(std::function<void()> work) override;
  DelayedCallId postDelayed(double seconds, std::function<void()> work) override;
  void cancel(DelayedCallId id) override;
  // False within deterministic background work, which stands for another thread.
  bool isMainThread() const override;

  double now() const override;
  std::chrono::system_clock::time_point wallTime() const override;
  void setWallTime(std::chrono::system_clock::time_point start) { wallStart_ = start; }

  void post(std::function<void()> work, bool fast) override;
  void postHeavy(std::function<void()> work) override;

  void advance(double seconds);
  void stall(double seconds);
  void runUntilIdle();
  // Ends all that waits without running it, and waits for threads.
  void dropAll();

 private:
  using Key = std::pair<double, DelayedCallId>;  // ids grow, so ties keep posting order

  bool runNextPosted();
  bool runNextBackground();
  bool runNextDelayed(double target);

  const std::thread::id mainThread_ = std::this_thread::get_id();
  mutable std::mutex mutex_;
  std::deque<std::function<void()>> posted_;
  std::map<Key, std::function<void()>> delayed_;
  std::unordered_map<DelayedCallId, double> deadlines_;
  std::deque<std::function<void()>> fastWork_;
  std::deque<std::function<void()>> otherWork_;
  double now_ = 0;
  bool closed_ = false;
  std::chrono::system_clock::time_point wallStart_;
  std::unique_ptr<ThreadPool> threads_;
};

}  // namespace zq
