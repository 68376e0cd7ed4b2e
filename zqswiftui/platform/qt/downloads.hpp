// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <unordered_set>
#include <zqswiftui/platform/services/downloads.hpp>
#include <zqswiftui/platform/services/main_queue.hpp>

class QNetworkAccessManager;
class QNetworkReply;

namespace zq::qt {

// Fetches http, https, file and data URLs; the transfers run on a thread of Qt's own and are
// started from the interface thread.
class Downloads final : public zq::Downloads {
 public:
  explicit Downloads(zq::MainQueue& queue);
  ~Downloads() override;

  std::uint64_t fetch(DownloadRequest request, std::function<void(DownloadAnswer)> answer) override;
  DownloadAnswer fetchAndWait(const DownloadRequest& request) override;
  void cancel(std::uint64_t id) override;

  // Ends all that runs without an answer. Interface thread.
  void dropAll();

 private:
  struct Transfer;
  void start(std::uint64_t id, const DownloadRequest& request,
             std::function<void(DownloadAnswer)> answer);
  void stop(std::uint64_t id, std::string error);
  void finish(std::uint64_t id);
  void drop(std::uint64_t id);

  zq::MainQueue& queue_;
  std::atomic<std::uint64_t> lastId_{0};
  std::mutex mutex_;
  std::unordered_set<std::uint64_t> waiting_;  // posted, and not begun
  std::unique_ptr<QNetworkAccessManager> network_;
  std::unordered_map<std::uint64_t, std::unique_ptr<Transfer>> transfers_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace zq::qt
