// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <future>
#include <memory>
#include <mutex>
#include <zqswiftui/platform/qt/bus_link.hpp>
#include <zqswiftui/platform/services/main_queue.hpp>
#include <zqswiftui/platform/services/notifications.hpp>

namespace zq::qt {

// Notifications over the D-Bus session bus. Where there is none, or none any more, they reach
// the observers of this process, and one line on standard error says so; a bus that comes back
// is joined again. What is posted meanwhile stays unheard elsewhere.
// Needs the queue alone, no platform and no application with windows:
//   QCoreApplication app(argc, argv);
//   zq::qt::MainQueue queue;
//   zq::qt::BusNotifications notifications(queue);
//   notifications.post("saved", path);
// Ends before the queue, on the interface thread; waits until what was posted has left, but
// not for a bus that is silent for two seconds. Once observe has returned, what others post is
// heard, unless the bus takes more than a fifth of a second to answer. A name of more than 64 KB is
// treated as a payload that is too big.
class BusNotifications final : public DistributedNotifications {
 public:
  explicit BusNotifications(zq::MainQueue& queue);
  ~BusNotifications() override;

  void post(std::string_view name, std::string_view payload) override;
  std::uint64_t observe(std::string_view name,
                        std::function<void(const std::string&)> callback) override;
  void stopObserving(std::uint64_t id) override;

 private:
  class Observers;
  void deliverLater(std::shared_ptr<const Notification> notification);

  zq::MainQueue& queue_;
  // Also held by what waits in the queue, which may outlive this.
  const std::shared_ptr<Observers> observers_;
  std::mutex changes_;  // the link hears of names in the order of their changes
  // Of a bus that took too long: it is not waited for again until it has answered.
  std::future<void> unanswered_;
  BusLink link_;
};

}  // namespace zq::qt
