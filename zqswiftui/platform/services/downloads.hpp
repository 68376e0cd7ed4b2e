// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <cstdint>
#include <string>
#include <zqswiftui/platform/services/bytes.hpp>
#include <zqswiftui/platform/services/std_function.hpp>

namespace zq {

struct DownloadRequest {
  std::string url;
  double timeLimit = 60;                               // seconds for the whole, 0 or less: none
  std::uint64_t sizeLimit = std::uint64_t{256} << 20;  // bytes
};

struct DownloadAnswer {
  Bytes bytes;
  std::string error;  // a sentence; empty when all the bytes are there
  bool ok() const { return error.empty(); }
};

// Fetches what a URL names, following redirections; anything but success is an error. Any
// thread.
class Downloads {
 public:
  virtual ~Downloads() = default;
  // Answers once, later, on the interface thread; 0 is never returned.
  virtual std::uint64_t fetch(DownloadRequest request,
                              std::function<void(DownloadAnswer)> answer) = 0;
  // The same on this thread, which waits for the answer; also where that is the interface
  // thread, whose own work then waits too.
  virtual DownloadAnswer fetchAndWait(const DownloadRequest& request) = 0;
  // Called on the interface thread, the answer does not come any more.
  virtual void cancel(std::uint64_t id) = 0;
};

}  // namespace zq
