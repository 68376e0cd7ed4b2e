// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/platform/services/drag_data.hpp>
#include <zqswiftui/platform/services/main_queue.hpp>
#include <zqswiftui/platform/services/recent_documents.hpp>

namespace zq::qt {

// Services that stay inside this process.

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
