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
#include <zqswiftui/platform/services/clock.hpp>
#include <zqswiftui/platform/services/main_queue.hpp>

namespace zq::qt {

// Seconds of the monotonic clock.
class Clock final : public zq::Clock {
 public:
  double now() const override;
  std::chrono::system_clock::time_point wallTime() const override;
};

// The queue of the thread that makes it, which runs Qt's event loop. Work is handed over
// here; Qt only wakes. What still waits at its end is dropped.
class MainQueue final : public zq::MainQueue {
 public:
  MainQueue();
  ~MainQueue() override;

  void post(std::function<void()> work) override;
  DelayedCallId postDelayed(double seconds, std::function<void()> work) override;
  void cancel(DelayedCallId id) override;
  bool isMainThread() const override { return std::this_thread::get_id() == thread_; }

  // Drops what waits, and whatever that posts as it goes.
  void dropAll();

 private:
  class Waker;
  using Due = std::pair<double, DelayedCallId>;  // calls of one moment run in posting order

  void wake();  // mutex_ held
  void run();
  void runPosted();
  void runDue();
  void armTimer();

  const std::thread::id thread_ = std::this_thread::get_id();
  Clock clock_;
  std::mutex mutex_;
  std::deque<std::function<void()>> posted_;
  std::map<Due, std::function<void()>> delayed_;
  std::unordered_map<DelayedCallId, double> deadlines_;
  bool woken_ = false;
  std::unique_ptr<Waker> waker_;
};

}  // namespace zq::qt
