// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <map>
#include <mutex>
#include <zqswiftui/platform/services/drag_data.hpp>
#include <zqswiftui/platform/services/main_queue.hpp>
#include <zqswiftui/platform/services/notifications.hpp>
#include <zqswiftui/platform/services/recent_documents.hpp>

namespace zq::qt {

// Services that stay inside this process.

class LocalNotifications final : public DistributedNotifications {
 public:
  explicit LocalNotifications(zq::MainQueue& queue) : queue_(queue) {}
  void post(std::string_view name, std::string_view payload) override;
  std::uint64_t observe(std::string_view name,
                        std::function<void(const std::string&)> callback) override;
  void stopObserving(std::uint64_t id) override;

 private:
  struct Observer {
    std::string name;
    std::function<void(const std::string&)> callback;
  };
  void deliver(const std::string& name, const std::string& payload);

  zq::MainQueue& queue_;
  std::mutex mutex_;
  std::map<std::uint64_t, Observer> observers_;
  std::uint64_t lastId_ = 0;
};

// Refuses every drag.
class NoDragData final : public DragData {
 public:
  explicit NoDragData(zq::MainQueue& queue) : queue_(queue) {}
  void begin(DragItems items, std::function<void(DropResult)> ended) override;

 private:
  zq::MainQueue& queue_;
};

// The documents of this run.
class SessionDocuments final : public RecentDocuments {
 public:
  explicit SessionDocuments(zq::MainQueue& queue) : queue_(queue) {}
  void list(std::function<void(std::vector<std::string>)> answer) override;
  void add(std::string url) override;

 private:
  zq::MainQueue& queue_;
  std::vector<std::string> urls_;
};

}  // namespace zq::qt
