// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <atomic>
#include <deque>
#include <future>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <zqswiftui/platform/qt/bus_connection.hpp>
#include <zqswiftui/platform/qt/memory_file.hpp>
#include <zqswiftui/platform/services/main_queue.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq::qt {

// The session bus on a thread of its own, so that nobody else waits for it. Joined when it is
// first needed, and again after it went away: at the next use or by a retry. What the program
// should know about that is said in one line on standard error. Any thread.
class BusLink {
 public:
  // Heard is called on the link's thread.
  BusLink(zq::MainQueue& queue, BusConnection::Heard heard);
  // What was sent has left, unless the bus does not answer for two seconds.
  ~BusLink();

  void send(std::shared_ptr<const Notification> notification);
  // Each name once. Ready when the bus knows; that is a matter of microseconds or seconds.
  std::future<void> listen(const std::string& name);
  void unlisten(const std::string& name);

 private:
  using Job = std::function<void()>;
  // Outlives the link in what waits in the main queue.
  struct Mailbox {
    Mailbox();
    void put(Job job);
    std::deque<Job> take();
    OwnedFile bell;
    std::mutex mutex;
    std::deque<Job> jobs;
  };

  void put(Job job);
  void run();
  void waitForWork();
  bool reach();
  void lose();
  void retryLater();

  zq::MainQueue& queue_;
  const BusConnection::Heard heard_;
  const std::shared_ptr<Mailbox> mailbox_ = std::make_shared<Mailbox>();
  std::atomic<bool> ending_{false};
  std::once_flag started_;
  std::thread thread_;

  // Of the link's thread.
  std::unique_ptr<BusConnection> connection_;
  std::set<std::string> names_;
  bool tried_ = false;      // since the last look into the mailbox
  bool announced_ = false;  // that there is no bus
  DelayedCallId retry_ = 0;
  double retrySeconds_;
};

}  // namespace zq::qt
