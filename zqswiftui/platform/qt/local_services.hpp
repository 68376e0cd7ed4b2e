// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <string>
#include <vector>
#include <zqswiftui/platform/services/main_queue.hpp>
#include <zqswiftui/platform/services/recent_documents.hpp>

namespace zq::qt {

// Services that stay inside this process.

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
