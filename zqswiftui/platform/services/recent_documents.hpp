// ZQSwiftUI, MIT licence; see LICENSE.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace zq {

// The platform's list of documents that this application opened. Interface thread only.
class RecentDocuments {
 public:
  virtual ~RecentDocuments() = default;
  // Answers later on the interface thread with the URLs in the platform's order, the last
  // opened first; documents that are gone are listed all the same.
  virtual void list(std::function<void(std::vector<std::string> urls)> answer) = 0;
  virtual void add(std::string url) = 0;
};

}  // namespace zq
